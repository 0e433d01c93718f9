#include "basemovedialogtest.h"
#include "lostpresses.h"
#include "testmain.h"

#include <climits>

/// What the mouse does to the dialog base; tst_BaseMoveDialog has the rest.
class tst_BaseMoveDialog_gestures : public BaseMoveDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        setUp();
        m_positions.clear();
        m_notes.clear();
    }
    void cleanup() { tearDown(); }

    void isMovingFromPressToRelease_data();
    void isMovingFromPressToRelease();
    void staysMovingWhenItCannotMove();
    void reportsADrag();
    void reportsADragFromAnyPlace();
    void reportsNoDragWithoutItsConditions();
    void reportsADragInsideItsRectangleOnly_data();
    void reportsADragInsideItsRectangleOnly();
    void allowsTheNextDragAtTheRelease();
    void forgetsTheMovesBeforeAPress();
    void countsAMoveAfterItsReport();
    void keepsReportsInsideItsRectangle_data();
    void keepsReportsInsideItsRectangle();
    void copiesAndRemovesTheRectangleOfMoves();

    void detectsAResize_data();
    void detectsAResize();
    void detectsNoResizeUnlessResizable();
    void detectsResizesByTheLeftButtonOnly();
    void comparesPositionsWithinTheDialog();
    void reportsNoDragWhileResizing();
    void staysForbiddenToDragAfterAResizeWhenItCannotMove();
    void reportsTheMoveBeforeTheResize();

    void reportsADoubleClick_data();
    void reportsADoubleClick();
    void countsADoubleClickAsAPress();

    void finishesAMoveThatLosesItsEnd_data();
    void finishesAMoveThatLosesItsEnd();
    void tellsNothingOfOtherPressesThatLoseTheirEnd_data();
    void tellsNothingOfOtherPressesThatLoseTheirEnd();
    void startsAfreshAfterALoss_data();
    void startsAfreshAfterALoss();
    void staysMovingAfterALossWhenItCannotMove_data();
    void staysMovingAfterALossWhenItCannotMove();
    void finishesAMoveThatItsOwnReportEnds();
    void mayBeDestroyedWhenAMoveIsFinishedByALoss_data();
    void mayBeDestroyedWhenAMoveIsFinishedByALoss();

private:
    QVector<QPoint> m_positions; // what slots have seen
    QStringList m_notes;
};

void tst_BaseMoveDialog_gestures::isMovingFromPressToRelease_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left") << int(Qt::LeftButton);
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
}

void tst_BaseMoveDialog_gestures::isMovingFromPressToRelease()
{
    QFETCH(int, button);
    MouseEvents::move(m_dialog.get(), at(kMiddle), Qt::NoButton);
    QVERIFY(!m_dialog->isMoving());
    MouseEvents::press(m_dialog.get(), at(kMiddle), Qt::MouseButton(button));
    QVERIFY(m_dialog->isMoving());
    MouseEvents::release(m_dialog.get(), at(kMiddle), Qt::MouseButton(button));
    QVERIFY(!m_dialog->isMoving());
}

void tst_BaseMoveDialog_gestures::staysMovingWhenItCannotMove()
{
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    m_dialog->setCanMove(false);
    QVERIFY(!m_dialog->isMoving());
    press(kTitle);
    moveTo(kMiddle);
    release(kMiddle);
    QVERIFY(m_dialog->isMoving());
    QCOMPARE(moved.count(), 0);
    QCOMPARE(m_dialog->geometry(), kGeometry);

    m_dialog->setCanMove(true);
    QVERIFY(m_dialog->isMoving());
    release(kMiddle);
    QVERIFY(!m_dialog->isMoving());
}

void tst_BaseMoveDialog_gestures::reportsADrag()
{
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);

    // The helper has moved the window before the dialog reports it.
    connect(m_dialog.get(), &BaseMoveDialog::sig_windowMoved, this,
            [this] { m_positions << m_dialog->pos(); });
    press(kTitle);
    QCOMPARE(moved.count(), 0);
    moveTo(kTitle + QPoint(10, -5));
    moveTo(kTitle + QPoint(-20, 30));
    QCOMPARE(moved.count(), 2);
    QCOMPARE(moved.at(0).at(0).toPoint(), at({10, -5}));
    QCOMPARE(moved.at(1).at(0).toPoint(), at({-20, 30}));
    QCOMPARE(m_positions, (QVector<QPoint>{at({10, -5}), at({-20, 30})}));
    QCOMPARE(finished.count(), 0);
    release(kTitle + QPoint(-20, 30));
    QCOMPARE(finished.count(), 1);
    release(kTitle);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(resized.count(), 0);
    QCOMPARE(m_dialog->pos(), at({-20, 30}));
}

