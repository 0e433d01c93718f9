#pragma once

#include "basemovedialog.h"
#include "orvcommonlib_global.h"

#include <QtCore/QSize>
#include <QtCore/QString>

class QEventLoop;
class QLabel;
class QPushButton;
class QVBoxLayout;

/// A frameless popup with a one-line title bar (title, close button, rule) above a body that the client
/// fills.
///
/// \image html dialog-commonpopupdialog.png
///
/// The class sets no colours, fonts or images: the application's style sheet finds the parts by their object names
/// "CommonPopupDialog" (body), "PopupDialogCloseButton", "Font16LightLbl" (title) and "TitleBottomHLine" (rule).
/// Without such a sheet the close button looks as the platform's style draws one, and is transparent over a
/// transparent body. It is shown with show(), or with exec(), which blocks in an event loop of its own while the rest
/// of the application goes on. The dialog never deletes itself; its parent or the client owns it. GUI thread only.
/// Sizes are in device-independent pixels.
///
/// The contents go into the layout of the body, `findChild<QWidget *>("CommonPopupDialog")->layout()`, below the
/// rule. The dialog is not placed over its parent: call moveOver() before it is shown.
///
/// \par When to use it
/// For a dialog with contents of your own below a title. For a message take PopupDlgWithMask; with the frame of the
/// desktop a QDialog does the same.
///
/// \par Example
/// \snippet dialogs.cpp CommonPopupDialog
///
/// \since 1.0
/// \sa BaseMoveDialog::moveOver(), PopupDlgWithMask, \ref guide_dialogs, \ref guide_logging
/// \ingroup dialogs
class ORVCOMMONLIB_EXPORT CommonPopupDialog : public BaseMoveDialog
{
    Q_OBJECT
    /// The text of the title label.
    Q_PROPERTY(QString title READ title)
    Q_DISABLE_COPY(CommonPopupDialog)

public:
    /// What exec() returns. The numbers are fixed.
    enum ExecResult : qint32 {
        NoResult = -1, ///< no answer yet
        Confirmed = 0, ///< never set by this class; for subclasses
        Closed = 2     ///< closed with the close button
    };

    /// \param parent the owner; may be null
    /// \param title the text of the title bar
    /// \param size the fixed size of the dialog
    /// \param showCloseButton false hides the close button, and its place in the title row collapses
    /// \param movable the user may drag the dialog
    /// \param transparentBody the body gets a transparent background, by a style sheet of its own that names no widget:
    ///        everything inside gets it as well, and line edits, lists and texts of the client's lose their grounds by
    ///        that. What is to have one needs a sheet of its own. Without `translucentBackground` the dialog's own
    ///        ground shows through.
    /// \param modal see setModal()
    /// \param translucentBackground what no style sheet paints is see-through
    CommonPopupDialog(QWidget *parent, QString title, QSize size, bool showCloseButton, bool movable,
                      bool transparentBody, bool modal, bool translucentBackground);
    ~CommonPopupDialog() override;

    /// Shows the dialog and returns at once.
    void show();
    /// \param modal whether the dialog blocks input to every other window of the application, for show() and
    ///        exec() alike
    void setModal(bool modal);
    /// Shows the dialog and blocks until it is hidden in any way, exitEventLoop() is called, the
    /// application quits or the dialog is destroyed. Logs one line before and one after the loop.
    /// \return the result as it stands then: Closed once the close button has been pressed, NoResult
    ///        before. The result is deliberately not reset: after one press of the close button every later
    ///        run returns Closed, unless a subclass sets another value.
    /// \note An exec() inside the exec() of the same dialog takes over the recorded loop: only the
    ///        innermost one can then be ended through the dialog. The outer one ends when the dialog is
    ///        destroyed or the application quits.
    ExecResult exec();
    /// \return the text of the title label
    QString title() const;
    /// The window title stays "CommonPopupDialog".
    /// \param title the text of the title bar
    void setTitle(QString title);
    /// Lets Escape act as the close button, with the same actions and signals in the same order. Nothing happens while
    /// that button is hidden. A key that the focused content uses itself does not come here, one with a modifier means
    /// nothing, and one that is held down acts once.
    /// A dialog that is shown with this set becomes the active window, if the application is active; not so with
    /// Qt::WA_ShowWithoutActivating.
    /// \param enabled whether it does, false at first; Return and Enter do nothing either way, as there is no button
    ///        to confirm with
    void setKeyboardActions(bool enabled) { m_keyboardActions = enabled; }
    /// \return what setKeyboardActions() has set
    bool keyboardActions() const { return m_keyboardActions; }
    /// Makes a running exec() return, without hiding the dialog. Nothing happens when none is running.
    void exitEventLoop();

Q_SIGNALS:
    /// The close button was pressed. Emitted once per press, after exec() was told to return and before the
    /// dialog is closed: slots still find it visible.
    void sigClosed();

protected:
    /// Hiding the native window ends a running exec(), too.
    /// \param event any event
    /// \return whether it was handled
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    /// Keeps title, rule and body in step, and the dialog at its new size.
    /// \param event the old and the new size
    void resizeEvent(QResizeEvent *event) override;
    /// Hiding ends a running exec().
    /// \param visible whether the dialog is to be shown
    void setVisible(bool visible) override;

    /// Hides the rule below the title row, for subclasses that separate title and body in their own way.
    void hideTitleLine();
    /// \param result what exec() returns from now on
    void setExecResult(ExecResult result) { m_result = result; }

private:
    void buildBody(bool transparentBody);
    void buildTitleRow(const QString &title, bool showCloseButton);
    void buildTitleLine();
    void reSize(QSize size);
    void closeButtonClicked();

    QVBoxLayout *m_verticalLayout = nullptr;
    ExecResult m_result = NoResult;
    QLabel *m_titleLabel = nullptr;
    QWidget *m_bodyWidget = nullptr;
    QWidget *m_titleLine = nullptr;
    QEventLoop *m_eventLoop = nullptr;
    QPushButton *m_closeButton = nullptr;
    bool m_keyboardActions = false;
};
