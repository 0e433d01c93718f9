#pragma once

#include <QtCore/QSize>
#include <QtCore/QString>

class QKeyEvent;
class QPushButton;
class QShowEvent;
class QWidget;

/// The buttons that the message dialogs have in common, with style sheets of LookSheets. Neither kind that is made here
/// ever takes the keyboard focus.
namespace DialogButtons {

/// A button that is nothing but the image of its style sheet.
QPushButton *createCloseButton(QWidget *dialog, QSize size, const char *sheet);

/// A coloured button with a text; the caller gives it its size.
QPushButton *createActionButton(QWidget *dialog, const QString &text, const char *sheet);

/// Clicks the button that the key stands for: Escape for the close button, Return and Enter for the confirm button. One
/// that is null or hidden is not clicked, nor does a key that is held down click again. The dialog may be gone then.
/// \return false if the key stands for neither
bool clickByKey(const QKeyEvent *event, QPushButton *closeButton, QPushButton *confirmButton);

/// Makes a dialog that its program shows the active window, soon: Windows activates no tool window by itself, so that it
/// would get no keys. Another application that is active stays so, and a dialog that is to be shown without being
/// activated (`Qt::WA_ShowWithoutActivating`) is not.
void takeKeys(QWidget *dialog, const QShowEvent *event);

} // namespace DialogButtons