void tst_BaseMoveDialog_gestures::reportsADragFromAnyPlace()
{
    // Below the title strip nothing moves the window, yet the drag is reported.
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    press(kMiddle);
    moveTo(kMiddle + QPoint(1, 2));
    release(kMiddle + QPoint(1, 2));
    QCOMPARE(moved.count(), 1);
    QCOMPARE(moved.at(0).at(0).toPoint(), at({1, 2}));
    QCOMPARE(finished.count(), 1);
    QCOMPARE(m_dialog->geometry(), kGeometry);
}

void tst_BaseMoveDialog_gestures::reportsNoDragWithoutItsConditions()
{
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    moveTo(kMiddle); // not pressed
    press(kMiddle);
    MouseEvents::move(m_dialog.get(), at(kTitle), Qt::NoButton);
    MouseEvents::move(m_dialog.get(), at(kTitle), Qt::RightButton);
    m_dialog->setCanMove(false);
    moveTo(kTitle);
    m_dialog->setCanMove(true);
    QCOMPARE(moved.count(), 0);
    release(kTitle);
    QCOMPARE(finished.count(), 0);

    // A press of another button starts no drag of its own, but the left button held does.
    MouseEvents::press(m_dialog.get(), at(kMiddle), Qt::RightButton);
    MouseEvents::move(m_dialog.get(), at(kTitle), Qt::LeftButton | Qt::RightButton);
    QCOMPARE(moved.count(), 1);
    MouseEvents::release(m_dialog.get(), at(kTitle), Qt::RightButton);
    QCOMPARE(finished.count(), 1);
}

void tst_BaseMoveDialog_gestures::reportsADragInsideItsRectangleOnly_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<bool>("reported");
    QTest::addColumn<bool>("moves");
    QTest::newRow("inside, title strip") << QPoint(60, 45) << true << true;
    QTest::newRow("inside, below the strip") << QPoint(60, 60) << true << false;
    QTest::newRow("outside, title strip") << QPoint(60, 39) << false << true;
    QTest::newRow("outside, below the strip") << QPoint(160, 130) << false << false;
    QTest::newRow("last pixel") << QPoint(149, 69) << true << false;
    QTest::newRow("one past the last pixel") << QPoint(150, 69) << false << false;
}

void tst_BaseMoveDialog_gestures::reportsADragInsideItsRectangleOnly()
{
    QFETCH(QPoint, from);
    QFETCH(bool, reported);
    QFETCH(bool, moves);
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    QRect rect;
    m_dialog->setRectOfCanDrag(rect);
    rect = QRect(50, 40, 100, 30);
    m_dialog->setRectOfCanDrag(rect);
    rect = QRect();

    press(from);
    moveTo(from + QPoint(2, 3));
    release(from + QPoint(2, 3));
    QCOMPARE(moved.count(), reported ? 1 : 0);
    QCOMPARE(finished.count(), reported ? 1 : 0);
    QCOMPARE(m_dialog->geometry(), moves ? kGeometry.translated(2, 3) : kGeometry);
}

void tst_BaseMoveDialog_gestures::allowsTheNextDragAtTheRelease()
{
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    m_dialog->setRectOfCanDrag({0, 0, 10, 10});
    press(kMiddle);
    // A right press does not look at the rectangle, so the drag stays forbidden.
    MouseEvents::press(m_dialog.get(), at({5, 5}), Qt::RightButton);
    moveTo(kMiddle + QPoint(1, 1));
    QCOMPARE(moved.count(), 0);
    release(kMiddle);
    // And it stays allowed after a release, where the next press does not look at the rectangle either.
    MouseEvents::press(m_dialog.get(), at(kMiddle), Qt::RightButton);
    moveTo(kMiddle + QPoint(1, 1));
    QCOMPARE(moved.count(), 1);
}

