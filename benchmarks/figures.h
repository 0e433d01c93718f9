#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// The figures of a run as a file keeps them: for each group an object that holds, by the text of the row, an
/// object with the numbers "ours" and "stock" and the text "unit".
namespace Figures {

/// Reads the figures of an earlier run. False when there is no such file or it holds none.
bool read(const QString &fileName, QJsonObject *figures);

/// Writes figures into the file, in the place of those of the same rows: several programs and runs of single
/// groups add up to one file. False when the file cannot be written.
bool write(const QString &fileName, const QJsonObject &figures);

/// A line for each row of both runs that became more than 20 % slower. What counts is the ratio to stock Qt,
/// which was measured along and takes out how busy the machine was; where there is nothing stock, the figure.
QStringList slowerRows(const QJsonObject &before, const QJsonObject &now);

} // namespace Figures
