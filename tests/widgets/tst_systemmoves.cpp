#include "basemovedialog.h"
#include "framelesshelpertest.h"
#include "testmain.h"

#include <QtGui/QWindow>
#include <QtTest/QSignalSpy>

/// The window manager's moves and resizes where they are refused: for a window that is not visible every platform does
/// so, and the offscreen one for all.
class tst_SystemMoves : public FramelessHelperTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void settingsOfEachHelper();
    void settingOfTheDialog();
    void moves_data() { windows(); }
    void moves();
    void resizes_data() { windows(); }
    void resizes();
    void rubberBands_data() { windows(); }
    void rubberBands();
    void widgetsThatAreNoWindows();
    void dialogsTellAsUsual();

private:
    static void windows();
    void makeWindow();
};

void tst_SystemMoves::init()
{
    setUp();
    m_helper->setSystemMoveResize(true);
}

void tst_SystemMoves::windows()
{
    QTest::addColumn<bool>("isCreated");
    QTest::newRow("native window") << true;
    QTest::newRow("no native window") << false;
}

void tst_SystemMoves::makeWindow()
{
    QFETCH(bool, isCreated);
    if (isCreated)
        m_window->winId();
    QCOMPARE(m_window->windowHandle() != nullptr, isCreated);
}

void tst_SystemMoves::settingsOfEachHelper()
{
    QVERIFY(m_helper->systemMoveResize());
    FramelessHelper another;
    QVERIFY(!another.systemMoveResize());
    m_helper->setSystemMoveResize(false);
    QVERIFY(!m_helper->systemMoveResize());
}

void tst_SystemMoves::settingOfTheDialog()
{
    BaseMoveDialog dialog(nullptr, true, false, true);
    const auto *helper = dialog.findChild<FramelessHelper *>();
    QVERIFY(!helper->systemMoveResize());
    dialog.setSystemMoveResize(true);
    QVERIFY(helper->systemMoveResize());
    dialog.setSystemMoveResize(false);
    QVERIFY(!helper->systemMoveResize());
}

void tst_SystemMoves::moves()
{
    makeWindow();
    drag(kTitle, kTitle + QPoint(40, 30));
    QCOMPARE(m_window->geometry(), kFrame.translated(40, 30));
    moveTo(kTitle);
    QCOMPARE(m_window->geometry(), kFrame.translated(40, 30));
}

void tst_SystemMoves::resizes()
{
    makeWindow();
    press(QPoint(2, 120));
    moveTo(QPoint(-38, 120));
    release(QPoint(-38, 120));
    QCOMPARE(m_window->geometry(), kFrame.adjusted(-38, 0, 0, 0));
}

void tst_SystemMoves::rubberBands()
{
    makeWindow();
    m_helper->setRubberBandOnMove(true);
    const QRubberBand *band = rubberBand();
    press(kTitle);
    QVERIFY(band->isVisible());
    moveTo(kTitle + QPoint(20, 10));
    QCOMPARE(m_window->geometry(), kFrame);
    release(kTitle + QPoint(20, 10));
    QVERIFY(!band->isVisible());
    QCOMPARE(m_window->geometry(), kFrame.translated(20, 10));
}

void tst_SystemMoves::widgetsThatAreNoWindows()
{
    QWidget parent;
    QWidget child(&parent);
    child.setGeometry(10, 10, 100, 100);
    m_helper->activateOn(&child);
    parent.show();
    const QPoint start = child.mapToGlobal(QPoint(50, 20));
    MouseEvents::press(&child, start);
    const QPoint before = child.frameGeometry().topLeft();
    MouseEvents::move(&child, start + QPoint(7, 5));
    MouseEvents::release(&child, start + QPoint(7, 5));
    QCOMPARE(child.pos() - before, QPoint(7, 5));
}

void tst_SystemMoves::dialogsTellAsUsual()
{
    BaseMoveDialog dialog(nullptr, true, false, true);
    dialog.setGeometry(kFrame);
    dialog.setWidgetResizable(true);
    dialog.setSystemMoveResize(true);
    dialog.winId();
    QSignalSpy moved(&dialog, &BaseMoveDialog::sig_windowMoved);
    QSignalSpy finished(&dialog, &BaseMoveDialog::sig_windowMovefinished);
    QSignalSpy resized(&dialog, &BaseMoveDialog::sig_windowResizefinished);

    MouseEvents::press(&dialog, at(kTitle));
    QVERIFY(dialog.isMoving());
    MouseEvents::move(&dialog, at(kTitle + QPoint(5, 0)));
    MouseEvents::release(&dialog, at(kTitle + QPoint(5, 0)));
    QVERIFY(!dialog.isMoving());
    QCOMPARE(moved, (QList<QVariantList>{{kFrame.topLeft() + QPoint(5, 0)}}));
    QCOMPARE(finished.count(), 1);
    QCOMPARE(resized.count(), 0);
    dialog.move(9, 9);
    QCOMPARE(moved.count(), 1);

    dialog.setGeometry(kFrame);
    MouseEvents::press(&dialog, at(QPoint(kFrame.width() - 2, 120)));
    MouseEvents::move(&dialog, at(QPoint(kFrame.width() + 20, 120)));
    MouseEvents::release(&dialog, at(QPoint(kFrame.width() + 20, 120)));
    QCOMPARE(moved.count() + finished.count(), 2);
    QCOMPARE(resized.count(), 1);
}

ORV_TEST_MAIN(tst_SystemMoves)
#include "tst_systemmoves.moc"