void tst_BaseMoveDialog_gestures::forgetsTheMovesBeforeAPress()
{
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    press(kMiddle);
    moveTo(kMiddle + QPoint(1, 1));
    QCOMPARE(moved.count(), 1);
    MouseEvents::press(m_dialog.get(), at(kMiddle), Qt::RightButton);
    release(kMiddle);
    QCOMPARE(finished.count(), 0);
}

void tst_BaseMoveDialog_gestures::countsAMoveAfterItsReport()
{
    // A release inside the first report finds no move that it could finish.
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    connect(m_dialog.get(), &BaseMoveDialog::sig_windowMoved, this, [this] { release(kMiddle); });
    press(kMiddle);
    moveTo(kMiddle + QPoint(1, 1));
    QCOMPARE(finished.count(), 0);
    release(kMiddle);
    QCOMPARE(finished.count(), 1);
}

void tst_BaseMoveDialog_gestures::keepsReportsInsideItsRectangle_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QPoint>("reported");
    // The dialog measures 300 x 250.
    const QRect wide(-500, -400, 2000, 1500); // ends before 1500, 1100
    QTest::newRow("inside") << wide << QPoint(700, 600) << QPoint(700, 600);
    QTest::newRow("left") << wide << QPoint(-501, 0) << QPoint(-500, 0);
    QTest::newRow("top") << wide << QPoint(0, -800) << QPoint(0, -400);
    QTest::newRow("right, just inside") << wide << QPoint(1200, 0) << QPoint(1200, 0);
    QTest::newRow("right") << wide << QPoint(1201, 0) << QPoint(1200, 0);
    QTest::newRow("bottom, just inside") << wide << QPoint(0, 850) << QPoint(0, 850);
    QTest::newRow("bottom") << wide << QPoint(0, 851) << QPoint(0, 850);
    QTest::newRow("both") << wide << QPoint(5000, -5000) << QPoint(1200, -400);
    QTest::newRow("too narrow") << QRect(20, 30, 299, 1000) << QPoint(50, 60) << QPoint(20, 60);
    QTest::newRow("too low") << QRect(20, 30, 1000, 10) << QPoint(50, 60) << QPoint(50, 30);
    QTest::newRow("exactly its size") << QRect(20, 30, 300, 250) << QPoint(50, 60) << QPoint(20, 30);
    QTest::newRow("null rectangle") << QRect() << QPoint(50, 60) << QPoint(0, 0);
    QTest::newRow("everything") << QRect(QPoint(INT_MIN, INT_MIN), QPoint(INT_MAX, INT_MAX)) << QPoint(50, 60)
                                << QPoint(50, 60);
    QTest::newRow("inside out") << QRect(QPoint(INT_MAX, INT_MAX), QPoint(INT_MIN, INT_MIN)) << QPoint(50, 60)
                                << QPoint(INT_MAX, INT_MAX);
}

void tst_BaseMoveDialog_gestures::keepsReportsInsideItsRectangle()
{
    QFETCH(QRect, rect);
    QFETCH(QPoint, to);
    QFETCH(QPoint, reported);
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    m_dialog->setRectOfCanMove(&rect);
    press(kTitle);
    MouseEvents::move(m_dialog.get(), to + kTitle);
    QCOMPARE(moved.count(), 1);
    QCOMPARE(moved.at(0).at(0).toPoint(), reported);
    // The helper, which moves the window, knows nothing of the rectangle.
    QCOMPARE(m_dialog->pos(), to);
}

void tst_BaseMoveDialog_gestures::copiesAndRemovesTheRectangleOfMoves()
{
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const auto reported = [&](const QPoint &to) {
        MouseEvents::move(m_dialog.get(), to + kTitle);
        return moved.constLast().at(0).toPoint();
    };
    press(kTitle);
    m_dialog->setRectOfCanMove(nullptr);
    QRect rect(0, 0, 400, 400);
    m_dialog->setRectOfCanMove(&rect);
    rect = QRect(0, 0, 4000, 4000);
    QCOMPARE(reported({500, 500}), QPoint(100, 150));
    m_dialog->setRectOfCanMove(&rect);
    QCOMPARE(reported({500, 501}), QPoint(500, 501));
    rect = QRect(0, 0, 400, 400);
    m_dialog->setRectOfCanMove(&rect);
    QCOMPARE(reported({500, 502}), QPoint(100, 150));
    m_dialog->setRectOfCanMove(nullptr);
    QCOMPARE(reported({500, 503}), QPoint(500, 503));
    m_dialog->setRectOfCanMove(nullptr);
}

