#pragma once

#include <QtCore/qglobal.h>

class QEventLoop;
class QWidget;

/// One blocking run of a dialog's private event loop; lives on the stack of the dialog's exec().
///
/// It outlives the dialog where the dialog is destroyed inside its own run, so exec() asks it before
/// touching a member. A dialog takes part by calling end(), dialogHidden() and dialogDestroyed(); a dialog
/// without a run pays nothing. GUI thread only. Runs nest as their stack frames do, also several of one
/// dialog.
class ModalRun
{
public:
    /// \param dialog the dialog, which is about to be shown
    /// \param recordedLoop where the dialog records the loop of its run; used only while the dialog lives
    ModalRun(QWidget *dialog, QEventLoop *&recordedLoop);
    ~ModalRun();
    Q_DISABLE_COPY(ModalRun)

    /// Runs the loop until it is told to exit. Does nothing when the dialog was hidden, or destroyed, while
    /// exec() was still showing it: nothing would end that loop any more.
    void enter(QEventLoop &loop);

    /// The same with a loop of its own, which the dialog has recorded meanwhile.
    void enterOwnLoop();

    /// Whether the dialog still exists.
    bool isDialogAlive() const { return m_dialog != nullptr; }
    /// The result that the dialog held when it was destroyed; 0 while it lives.
    qint32 lastResult() const { return m_lastResult; }

    /// Whether the dialog is hidden, also where only its window is: to Qt 6 a dialog whose window was hidden natively
    /// is not.
    static bool isHidden(const QWidget *dialog);

    /// Tells the loop that a dialog has recorded to exit with code 0 and forgets it; nothing when none is
    /// recorded.
    static void end(QEventLoop *&recordedLoop);
    /// To be called whenever the dialog was hidden, by whatever means: ends the run whose loop it has
    /// recorded.
    static void dialogHidden(const QWidget *dialog, QEventLoop *&recordedLoop);
    /// To be called by the dialog's destructor: ends every run of the dialog and leaves its result there.
    static void dialogDestroyed(const QWidget *dialog, qint32 result);

private:
    ModalRun *m_outer = nullptr;
    const QWidget *m_dialog = nullptr;
    QEventLoop **m_recordedLoop = nullptr;
    QEventLoop *m_loop = nullptr;
    qint32 m_lastResult = 0;
    bool m_wasHidden = false;
};
