#pragma once

#include <QtCore/QString>

class QLabel;
class QWidget;

/// The texts for whose sake a window is shown. Whoever builds the window marks the labels that carry them.
namespace AccessibleContent {

QLabel *mark(QLabel *label);
/// The texts of the marked labels that are seen when the window is, one to a line.
QString text(const QWidget *window);

/// The text as it is read out: without the tags of rich text.
QString plain(const QString &text);

} // namespace AccessibleContent
