#pragma once

#include <QtCore/QSize>
#include <QtCore/QString>

class QPushButton;
class QWidget;

/// The buttons that the message dialogs have in common, with style sheets of LookSheets. Neither kind ever takes the keyboard focus.
namespace DialogButtons {

/// A button that is nothing but the image of its style sheet.
QPushButton *createCloseButton(QWidget *dialog, QSize size, const char *sheet);

/// A coloured button with a text; the caller gives it its size.
QPushButton *createActionButton(QWidget *dialog, const QString &text, const char *sheet);

} // namespace DialogButtons
