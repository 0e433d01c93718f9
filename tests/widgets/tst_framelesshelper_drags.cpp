#include "framelesshelpertest.h"
#include "lostpresses.h"
#include "testmain.h"

/// Moving, resizing and rubber bands; tst_FramelessHelper has the rest.
class tst_FramelessHelper_drags : public FramelessHelperTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void movesByTheTitleStrip_data();
    void movesByTheTitleStrip();
    void movesAndResizesByMovesWithoutButtons();
    void movesWhereverTheMeasuresSay();
    void leavesTheWidgetAloneUnlessMovable();
    void leavesTheWidgetAloneAfterTheRelease();
    void reactsToTheLeftButtonOnly();
    void movesByAnEdgeUnlessResizable();

    void resizes_data();
    void resizes();
    void resizesByTheEdgesOfThePress();
    void resizesByDraggableEdgesOnly();
    void resizesByTheEnlargedCorner_data();
    void resizesByTheEnlargedCorner();
    void resizesWhenItFillsTheScreen();
    void keepsTheMinimumSize_data();
    void keepsTheMinimumSize();
    void ignoresInsideOutRectangles();

    void rubberBandLivesWhileItIsAskedFor();
    void movesARubberBand();
    void resizesARubberBand();
    void choosesTheRubberBandAtThePress_data();
    void choosesTheRubberBandAtThePress();
    void keepsTheMinimumSizeOfARubberBand();
    void survivesTheLossOfARubberBand();

    void endsWithAPressThatIsLost_data();
    void endsWithAPressThatIsLost();
    void hidesTheRubberBandOfAPressThatIsLost_data();
    void hidesTheRubberBandOfAPressThatIsLost();
    void forgetsTheRubberBandWithTheWindow();
};

void tst_FramelessHelper_drags::movesByTheTitleStrip_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<bool>("moves");
    QTest::newRow("just below the top edge") << QPoint(150, 6) << true;
    QTest::newRow("last row of the strip") << QPoint(150, 49) << true;
    QTest::newRow("first row below the strip") << QPoint(150, 50) << false;
    QTest::newRow("middle") << kMiddle << false;
    QTest::newRow("beside the left edge") << QPoint(6, 30) << true;
    QTest::newRow("beside the right edge") << QPoint(294, 30) << true;
}

void tst_FramelessHelper_drags::movesByTheTitleStrip()
{
    QFETCH(QPoint, from);
    QFETCH(bool, moves);
    press(from);
    for (const QPoint &by : {QPoint(1, 0), QPoint(40, -30), QPoint(-700, -900), QPoint(7, 8)}) {
        moveTo(from + by);
        QCOMPARE(m_window->geometry(), moves ? kFrame.translated(by) : kFrame);
    }
    release(from);
}

// Whether the button is held is known from the press and the release alone; clients' tests rely on it.
void tst_FramelessHelper_drags::movesAndResizesByMovesWithoutButtons()
{
    press(kTitle);
    MouseEvents::move(m_window.get(), at(kTitle) + QPoint(4, 5), Qt::NoButton);
    QCOMPARE(m_window->geometry(), kFrame.translated(4, 5));
    MouseEvents::move(m_window.get(), at(kTitle), Qt::NoButton);
    release(kTitle);
    press({0, 130});
    MouseEvents::move(m_window.get(), at({-20, 130}), Qt::NoButton);
    QCOMPARE(m_window->geometry(), kFrame.adjusted(-20, 0, 0, 0));
}

void tst_FramelessHelper_drags::movesWhereverTheMeasuresSay()
{
    m_helper->setTitleHeight(20);
    drag({150, 20}, {160, 20});
    QCOMPARE(m_window->geometry(), kFrame);
    m_helper->setBorderWidth(25);
    drag({150, 19}, {150, 15});
    QCOMPARE(m_window->geometry(), kFrame.adjusted(0, 15, 0, 0));
}

void tst_FramelessHelper_drags::leavesTheWidgetAloneUnlessMovable()
{
    m_helper->setWidgetMovable(false);
    drag(kTitle, kMiddle);
    QCOMPARE(m_window->geometry(), kFrame);

    // The settings are read at each event, so that a drag under way obeys them as well.
    press(kTitle);
    m_helper->setWidgetMovable(true);
    moveTo(kTitle + QPoint(5, 5));
    QCOMPARE(m_window->geometry(), kFrame.translated(5, 5));
}

