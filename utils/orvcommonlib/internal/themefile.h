#pragma once

#include <QtCore/QMap>
#include <QtCore/QString>

class QSettings;

/// A theme: an INI file of named values. Sections only arrange it.
namespace ThemeFile {

/// The values by name, references to other values as they stand in the file. A key of a section wins over one outside
/// of any, and a later section, as QSettings lists them, over an earlier one. What is missing or cannot be read has no
/// values.
QMap<QString, QString> values(QSettings &file);

} // namespace ThemeFile