void tst_BaseMoveDialog_gestures::detectsAResize_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<bool>("enlarged");
    QTest::addColumn<bool>("resizes");
    // Unlike the helper's edges, these borders are as thick as the border width, and end with the dialog.
    QTest::newRow("left") << QPoint(4, 130) << false << true;
    QTest::newRow("beside the left") << QPoint(5, 130) << false << false;
    QTest::newRow("top") << QPoint(150, 4) << false << true;
    QTest::newRow("below the top") << QPoint(150, 5) << false << false;
    QTest::newRow("right") << QPoint(295, 130) << false << true;
    QTest::newRow("beside the right") << QPoint(294, 130) << false << false;
    QTest::newRow("past the right") << QPoint(300, 130) << false << false;
    QTest::newRow("bottom") << QPoint(150, 245) << false << true;
    QTest::newRow("above the bottom") << QPoint(150, 244) << false << false;
    QTest::newRow("past the bottom") << QPoint(150, 250) << false << false;
    QTest::newRow("corner") << QPoint(295, 245) << false << true;
    QTest::newRow("near the corner") << QPoint(294, 244) << false << false;
    QTest::newRow("enlarged corner") << QPoint(285, 235) << true << true;
    QTest::newRow("beside the enlarged corner") << QPoint(284, 235) << true << false;
    QTest::newRow("above the enlarged corner") << QPoint(285, 234) << true << false;
}

void tst_BaseMoveDialog_gestures::detectsAResize()
{
    QFETCH(QPoint, from);
    QFETCH(bool, enlarged);
    QFETCH(bool, resizes);
    m_dialog->setWidgetResizable(true);
    m_dialog->setEnableRightBottomResizeArea(enlarged);
    helper()->setWidgetResizable(false); // the dialog's own detection alone
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);

    press(from);
    release(from);
    QCOMPARE(resized.count(), 0); // it ended where it started
    press(from);
    release(from + QPoint(1, 0));
    QCOMPARE(resized.count(), resizes ? 1 : 0);
    release(from + QPoint(2, 0));
    QCOMPARE(resized.count(), resizes ? 1 : 0);
    m_dialog->setCanMove(false);
    press(from);
    release(from + QPoint(0, 1));
    QCOMPARE(resized.count(), resizes ? 2 : 0);
}

void tst_BaseMoveDialog_gestures::detectsNoResizeUnlessResizable()
{
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);
    press({0, 130});
    release({9, 130});
    m_dialog->setWidgetResizable(true);
    m_dialog->setWidgetResizable(false);
    press({0, 130});
    release({9, 130});
    QCOMPARE(resized.count(), 0);
    QCOMPARE(m_dialog->geometry(), kGeometry);
}

void tst_BaseMoveDialog_gestures::detectsResizesByTheLeftButtonOnly()
{
    m_dialog->setWidgetResizable(true);
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);
    MouseEvents::press(m_dialog.get(), at({0, 130}), Qt::RightButton);
    release({9, 130});
    QCOMPARE(resized.count(), 0);
    // Another button's release ends the gesture without a report.
    press({0, 130});
    MouseEvents::release(m_dialog.get(), at({9, 130}), Qt::RightButton);
    release({9, 130});
    QCOMPARE(resized.count(), 0);
}

void tst_BaseMoveDialog_gestures::comparesPositionsWithinTheDialog()
{
    // Pulled by its outermost pixel the left edge stays under the pointer, which has not moved within it.
    m_dialog->setWidgetResizable(true);
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);
    press({0, 130});
    moveTo({-20, 130});
    release({-20, 130});
    QCOMPARE(m_dialog->geometry(), kGeometry.adjusted(-20, 0, 0, 0));
    QCOMPARE(resized.count(), 0);
}

void tst_BaseMoveDialog_gestures::reportsNoDragWhileResizing()
{
    m_dialog->setWidgetResizable(true);
    m_dialog->setRectOfCanDrag({0, 0, 300, 250});
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);
    press({150, 2});
    moveTo({150, -20});
    QCOMPARE(m_dialog->geometry(), kGeometry.adjusted(0, -20, 0, 0));
    release({150, -20});
    QCOMPARE(moved.count(), 0);
    QCOMPARE(finished.count(), 0);
    QCOMPARE(resized.count(), 1);
}