void tst_FramelessHelper_drags::leavesTheWidgetAloneAfterTheRelease()
{
    drag(kTitle, kTitle + QPoint(2, 2));
    moveTo(kTitle + QPoint(9, 9));
    QCOMPARE(m_window->geometry(), kFrame.translated(2, 2));
}

void tst_FramelessHelper_drags::reactsToTheLeftButtonOnly()
{
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        MouseEvents::press(m_window.get(), at(kTitle), button);
        MouseEvents::move(m_window.get(), at(kMiddle), button);
        QCOMPARE(m_window->geometry(), kFrame);
        MouseEvents::release(m_window.get(), at(kMiddle), button);
    }
    press(kTitle);
    MouseEvents::release(m_window.get(), at(kTitle), Qt::RightButton);
    moveTo(kTitle + QPoint(1, 1));
    QCOMPARE(m_window->geometry(), kFrame.translated(1, 1));
}

void tst_FramelessHelper_drags::movesByAnEdgeUnlessResizable()
{
    m_helper->setWidgetResizable(false);
    drag({0, 0}, {3, 4});
    QCOMPARE(m_window->geometry(), kFrame.translated(3, 4));
    drag({3, 200}, {13, 210});
    QCOMPARE(m_window->geometry(), kFrame.translated(3, 4));
}

void tst_FramelessHelper_drags::resizes_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QRect>("result");
    const QPoint to(40, 60); // relative to the frame, as `from`
    const int l = kFrame.left();
    const int t = kFrame.top();
    const int r = kFrame.right();
    const int b = kFrame.bottom();
    const int x = l + to.x();
    const int y = t + to.y();
    const auto rect = [](int left, int top, int right, int bottom) {
        return QRect(QPoint(left, top), QPoint(right, bottom));
    };
    QTest::newRow("left") << QPoint(5, 130) << rect(x, t, r, b);
    QTest::newRow("top") << QPoint(150, 5) << rect(l, y, r, b);
    QTest::newRow("right") << QPoint(295, 130) << rect(l, t, x, b);
    QTest::newRow("bottom") << QPoint(150, 245) << rect(l, t, r, y);
    QTest::newRow("top left") << QPoint(0, 0) << rect(x, y, r, b);
    QTest::newRow("top right") << QPoint(299, 0) << rect(l, y, x, b);
    QTest::newRow("bottom left") << QPoint(0, 249) << rect(x, t, r, y);
    QTest::newRow("bottom right") << QPoint(299, 249) << rect(l, t, x, y);
    QTest::newRow("one past the right") << QPoint(300, 130) << rect(l, t, x, b);
    QTest::newRow("one past the bottom") << QPoint(150, 250) << rect(l, t, r, y);
    QTest::newRow("beside the left") << QPoint(6, 130) << kFrame;
}

void tst_FramelessHelper_drags::resizes()
{
    QFETCH(QPoint, from);
    QFETCH(QRect, result);
    drag(from, {40, 60});
    QCOMPARE(m_window->geometry(), result);
}

void tst_FramelessHelper_drags::resizesByTheEdgesOfThePress()
{
    press({299, 130});
    moveTo({200, 0});
    QCOMPARE(m_window->geometry(), QRect(kFrame.x(), kFrame.y(), 201, kFrame.height()));
    moveTo({500, 249});
    QCOMPARE(m_window->geometry(), QRect(kFrame.x(), kFrame.y(), 501, kFrame.height()));
}

void tst_FramelessHelper_drags::resizesByDraggableEdgesOnly()
{
    m_helper->setDragDirection(false, true, true, false);
    drag({0, 130}, {-20, 130});
    QCOMPARE(m_window->geometry(), kFrame);
    drag({0, 249}, {-20, 270});
    QCOMPARE(m_window->geometry(), kFrame);
    drag({0, 0}, {-20, -30}); // a corner with one draggable edge is that edge
    QCOMPARE(m_window->geometry(), kFrame.adjusted(0, -30, 0, 0));
}

void tst_FramelessHelper_drags::resizesByTheEnlargedCorner_data()
{
    QTest::addColumn<bool>("switches");
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<bool>("resizes");
    for (const bool switches : {true, false}) {
        const char *name = switches ? "all edges" : "no edges";
        QTest::addRow("%s, inner corner of the square", name) << switches << QPoint(285, 235) << true;
        QTest::addRow("%s, outer corner of the square", name) << switches << QPoint(300, 250) << true;
        QTest::addRow("%s, left of the square", name) << switches << QPoint(284, 240) << false;
        QTest::addRow("%s, above the square", name) << switches << QPoint(290, 234) << false;
    }
}

