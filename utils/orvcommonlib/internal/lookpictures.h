#pragma once

#include <QtCore/QString>

/// Pictures in two looks. A dark one stands beside the light one, which every sheet and class names: among
/// the library's own in a folder of their own, among the client's as "name_dark.suffix".
namespace LookPictures {

/// Where the picture of the look in force lies: the dark one in a dark look, if there is any at the moment.
QString path(const QString &lightPath);

/// The same for a folder of the library's own pictures, which both looks have.
QString folder(const QString &lightFolder);

/// The same for each picture that a style sheet names.
QString inSheet(const QString &sheet);

} // namespace LookPictures