void tst_BaseMoveDialog_gestures::staysForbiddenToDragAfterAResizeWhenItCannotMove()
{
    m_dialog->setWidgetResizable(true);
    m_dialog->setCanMove(false);
    press({0, 130});
    release({0, 130});
    m_dialog->setCanMove(true);
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    press(kMiddle);
    moveTo(kMiddle + QPoint(1, 1));
    QCOMPARE(moved.count(), 0);
    release(kMiddle);
    press(kMiddle);
    moveTo(kMiddle + QPoint(1, 1));
    QCOMPARE(moved.count(), 1);
}

void tst_BaseMoveDialog_gestures::reportsTheMoveBeforeTheResize()
{
    m_dialog->setWidgetResizable(true);
    m_dialog->setRectOfCanDrag({0, 0, 300, 250});
    connect(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished, this, [this] {
        m_notes << QStringLiteral("move");
        QVERIFY(!m_dialog->isMoving());
    });
    connect(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished, this,
            [this] { m_notes << QStringLiteral("resize"); });
    press({2, 130});
    press(kMiddle); // without a release, so that both are under way
    moveTo(kMiddle + QPoint(1, 1));
    release(kMiddle + QPoint(1, 1));
    QCOMPARE(m_notes, QStringList({QStringLiteral("move"), QStringLiteral("resize")}));
}

void tst_BaseMoveDialog_gestures::reportsADoubleClick_data()
{
    QTest::addColumn<bool>("withRect");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("count");
    QTest::newRow("without rectangle") << false << QRect() << int(Qt::LeftButton) << 0;
    QTest::newRow("null rectangle") << true << QRect(150, 130, 0, 0) << int(Qt::LeftButton) << 0;
    QTest::newRow("inside") << true << QRect(150, 130, 1, 1) << int(Qt::LeftButton) << 1;
    QTest::newRow("inside, right button") << true << QRect(100, 100, 100, 100) << int(Qt::RightButton) << 1;
    QTest::newRow("outside") << true << QRect(0, 0, 150, 130) << int(Qt::LeftButton) << 0;
}

void tst_BaseMoveDialog_gestures::reportsADoubleClick()
{
    QFETCH(bool, withRect);
    QFETCH(QRect, rect);
    QFETCH(int, button);
    QFETCH(int, count);
    if (withRect)
        m_dialog->setRectOfCanDrag(rect);
    const QSignalSpy clicked(m_dialog.get(), &BaseMoveDialog::sig_doubleclickCanDragRect);
    MouseEvents::doubleClick(m_dialog.get(), at(kMiddle), Qt::MouseButton(button));
    QCOMPARE(clicked.count(), count);
    press(kMiddle);
    release(kMiddle);
    QCOMPARE(clicked.count(), count);
}

void tst_BaseMoveDialog_gestures::countsADoubleClickAsAPress()
{
    // Qt's default double-click handler presses; the report comes after that.
    m_dialog->setRectOfCanDrag({0, 0, 300, 250});
    connect(m_dialog.get(), &BaseMoveDialog::sig_doubleclickCanDragRect, this, [this] {
        if (m_dialog->isMoving())
            m_notes << QStringLiteral("pressed");
    });
    MouseEvents::doubleClick(m_dialog.get(), at(kMiddle));
    QCOMPARE(m_notes, QStringList{QStringLiteral("pressed")});
    release(kMiddle);
    QVERIFY(!m_dialog->isMoving());
}

void tst_BaseMoveDialog_gestures::finishesAMoveThatLosesItsEnd_data()
{
    LostPresses::addRows();
}

void tst_BaseMoveDialog_gestures::finishesAMoveThatLosesItsEnd()
{
    QFETCH(Loss, loss);
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    connect(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished, this,
            [this] { QVERIFY(!m_dialog->isMoving()); });
    m_dialog->show();
    press(kTitle);
    moveTo(kTitle + QPoint(10, 20));
    QCOMPARE(moved.count(), 1);
    loss(m_dialog.get());
    QVERIFY(!m_dialog->isMoving());
    QTRY_COMPARE(finished.count(), 1);

    moveTo(kTitle + QPoint(50, 60));
    release(kTitle + QPoint(50, 60));
    QCOMPARE(moved.count(), 1);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(m_dialog->geometry(), kGeometry.translated(10, 20));
}