void tst_FramelessHelper_drags::resizesByTheEnlargedCorner()
{
    QFETCH(bool, switches);
    QFETCH(QPoint, from);
    QFETCH(bool, resizes);
    m_helper->setDragDirection(switches, switches, switches, switches);
    m_helper->setTitleHeight(500); // a press in the square resizes even where the title strip reaches
    m_helper->setWidgetMovable(resizes);
    drag(from, from);
    m_window->setGeometry(kFrame);
    m_helper->setEnabelRightBottomAreaResize(true);
    drag(from, {320, 270});
    QCOMPARE(m_window->geometry(), resizes ? QRect(kFrame.topLeft(), QSize(321, 271)) : kFrame);
}

void tst_FramelessHelper_drags::resizesWhenItFillsTheScreen()
{
    for (const Qt::WindowState state : {Qt::WindowMaximized, Qt::WindowFullScreen}) {
        m_window->setGeometry(kFrame);
        m_window->setWindowState(state);
        const QRect frame = m_window->frameGeometry();
        MouseEvents::press(m_window.get(), frame.bottomRight());
        MouseEvents::move(m_window.get(), frame.bottomRight() - QPoint(20, 10));
        MouseEvents::release(m_window.get(), frame.bottomRight() - QPoint(20, 10));
        QCOMPARE(m_window->geometry(), frame.adjusted(0, 0, -20, -10));
    }
}

void tst_FramelessHelper_drags::keepsTheMinimumSize_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QRect>("result");
    // The minimum is 200 x 150. A pulled edge that goes too far is put back to where it was.
    QTest::newRow("left, as far as it goes")
        << QPoint(0, 130) << QPoint(100, 0) << kFrame.adjusted(100, 0, 0, 0);
    QTest::newRow("left, too far") << QPoint(0, 130) << QPoint(101, 0) << kFrame;
    QTest::newRow("right, as far as it goes")
        << QPoint(299, 130) << QPoint(199, 0) << kFrame.adjusted(0, 0, -100, 0);
    QTest::newRow("right, too far") << QPoint(299, 130) << QPoint(198, 0) << kFrame;
    QTest::newRow("top, as far as it goes")
        << QPoint(150, 0) << QPoint(0, 100) << kFrame.adjusted(0, 100, 0, 0);
    QTest::newRow("top, too far") << QPoint(150, 0) << QPoint(0, 101) << kFrame;
    QTest::newRow("bottom, as far as it goes")
        << QPoint(150, 249) << QPoint(0, 149) << kFrame.adjusted(0, 0, 0, -100);
    QTest::newRow("bottom, too far") << QPoint(150, 249) << QPoint(0, 148) << kFrame;
    QTest::newRow("corner, too narrow only")
        << QPoint(0, 0) << QPoint(150, 50) << kFrame.adjusted(0, 50, 0, 0);
    QTest::newRow("corner, too low only")
        << QPoint(299, 249) << QPoint(249, 20) << kFrame.adjusted(0, 0, -50, 0);
    QTest::newRow("corner, both") << QPoint(299, 0) << QPoint(20, 220) << kFrame;
    // Without width there is still a valid rectangle.
    QTest::newRow("right, one pixel wide") << QPoint(299, 130) << QPoint(0, 0) << kFrame;
}

void tst_FramelessHelper_drags::keepsTheMinimumSize()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(QRect, result);
    m_window->setMinimumSize(200, 150);
    drag(from, to);
    QCOMPARE(m_window->geometry(), result);
}

void tst_FramelessHelper_drags::ignoresInsideOutRectangles()
{
    press({299, 130});
    moveTo({150, 130});
    const QRect narrow = m_window->geometry();
    moveTo({-1, 130});
    QCOMPARE(m_window->geometry(), narrow);
    moveTo({-100, 130});
    QCOMPARE(m_window->geometry(), narrow);
    moveTo({299, 130});
    QCOMPARE(m_window->geometry(), kFrame);
}

