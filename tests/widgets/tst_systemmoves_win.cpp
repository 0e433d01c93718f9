#include "basemovedialog.h"
#include "testmain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <qt_windows.h>

#include <thread>

namespace {

const QRect kFrame(200, 150, 400, 300);
const QPoint kTitle(200, 30);
constexpr int kSteps = 6;
constexpr int kStepMs = 40;
constexpr int kPressMs = 300; // until the press has gone the way to the window manager
constexpr int kTimeoutMs = 20000;

void sendButton(DWORD flag)
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flag;
    SendInput(1, &input, sizeof(input));
}

// What the user does. The system keeps the thread of the window to itself as long as the button is held, so that this
// runs in one of its own.
void drag(QPoint from, QPoint to)
{
    SetCursorPos(from.x(), from.y());
    Sleep(kStepMs);
    sendButton(MOUSEEVENTF_LEFTDOWN);
    Sleep(kPressMs);
    for (int step = 1; step <= kSteps; ++step) {
        const QPoint pos = from + (to - from) * step / kSteps;
        SetCursorPos(pos.x(), pos.y());
        Sleep(kStepMs);
    }
    sendButton(MOUSEEVENTF_LEFTUP);
}

} // namespace

/// Dialogs that Windows moves and resizes.
class tst_SystemMovesWin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dialogTellsMoves();
    void dialogTellsResizes();

private:
    static void show(BaseMoveDialog *dialog);
};

void tst_SystemMovesWin::show(BaseMoveDialog *dialog)
{
    dialog->setGeometry(kFrame);
    dialog->setWidgetResizable(true);
    dialog->setSystemMoveResize(true);
    dialog->show();
    dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(dialog));
    QTRY_COMPARE(dialog->geometry(), kFrame);
}

void tst_SystemMovesWin::dialogTellsMoves()
{
    BaseMoveDialog dialog(nullptr, true, false, true);
    show(&dialog);
    QSignalSpy moved(&dialog, &BaseMoveDialog::sig_windowMoved);
    QSignalSpy finished(&dialog, &BaseMoveDialog::sig_windowMovefinished);
    QSignalSpy resized(&dialog, &BaseMoveDialog::sig_windowResizefinished);
    for (int round = 1; round <= 2; ++round) {
        const QPoint start = dialog.pos();
        std::thread user(drag, start + kTitle, start + kTitle + QPoint(60, 48));
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), round, kTimeoutMs);
        user.join();
        QCOMPARE(dialog.pos(), start + QPoint(60, 48));
        QVERIFY(!dialog.isMoving());
        QVERIFY(moved.count() >= round);
        QCOMPARE(moved.constLast().constFirst().toPoint(), dialog.pos());
    }
    QCOMPARE(resized.count(), 0);
}

void tst_SystemMovesWin::dialogTellsResizes()
{
    BaseMoveDialog dialog(nullptr, true, false, true);
    show(&dialog);
    QSignalSpy moved(&dialog, &BaseMoveDialog::sig_windowMoved);
    QSignalSpy resized(&dialog, &BaseMoveDialog::sig_windowResizefinished);
    const QPoint edge = kFrame.topLeft() + QPoint(kFrame.width() - 2, 150);
    std::thread user(drag, edge, edge + QPoint(60, 0));
    QTRY_COMPARE_WITH_TIMEOUT(resized.count(), 1, kTimeoutMs);
    user.join();
    QCOMPARE(dialog.geometry(), kFrame.adjusted(0, 0, 60, 0));
    QCOMPARE(moved.count(), 0);
    QVERIFY(!dialog.isMoving());
}

ORV_TEST_MAIN(tst_SystemMovesWin)
#include "tst_systemmoves_win.moc"