void tst_BaseMoveDialog_gestures::tellsNothingOfOtherPressesThatLoseTheirEnd_data()
{
    LostPresses::addRows();
}

void tst_BaseMoveDialog_gestures::tellsNothingOfOtherPressesThatLoseTheirEnd()
{
    QFETCH(Loss, loss);
    m_dialog->setWidgetResizable(true);
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);
    m_dialog->show();
    for (const QPoint &from : {QPoint(0, 130), kTitle, kMiddle}) { // a resize, and presses without a move
        press(from);
        loss(m_dialog.get());
        release(from + QPoint(9, 9));
        QCoreApplication::processEvents();
        QVERIFY(!m_dialog->isMoving());
    }
    QCOMPARE(moved.count(), 0);
    QCOMPARE(finished.count(), 0);
    QCOMPARE(resized.count(), 0);
    QCOMPARE(m_dialog->geometry(), kGeometry);
}

void tst_BaseMoveDialog_gestures::startsAfreshAfterALoss_data()
{
    LostPresses::addRows();
}

void tst_BaseMoveDialog_gestures::startsAfreshAfterALoss()
{
    QFETCH(Loss, loss);
    m_dialog->setWidgetResizable(true);
    m_dialog->setCanMove(false);
    m_dialog->show();
    press({0, 130}); // forbids to drag
    loss(m_dialog.get());
    m_dialog->setCanMove(true);

    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    press(kMiddle);
    QVERIFY(m_dialog->isMoving());
    moveTo(kMiddle + QPoint(1, 1));
    QCOMPARE(moved.count(), 1);
    release(kMiddle);
    QCOMPARE(finished.count(), 1);
    QVERIFY(!m_dialog->isMoving());
}

void tst_BaseMoveDialog_gestures::staysMovingAfterALossWhenItCannotMove_data()
{
    LostPresses::addRows();
}

void tst_BaseMoveDialog_gestures::staysMovingAfterALossWhenItCannotMove()
{
    QFETCH(Loss, loss);
    m_dialog->setCanMove(false);
    m_dialog->show();
    press(kMiddle);
    loss(m_dialog.get());
    QVERIFY(m_dialog->isMoving());
}

void tst_BaseMoveDialog_gestures::finishesAMoveThatItsOwnReportEnds()
{
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    m_dialog->show();
    connect(m_dialog.get(), &BaseMoveDialog::sig_windowMoved, this, [this] { m_dialog->hide(); });
    press(kTitle);
    moveTo(kTitle + QPoint(1, 1));
    QTRY_COMPARE(finished.count(), 1);
    QVERIFY(!m_dialog->isMoving());
    release(kTitle);
    QCOMPARE(finished.count(), 1);
}

void tst_BaseMoveDialog_gestures::mayBeDestroyedWhenAMoveIsFinishedByALoss_data()
{
    QTest::addColumn<Loss>("loss");
    QTest::newRow("hidden") << Loss([](QWidget *dialog) { dialog->hide(); });
    QTest::newRow("closed") << Loss([](QWidget *dialog) { dialog->close(); });
    QTest::newRow("disabled") << Loss([](QWidget *dialog) { dialog->setEnabled(false); });
    QTest::newRow("modal dialog") << Loss(&LostPresses::blockByModalDialog);
    QTest::newRow("next press") << Loss([](QWidget *dialog) {
        QEvent event(QEvent::WindowBlocked);
        QCoreApplication::sendEvent(dialog, &event);
        MouseEvents::press(dialog, at(kTitle));
    });
    QTest::newRow("next double click") << Loss([](QWidget *dialog) {
        QEvent event(QEvent::WindowBlocked);
        QCoreApplication::sendEvent(dialog, &event);
        MouseEvents::doubleClick(dialog, at(kTitle));
    });
}

void tst_BaseMoveDialog_gestures::mayBeDestroyedWhenAMoveIsFinishedByALoss()
{
    QFETCH(Loss, loss);
    m_dialog->setRectOfCanDrag({0, 0, 300, 250});
    m_dialog->show();
    connect(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished, this, [this] { m_dialog.reset(); });
    press(kTitle);
    moveTo(kTitle + QPoint(1, 1));
    loss(m_dialog.get());
    QTRY_VERIFY(!m_dialog);
}

ORV_TEST_MAIN(tst_BaseMoveDialog_gestures)

#include "tst_basemovedialog_gestures.moc"