void tst_FramelessHelper_drags::rubberBandLivesWhileItIsAskedFor()
{
    QVERIFY(rubberBands().isEmpty());
    m_helper->setRubberBandOnMove(true);
    QCOMPARE(rubberBands().size(), 1);
    QRubberBand *band = rubberBand();
    QVERIFY(!band->parent());
    QVERIFY(!band->isVisible());
    QCOMPARE(band->shape(), QRubberBand::Rectangle);
    m_helper->setRubberBandOnResize(true);
    m_helper->setRubberBandOnMove(false);
    QCOMPARE(rubberBands(), QVector<QRubberBand *>{band});

    Window second;
    m_helper->activateOn(&second);
    QCOMPARE(rubberBands().size(), 2);
    m_helper->removeFrom(&second);
    QCOMPARE(rubberBands(), QVector<QRubberBand *>{band});
    m_helper->setRubberBandOnResize(false);
    QVERIFY(rubberBands().isEmpty());
}

void tst_FramelessHelper_drags::movesARubberBand()
{
    m_helper->setRubberBandOnMove(true);
    QRubberBand *band = rubberBand();
    press(kTitle);
    QVERIFY(band->isVisible());
    QCOMPARE(band->geometry(), kFrame);
    moveTo(kTitle + QPoint(30, 40));
    QCOMPARE(band->geometry(), kFrame.translated(30, 40));
    QCOMPARE(m_window->geometry(), kFrame);
    release(kTitle + QPoint(30, 40));
    QVERIFY(!band->isVisible());
    QCOMPARE(m_window->geometry(), kFrame.translated(30, 40));

    // A resize is not banded by this.
    MouseEvents::press(m_window.get(), m_window->geometry().bottomRight());
    QVERIFY(!band->isVisible());
    MouseEvents::move(m_window.get(), m_window->geometry().bottomRight() + QPoint(5, 5));
    QCOMPARE(m_window->size(), kFrame.size() + QSize(5, 5));
}

void tst_FramelessHelper_drags::resizesARubberBand()
{
    m_helper->setRubberBandOnResize(true);
    QRubberBand *band = rubberBand();
    press({0, 0});
    QVERIFY(band->isVisible());
    QCOMPARE(band->geometry(), kFrame);
    moveTo({-30, -40});
    moveTo({-50, -60});
    QCOMPARE(band->geometry(), kFrame.adjusted(-50, -60, 0, 0));
    QCOMPARE(m_window->geometry(), kFrame);
    release({-50, -60});
    QVERIFY(!band->isVisible());
    QCOMPARE(m_window->geometry(), kFrame.adjusted(-50, -60, 0, 0));

    // A move is not banded by this.
    press({150, -20});
    QVERIFY(!band->isVisible());
    moveTo({151, -19});
    QCOMPARE(m_window->geometry(), kFrame.adjusted(-50, -60, 0, 0).translated(1, 1));
}

void tst_FramelessHelper_drags::choosesTheRubberBandAtThePress_data()
{
    QTest::addColumn<bool>("onMove");
    QTest::addColumn<bool>("onResize");
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<bool>("shown");
    QTest::newRow("move, title") << true << false << kTitle << true;
    QTest::newRow("move, edge") << true << false << QPoint(0, 130) << false;
    // The band is chosen by edge or no edge alone: it shows where nothing will move.
    QTest::newRow("move, middle") << true << false << kMiddle << true;
    QTest::newRow("resize, title") << false << true << kTitle << false;
    QTest::newRow("resize, edge") << false << true << QPoint(0, 130) << true;
    QTest::newRow("resize, middle") << false << true << kMiddle << false;
    QTest::newRow("both, title") << true << true << kTitle << true;
    QTest::newRow("both, edge") << true << true << QPoint(0, 130) << true;
}

void tst_FramelessHelper_drags::choosesTheRubberBandAtThePress()
{
    QFETCH(bool, onMove);
    QFETCH(bool, onResize);
    QFETCH(QPoint, from);
    QFETCH(bool, shown);
    m_helper->setRubberBandOnMove(onMove);
    m_helper->setRubberBandOnResize(onResize);
    QRubberBand *band = rubberBand();
    MouseEvents::press(m_window.get(), at(from), Qt::RightButton);
    QVERIFY(!band->isVisible());
    press(from);
    QCOMPARE(band->isVisible(), shown);
    MouseEvents::release(m_window.get(), at(from), Qt::RightButton);
    QCOMPARE(band->isVisible(), shown);
    release(from);
    QVERIFY(!band->isVisible());
    QCOMPARE(m_window->geometry(), kFrame);
}

void tst_FramelessHelper_drags::keepsTheMinimumSizeOfARubberBand()
{
    m_window->setMinimumSize(200, 150);
    m_helper->setRubberBandOnResize(true);
    QRubberBand *band = rubberBand();
    press({0, 130});
    moveTo({-50, 130});
    moveTo({250, 130});
    QCOMPARE(band->geometry(), kFrame.adjusted(-50, 0, 0, 0));
    release({250, 130});
    QCOMPARE(m_window->geometry(), kFrame.adjusted(-50, 0, 0, 0));
}

void tst_FramelessHelper_drags::survivesTheLossOfARubberBand()
{
    m_helper->setRubberBandOnMove(true);
    m_helper->setRubberBandOnResize(true);
    press(kTitle);
    delete rubberBands().constFirst();
    moveTo(kTitle + QPoint(1, 1)); // then the widget itself is moved
    release(kTitle);
    QCOMPARE(m_window->geometry(), kFrame.translated(1, 1));
    m_helper->setRubberBandOnMove(true);
    QCOMPARE(rubberBands().size(), 1);
}

void tst_FramelessHelper_drags::endsWithAPressThatIsLost_data()
{
    LostPresses::addRows();
}

void tst_FramelessHelper_drags::endsWithAPressThatIsLost()
{
    QFETCH(Loss, loss);
    m_window->show();
    for (const QPoint &from : {kTitle, QPoint(0, 130)}) {
        const bool isMove = from == kTitle;
        press(from);
        moveTo(from + QPoint(20, 0));
        const QRect pulled = isMove ? kFrame.translated(20, 0) : kFrame.adjusted(20, 0, 0, 0);
        QCOMPARE(m_window->geometry(), pulled);
        loss(m_window.get());
        QCOMPARE(m_window->geometry(), pulled);

        MouseEvents::move(m_window.get(), at(from) + QPoint(60, 70), Qt::NoButton);
        moveTo(from + QPoint(60, 70));
        QCOMPARE(m_window->geometry(), pulled);
        MouseEvents::hover(m_window.get(), m_window->geometry().topLeft()); // as ever without a press
        QCOMPARE(m_window->cursor().shape(), Qt::SizeFDiagCursor);
        release(from + QPoint(60, 70));
        QCOMPARE(m_window->geometry(), pulled);

        m_window->setGeometry(kFrame);
        drag(from, from + QPoint(30, 0)); // the next one starts afresh
        QCOMPARE(m_window->geometry(), isMove ? kFrame.translated(30, 0) : kFrame.adjusted(30, 0, 0, 0));
        m_window->setGeometry(kFrame);
    }
}

void tst_FramelessHelper_drags::hidesTheRubberBandOfAPressThatIsLost_data()
{
    LostPresses::addRows();
}

void tst_FramelessHelper_drags::hidesTheRubberBandOfAPressThatIsLost()
{
    QFETCH(Loss, loss);
    m_helper->setRubberBandOnMove(true);
    m_helper->setRubberBandOnResize(true);
    QRubberBand *band = rubberBand();
    m_window->show();
    for (const QPoint &from : {kTitle, QPoint(0, 130)}) {
        press(from);
        moveTo(from + QPoint(20, 0));
        QVERIFY(band->isVisible());
        loss(m_window.get());
        QVERIFY(!band->isVisible());
        moveTo(from + QPoint(60, 70));
        QVERIFY(!band->isVisible());
        release(from + QPoint(60, 70));
        QCOMPARE(m_window->geometry(), kFrame);

        drag(from, from); // the next one starts with a band where the window is
        QVERIFY(!band->isVisible());
        QCOMPARE(m_window->geometry(), kFrame);
    }
}

void tst_FramelessHelper_drags::forgetsTheRubberBandWithTheWindow()
{
    m_helper->setRubberBandOnMove(true);
    m_window->show();
    press(kTitle);
    moveTo(kTitle + QPoint(20, 0));
    m_window->hide();
    QVERIFY(!rubberBand()->isVisible()); // while the window is still hidden
    release(kTitle + QPoint(20, 0));
    m_window->show();
    QCOMPARE(m_window->geometry(), kFrame);
}

ORV_TEST_MAIN(tst_FramelessHelper_drags)

#include "tst_framelesshelper_drags.moc"
