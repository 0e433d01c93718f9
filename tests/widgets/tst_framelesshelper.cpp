#include "framelesshelper.h"

#include "logcapture.h"
#include "mouseevents.h"

#include <QtCore/QVector>
#include <QtGui/QMouseEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QRubberBand>
#include <QtWidgets/QWidget>

#include <climits>
#include <functional>
#include <memory>
#include <vector>

namespace {

const QRect kFrame(100, 200, 300, 250);
const QPoint kTitle(150, 30);
const QPoint kMiddle(150, 130);
constexpr int kNoCursor = Qt::ArrowCursor; // what a window shows that has no cursor of its own

/// A frameless window that notes what reaches it, and runs what a client might do from within.
class Window : public QWidget
{
public:
    Window()
        : QWidget(nullptr, Qt::FramelessWindowHint)
    {
        QWidget::setGeometry(kFrame);
    }

    QVector<QEvent::Type> seen;
    QPoint posAtMouseMove;
    std::function<void()> onMove;
    std::function<void()> onResize;
    std::function<void()> onCursorChange;
    std::function<void()> onHide;

protected:
    bool event(QEvent *event) override
    {
        seen << event->type();
        if (event->type() == QEvent::MouseMove)
            posAtMouseMove = pos();
        const bool result = QWidget::event(event);
        const QEvent::Type type = event->type();
        if (type == QEvent::Move)
            run(&onMove);
        else if (type == QEvent::Resize)
            run(&onResize);
        else if (type == QEvent::CursorChange)
            run(&onCursorChange);
        else if (type == QEvent::Hide)
            run(&onHide);
        return result;
    }

private:
    /// Once, and from a copy: the action may destroy this window.
    static void run(std::function<void()> *action)
    {
        const std::function<void()> once = *action;
        *action = nullptr;
        if (once)
            once();
    }
};

QVector<QRubberBand *> rubberBands()
{
    QVector<QRubberBand *> bands;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (auto *band = qobject_cast<QRubberBand *>(window))
            bands << band;
    }
    return bands;
}

/// The only rubber band, without the frame that the offscreen platform puts even around tooltips.
QRubberBand *rubberBand()
{
    const QVector<QRubberBand *> bands = rubberBands();
    if (bands.size() != 1)
        qFatal("There are %d rubber bands", bands.size());
    bands.constFirst()->setWindowFlag(Qt::FramelessWindowHint);
    return bands.constFirst();
}

int cursorOf(const QWidget *widget)
{
    return widget->cursor().shape();
}

struct DragSwitches
{
    bool left = true;
    bool top = true;
    bool right = true;
    bool bottom = true;
};

/// The cursor that is due at a point, written down without the library's own code.
int expectedCursor(const QPoint &p, const QRect &frame, const DragSwitches &drag, int border, int enlargedBy)
{
    const int x0 = frame.x();
    const int y0 = frame.y();
    const int w = frame.width();
    const int h = frame.height();
    const bool left = drag.left && x0 <= p.x() && p.x() <= x0 + border;
    const bool right = drag.right && x0 + w - border <= p.x() && p.x() <= x0 + w;
    const bool top = drag.top && y0 <= p.y() && p.y() <= y0 + border;
    const bool bottom = drag.bottom && y0 + h - border <= p.y() && p.y() <= y0 + h;
    bool bottomRight = bottom && right;
    if (enlargedBy > 0) {
        bottomRight = x0 + w - border - enlargedBy <= p.x() && p.x() <= x0 + w &&
                      y0 + h - border - enlargedBy <= p.y() && p.y() <= y0 + h;
    }
    if ((top && left) || bottomRight)
        return Qt::SizeFDiagCursor;
    if ((bottom && left) || (top && right))
        return Qt::SizeBDiagCursor;
    if (left || right)
        return Qt::SizeHorCursor;
    if (top || bottom)
        return Qt::SizeVerCursor;
    return kNoCursor;
}

} // namespace

class tst_FramelessHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void hasNoSignalsSlotsOrPropertiesOfItsOwn();
    void startsWithItsDefaults();
    void keepsWhatIsSet();
    void sharesItsMeasuresWithAllHelpers();
    void ignoresZeroMeasures();

    void activationPreparesTheWidget();
    void secondActivationDoesNothing();
    void removalRestoresTheWidget();
    void removalHidesAWidgetWhoseFlagsHaveChanged();
    void destructionRestoresEveryWidget();
    void ignoresNullAndStrangers();
    void watchesSeveralWidgets();

    void showsTheCursorOfEachEdge_data();
    void showsTheCursorOfEachEdge();
    void findsEdgesAtNegativeCoordinates();
    void findsNoEdgeWithAMeasureBeyondInt();
    void unsetsOnlyItsOwnCursor();
    void unsetsTheCursorOnLeave();
    void showsNoCursorUnlessResizable();
    void showsNoCursorWhenItFillsTheScreen_data();
    void showsNoCursorWhenItFillsTheScreen();

    void movesByTheTitleStrip_data();
    void movesByTheTitleStrip();
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

    void passesEveryEventOnAfterActing();
    void forgetsADestroyedWidget();
    void forgetsADestroyedWidgetThatLostItsConnections();
    void survivesItsDestroyedParent_data();
    void survivesItsDestroyedParent();
    void survivesRemovalInsideItsOwnActions_data();
    void survivesRemovalInsideItsOwnActions();
    void survivesDestructionOfOneWidgetByAnother();

private:
    QPoint at(const QPoint &local) const { return kFrame.topLeft() + local; }
    void press(const QPoint &local) { MouseEvents::press(m_window.get(), at(local)); }
    void moveTo(const QPoint &local) { MouseEvents::move(m_window.get(), at(local)); }
    void release(const QPoint &local) { MouseEvents::release(m_window.get(), at(local)); }
    void drag(const QPoint &from, const QPoint &to);

    std::unique_ptr<Window> m_window;
    std::unique_ptr<FramelessHelper> m_helper;
};

void tst_FramelessHelper::init()
{
    m_window = std::make_unique<Window>();
    m_helper = std::make_unique<FramelessHelper>();
    m_helper->activateOn(m_window.get());
}

void tst_FramelessHelper::cleanup()
{
    m_helper.reset();
    m_window.reset();
    FramelessHelper shared;
    shared.setBorderWidth(5);
    shared.setTitleHeight(50);
    shared.setRightBottomAreaExtraPix(10);
    shared.setEnabelRightBottomAreaResize(false);
    QVERIFY(rubberBands().isEmpty());
}

/// Positions are relative to the place of the frame before the drag.
void tst_FramelessHelper::drag(const QPoint &from, const QPoint &to)
{
    press(from);
    moveTo(to);
    release(to);
}

void tst_FramelessHelper::hasNoSignalsSlotsOrPropertiesOfItsOwn()
{
    const QMetaObject &meta = FramelessHelper::staticMetaObject;
    QCOMPARE(meta.className(), "FramelessHelper");
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void tst_FramelessHelper::startsWithItsDefaults()
{
    QVERIFY(!m_helper->parent());
    QCOMPARE(FramelessHelper(m_window.get()).parent(), m_window.get());
    QVERIFY(m_helper->widgetMovable());
    QVERIFY(m_helper->widgetResizable());
    QVERIFY(!m_helper->rubberBandOnMove());
    QVERIFY(!m_helper->rubberBandOnResisze());
    QCOMPARE(m_helper->borderWidth(), 5U);
    QCOMPARE(m_helper->titleHeight(), 50U);
    QCOMPARE(m_helper->rightBottomAreaExtraPix(), 10U);
    QVERIFY(!m_helper->enableRightBottomAreaResizeState());
}

void tst_FramelessHelper::keepsWhatIsSet()
{
    const FramelessHelper other;
    m_helper->setWidgetMovable(false);
    QVERIFY(!m_helper->widgetMovable());
    m_helper->setWidgetResizable(false);
    QVERIFY(!m_helper->widgetResizable());
    m_helper->setRubberBandOnMove(true);
    QVERIFY(m_helper->rubberBandOnMove());
    QVERIFY(!m_helper->rubberBandOnResisze());
    m_helper->setRubberBandOnMove(false);
    m_helper->setRubberBandOnResize(true);
    QVERIFY(m_helper->rubberBandOnResisze());
    QVERIFY(!m_helper->rubberBandOnMove());

    QVERIFY(other.widgetMovable());
    QVERIFY(other.widgetResizable());
    QVERIFY(!other.rubberBandOnResisze());
}

void tst_FramelessHelper::sharesItsMeasuresWithAllHelpers()
{
    FramelessHelper other;
    other.setBorderWidth(20);
    other.setTitleHeight(90);
    other.setRightBottomAreaExtraPix(30);
    other.setEnabelRightBottomAreaResize(true);
    QCOMPARE(m_helper->borderWidth(), 20U);
    QCOMPARE(m_helper->titleHeight(), 90U);
    QCOMPARE(m_helper->rightBottomAreaExtraPix(), 30U);
    QVERIFY(m_helper->enableRightBottomAreaResizeState());
    QCOMPARE(FramelessHelper().borderWidth(), 20U);

    // They hold at once for widgets that are watched already.
    drag({150, 85}, {151, 85});
    QCOMPARE(m_window->geometry(), kFrame.translated(1, 0));
    MouseEvents::hover(m_window.get(), kFrame.bottomRight() - QPoint(48, 48));
    QCOMPARE(cursorOf(m_window.get()), int(Qt::SizeFDiagCursor));
    MouseEvents::hover(m_window.get(), at({1 + 20, 130}));
    QCOMPARE(cursorOf(m_window.get()), int(Qt::SizeHorCursor));
}

void tst_FramelessHelper::ignoresZeroMeasures()
{
    m_helper->setBorderWidth(0);
    m_helper->setTitleHeight(0);
    m_helper->setRightBottomAreaExtraPix(0);
    QCOMPARE(m_helper->borderWidth(), 5U);
    QCOMPARE(m_helper->titleHeight(), 50U);
    QCOMPARE(m_helper->rightBottomAreaExtraPix(), 10U);
}

void tst_FramelessHelper::activationPreparesTheWidget()
{
    QWidget widget;
    const Qt::WindowFlags flags = widget.windowFlags();
    QVERIFY(!widget.hasMouseTracking());
    m_helper->activateOn(&widget);
    QVERIFY(widget.hasMouseTracking());
    QVERIFY(widget.testAttribute(Qt::WA_Hover));
    QCOMPARE(widget.windowFlags(), flags);
}

void tst_FramelessHelper::secondActivationDoesNothing()
{
    const Qt::WindowFlags flags = m_window->windowFlags();
    m_window->setWindowFlags(flags | Qt::WindowStaysOnTopHint);
    m_window->setMouseTracking(false);
    m_helper->activateOn(m_window.get());
    QVERIFY(!m_window->hasMouseTracking());
    m_helper->removeFrom(m_window.get());
    QCOMPARE(m_window->windowFlags(), flags);
}

void tst_FramelessHelper::removalRestoresTheWidget()
{
    const Qt::WindowFlags flags = m_window->windowFlags();
    m_window->show();
    m_helper->removeFrom(m_window.get());
    QVERIFY(!m_window->hasMouseTracking());
    QVERIFY(!m_window->testAttribute(Qt::WA_Hover));
    QCOMPARE(m_window->windowFlags(), flags);
    QVERIFY(m_window->isVisible());
    drag(kTitle, kMiddle);
    QCOMPARE(m_window->geometry(), kFrame);

    m_window->setMouseTracking(true);
    m_helper->removeFrom(m_window.get());
    QVERIFY(m_window->hasMouseTracking());
    m_helper->activateOn(m_window.get());
    drag(kTitle, kTitle + QPoint(3, 4));
    QCOMPARE(m_window->geometry(), kFrame.translated(3, 4));
}

void tst_FramelessHelper::removalHidesAWidgetWhoseFlagsHaveChanged()
{
    const Qt::WindowFlags flags = m_window->windowFlags();
    m_window->setWindowFlags(flags | Qt::WindowStaysOnTopHint);
    m_window->show();
    m_helper->removeFrom(m_window.get());
    QCOMPARE(m_window->windowFlags(), flags);
    QVERIFY(m_window->isHidden());
}

void tst_FramelessHelper::destructionRestoresEveryWidget()
{
    Window second;
    const Qt::WindowFlags flags = second.windowFlags();
    m_helper->activateOn(&second);
    second.setWindowFlags(flags | Qt::WindowStaysOnTopHint);
    m_helper->setRubberBandOnMove(true);
    QCOMPARE(rubberBands().size(), 2);
    m_helper.reset();
    QCOMPARE(rubberBands().size(), 0);
    QVERIFY(!m_window->hasMouseTracking());
    QVERIFY(!second.hasMouseTracking());
    QVERIFY(!second.testAttribute(Qt::WA_Hover));
    QCOMPARE(second.windowFlags(), flags);
    drag(kTitle, kMiddle);
    QCOMPARE(m_window->geometry(), kFrame);
}

void tst_FramelessHelper::ignoresNullAndStrangers()
{
    const LogCapture log;
    QWidget stranger;
    stranger.setMouseTracking(true);
    m_helper->activateOn(nullptr);
    m_helper->removeFrom(nullptr);
    m_helper->removeFrom(&stranger);
    QVERIFY(stranger.hasMouseTracking());
    QCOMPARE(log.texts(), QStringList());
}

void tst_FramelessHelper::watchesSeveralWidgets()
{
    Window second;
    second.move(500, 300);
    m_helper->activateOn(&second);
    press(kTitle);
    MouseEvents::press(&second, QPoint(500, 300) + kTitle);
    moveTo(kTitle + QPoint(1, 2));
    MouseEvents::move(&second, QPoint(500, 300) + kTitle + QPoint(10, 20));
    QCOMPARE(m_window->pos(), kFrame.topLeft() + QPoint(1, 2));
    QCOMPARE(second.pos(), QPoint(510, 320));
}

void tst_FramelessHelper::showsTheCursorOfEachEdge_data()
{
    QTest::addColumn<int>("switches");
    QTest::addColumn<int>("border");
    QTest::addColumn<int>("enlargedBy");
    for (int switches = 0; switches < 16; ++switches) {
        QTest::addRow("switches %d", switches) << switches << 5 << 0;
        QTest::addRow("switches %d, enlarged corner", switches) << switches << 5 << 10;
    }
    QTest::newRow("thin border") << 15 << 1 << 0;
    QTest::newRow("thick border") << 15 << 30 << 4;
    QTest::newRow("border wider than the window") << 15 << 400 << 0;
}

void tst_FramelessHelper::showsTheCursorOfEachEdge()
{
    QFETCH(int, switches);
    QFETCH(int, border);
    QFETCH(int, enlargedBy);
    const DragSwitches drag{bool(switches & 1), bool(switches & 2), bool(switches & 4), bool(switches & 8)};
    m_helper->setDragDirection(drag.left, drag.top, drag.right, drag.bottom);
    m_helper->setBorderWidth(border);
    m_helper->setRightBottomAreaExtraPix(enlargedBy);
    m_helper->setEnabelRightBottomAreaResize(enlargedBy > 0);

    QVector<int> xs;
    QVector<int> ys;
    for (int offset = -2; offset <= 32; ++offset) {
        xs << offset << kFrame.width() - offset;
        ys << offset << kFrame.height() - offset;
    }
    for (const int x : qAsConst(xs)) {
        for (const int y : qAsConst(ys)) {
            const QPoint point = at({x, y});
            const int expected = expectedCursor(point, kFrame, drag, border, enlargedBy);
            const QByteArray where = "at " + QByteArray::number(x) + ", " + QByteArray::number(y);
            MouseEvents::hover(m_window.get(), point);
            QVERIFY2(cursorOf(m_window.get()) == expected, where.constData());
            m_window->unsetCursor();
            MouseEvents::move(m_window.get(), point, Qt::NoButton);
            QVERIFY2(cursorOf(m_window.get()) == expected, where.constData());
        }
    }
}

void tst_FramelessHelper::findsEdgesAtNegativeCoordinates()
{
    m_window->move(-2000, -1500);
    const QRect frame = m_window->geometry();
    MouseEvents::hover(m_window.get(), frame.topLeft() + QPoint(5, 130));
    QCOMPARE(cursorOf(m_window.get()), int(Qt::SizeHorCursor));
    MouseEvents::hover(m_window.get(), frame.topLeft() + QPoint(6, 130));
    QCOMPARE(cursorOf(m_window.get()), kNoCursor);
    MouseEvents::hover(m_window.get(), frame.topLeft() + QPoint(frame.width(), frame.height()));
    QCOMPARE(cursorOf(m_window.get()), int(Qt::SizeFDiagCursor));
    MouseEvents::press(m_window.get(), frame.topLeft());
    MouseEvents::move(m_window.get(), frame.topLeft() - QPoint(10, 20));
    QCOMPARE(m_window->geometry(), frame.adjusted(-10, -20, 0, 0));
}

void tst_FramelessHelper::findsNoEdgeWithAMeasureBeyondInt()
{
    for (const unsigned int measure : {UINT_MAX, unsigned(INT_MAX) + 1U}) {
        m_helper->setBorderWidth(measure);
        m_helper->setTitleHeight(measure);
        QCOMPARE(m_helper->borderWidth(), measure);
        for (const QPoint &point : {QPoint(0, 0), QPoint(0, 130), kTitle, kMiddle, QPoint(300, 250)}) {
            MouseEvents::hover(m_window.get(), at(point));
            QCOMPARE(cursorOf(m_window.get()), kNoCursor);
            drag(point, point + QPoint(-5, -5));
            QCOMPARE(m_window->geometry(), kFrame);
        }
    }
    // The largest that a signed comparison can hold covers everything.
    m_helper->setBorderWidth(INT_MAX);
    m_helper->setRightBottomAreaExtraPix(INT_MAX);
    m_helper->setEnabelRightBottomAreaResize(true);
    MouseEvents::hover(m_window.get(), at(kMiddle));
    QCOMPARE(cursorOf(m_window.get()), int(Qt::SizeFDiagCursor));
}

void tst_FramelessHelper::unsetsOnlyItsOwnCursor()
{
    m_window->setCursor(Qt::PointingHandCursor);
    MouseEvents::hover(m_window.get(), at(kMiddle));
    QCOMPARE(cursorOf(m_window.get()), int(Qt::PointingHandCursor));
    MouseEvents::hover(m_window.get(), at({0, 130}));
    QCOMPARE(cursorOf(m_window.get()), int(Qt::SizeHorCursor));
    MouseEvents::hover(m_window.get(), at(kMiddle));
    QCOMPARE(cursorOf(m_window.get()), kNoCursor);
    m_window->setCursor(Qt::PointingHandCursor);
    MouseEvents::hover(m_window.get(), at(kMiddle));
    QCOMPARE(cursorOf(m_window.get()), int(Qt::PointingHandCursor));
}

void tst_FramelessHelper::unsetsTheCursorOnLeave()
{
    MouseEvents::hover(m_window.get(), at({0, 130}));
    press({0, 130});
    MouseEvents::leave(m_window.get());
    QCOMPARE(cursorOf(m_window.get()), int(Qt::SizeHorCursor));
    release({0, 130});
    MouseEvents::leave(m_window.get());
    QCOMPARE(cursorOf(m_window.get()), kNoCursor);

    // The helper still believes that it has a cursor set, and takes away the next one, whoever set it.
    m_window->setCursor(Qt::PointingHandCursor);
    MouseEvents::hover(m_window.get(), at(kMiddle));
    QCOMPARE(cursorOf(m_window.get()), kNoCursor);

    // A leave takes away any cursor, and needs no resizability for it.
    m_helper->setWidgetResizable(false);
    m_window->setCursor(Qt::PointingHandCursor);
    MouseEvents::leave(m_window.get());
    QCOMPARE(cursorOf(m_window.get()), kNoCursor);
}

void tst_FramelessHelper::showsNoCursorUnlessResizable()
{
    m_helper->setWidgetResizable(false);
    MouseEvents::hover(m_window.get(), at({0, 130}));
    QCOMPARE(cursorOf(m_window.get()), kNoCursor);
    MouseEvents::move(m_window.get(), at({0, 130}), Qt::NoButton);
    QCOMPARE(cursorOf(m_window.get()), kNoCursor);
    m_helper->setWidgetResizable(true);
    MouseEvents::hover(m_window.get(), at({0, 130}));
    QCOMPARE(cursorOf(m_window.get()), int(Qt::SizeHorCursor));
}

void tst_FramelessHelper::showsNoCursorWhenItFillsTheScreen_data()
{
    QTest::addColumn<int>("state");
    QTest::newRow("maximised") << int(Qt::WindowMaximized);
    QTest::newRow("full screen") << int(Qt::WindowFullScreen);
}

void tst_FramelessHelper::showsNoCursorWhenItFillsTheScreen()
{
    QFETCH(int, state);
    m_window->setWindowState(Qt::WindowState(state));
    MouseEvents::hover(m_window.get(), at({0, 130}));
    QCOMPARE(cursorOf(m_window.get()), kNoCursor);
    m_window->setCursor(Qt::PointingHandCursor);
    MouseEvents::hover(m_window.get(), at({0, 130}));
    QCOMPARE(cursorOf(m_window.get()), int(Qt::PointingHandCursor));

    // A cursor that was set before goes at the next move, and again as long as the state lasts.
    m_window->setWindowState(Qt::WindowNoState);
    MouseEvents::hover(m_window.get(), at({0, 130}));
    QCOMPARE(cursorOf(m_window.get()), int(Qt::SizeHorCursor));
    m_window->setWindowState(Qt::WindowState(state));
    MouseEvents::hover(m_window.get(), at({0, 130}));
    QCOMPARE(cursorOf(m_window.get()), kNoCursor);
    m_window->setCursor(Qt::PointingHandCursor);
    MouseEvents::hover(m_window.get(), at({0, 130}));
    QCOMPARE(cursorOf(m_window.get()), kNoCursor);
}

void tst_FramelessHelper::movesByTheTitleStrip_data()
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

void tst_FramelessHelper::movesByTheTitleStrip()
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

void tst_FramelessHelper::movesWhereverTheMeasuresSay()
{
    m_helper->setTitleHeight(20);
    drag({150, 20}, {160, 20});
    QCOMPARE(m_window->geometry(), kFrame);
    m_helper->setBorderWidth(25);
    drag({150, 19}, {150, 15});
    QCOMPARE(m_window->geometry(), kFrame.adjusted(0, 15, 0, 0));
}

void tst_FramelessHelper::leavesTheWidgetAloneUnlessMovable()
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

void tst_FramelessHelper::leavesTheWidgetAloneAfterTheRelease()
{
    drag(kTitle, kTitle + QPoint(2, 2));
    moveTo(kTitle + QPoint(9, 9));
    QCOMPARE(m_window->geometry(), kFrame.translated(2, 2));
}

void tst_FramelessHelper::reactsToTheLeftButtonOnly()
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

void tst_FramelessHelper::movesByAnEdgeUnlessResizable()
{
    m_helper->setWidgetResizable(false);
    drag({0, 0}, {3, 4});
    QCOMPARE(m_window->geometry(), kFrame.translated(3, 4));
    drag({3, 200}, {13, 210});
    QCOMPARE(m_window->geometry(), kFrame.translated(3, 4));
}

void tst_FramelessHelper::resizes_data()
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

void tst_FramelessHelper::resizes()
{
    QFETCH(QPoint, from);
    QFETCH(QRect, result);
    drag(from, {40, 60});
    QCOMPARE(m_window->geometry(), result);
}

void tst_FramelessHelper::resizesByTheEdgesOfThePress()
{
    press({299, 130});
    moveTo({200, 0});
    QCOMPARE(m_window->geometry(), QRect(kFrame.x(), kFrame.y(), 201, kFrame.height()));
    moveTo({500, 249});
    QCOMPARE(m_window->geometry(), QRect(kFrame.x(), kFrame.y(), 501, kFrame.height()));
}

void tst_FramelessHelper::resizesByDraggableEdgesOnly()
{
    m_helper->setDragDirection(false, true, true, false);
    drag({0, 130}, {-20, 130});
    QCOMPARE(m_window->geometry(), kFrame);
    drag({0, 249}, {-20, 270});
    QCOMPARE(m_window->geometry(), kFrame);
    drag({0, 0}, {-20, -30}); // a corner with one draggable edge is that edge
    QCOMPARE(m_window->geometry(), kFrame.adjusted(0, -30, 0, 0));
}

void tst_FramelessHelper::resizesByTheEnlargedCorner_data()
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

void tst_FramelessHelper::resizesByTheEnlargedCorner()
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

void tst_FramelessHelper::resizesWhenItFillsTheScreen()
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

void tst_FramelessHelper::keepsTheMinimumSize_data()
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

void tst_FramelessHelper::keepsTheMinimumSize()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(QRect, result);
    m_window->setMinimumSize(200, 150);
    drag(from, to);
    QCOMPARE(m_window->geometry(), result);
}

void tst_FramelessHelper::ignoresInsideOutRectangles()
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

void tst_FramelessHelper::rubberBandLivesWhileItIsAskedFor()
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

void tst_FramelessHelper::movesARubberBand()
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

void tst_FramelessHelper::resizesARubberBand()
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

void tst_FramelessHelper::choosesTheRubberBandAtThePress_data()
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

void tst_FramelessHelper::choosesTheRubberBandAtThePress()
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

void tst_FramelessHelper::keepsTheMinimumSizeOfARubberBand()
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

void tst_FramelessHelper::survivesTheLossOfARubberBand()
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

void tst_FramelessHelper::passesEveryEventOnAfterActing()
{
    m_window->seen.clear();
    press(kTitle);
    moveTo(kTitle + QPoint(6, 7));
    release(kTitle + QPoint(6, 7));
    MouseEvents::hover(m_window.get(), at(kMiddle));
    MouseEvents::leave(m_window.get());
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease,
                                    QEvent::HoverMove, QEvent::Leave})
        QVERIFY(m_window->seen.contains(type));
    QCOMPARE(m_window->posAtMouseMove, kFrame.topLeft() + QPoint(6, 7));
}

void tst_FramelessHelper::forgetsADestroyedWidget()
{
    m_helper->setRubberBandOnMove(true);
    press(kTitle);
    QWidget *gone = m_window.release();
    gone->deleteLater();
    QCoreApplication::sendPostedEvents(gone, QEvent::DeferredDelete);
    QVERIFY(rubberBands().isEmpty());
    m_helper->removeFrom(gone);
    m_helper->setRubberBandOnMove(false);
}

void tst_FramelessHelper::forgetsADestroyedWidgetThatLostItsConnections()
{
    m_helper->setRubberBandOnMove(true);
    QObject::disconnect(m_window.get(), &QObject::destroyed, nullptr, nullptr);
    m_window.reset();
    QVERIFY(rubberBands().isEmpty());
}

void tst_FramelessHelper::survivesItsDestroyedParent_data()
{
    QTest::addColumn<bool>("changeFlags");
    QTest::addColumn<bool>("disconnect");
    QTest::newRow("same flags") << false << false;
    QTest::newRow("other flags") << true << false;
    QTest::newRow("same flags, disconnected") << false << true;
    QTest::newRow("other flags, disconnected") << true << true;
}

void tst_FramelessHelper::survivesItsDestroyedParent()
{
    QFETCH(bool, changeFlags);
    QFETCH(bool, disconnect);
    auto window = std::make_unique<Window>();
    auto *helper = new FramelessHelper(window.get());
    helper->activateOn(window.get());
    helper->setRubberBandOnResize(true);
    if (changeFlags)
        window->setWindowFlags(window->windowFlags() | Qt::WindowStaysOnTopHint);
    if (disconnect)
        QObject::disconnect(window.get(), &QObject::destroyed, nullptr, nullptr);
    window->show();
    const LogCapture log;
    window.reset();
    QCOMPARE(log.texts(), QStringList());
    QVERIFY(rubberBands().isEmpty());
}

void tst_FramelessHelper::survivesRemovalInsideItsOwnActions_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<int>("victim");
    const char *const actions[] = {"move",         "resize",         "set cursor",
                                   "unset cursor", "banded release", "deactivation"};
    for (int action = 0; action < 6; ++action) {
        QTest::addRow("%s, removal", actions[action]) << action << 0;
        QTest::addRow("%s, helper", actions[action]) << action << 1;
    }
    // Inside its own move, resize or hide Qt itself does not let a widget be destroyed.
    QTest::newRow("set cursor, widget") << 2 << 2;
    QTest::newRow("unset cursor, widget") << 3 << 2;
}

void tst_FramelessHelper::survivesRemovalInsideItsOwnActions()
{
    QFETCH(int, action);
    QFETCH(int, victim);
    bool ran = false;
    const std::function<void()> strike = [this, victim, &ran] {
        ran = true;
        if (victim == 0)
            m_helper->removeFrom(m_window.get());
        else if (victim == 1)
            m_helper.reset();
        else
            m_window.reset();
    };
    m_helper->setRubberBandOnMove(action == 4);
    switch (action) {
    case 0:
        m_window->show();
        m_window->onMove = strike;
        drag(kTitle, kMiddle);
        break;
    case 1:
        m_window->show();
        m_window->onResize = strike;
        drag({299, 249}, {320, 260});
        break;
    case 2:
        m_window->onCursorChange = strike;
        MouseEvents::hover(m_window.get(), at({0, 0}));
        break;
    case 3:
        MouseEvents::hover(m_window.get(), at({0, 0}));
        m_window->onCursorChange = strike;
        MouseEvents::hover(m_window.get(), at(kMiddle));
        break;
    case 4:
        m_window->show();
        m_window->onMove = strike;
        drag(kTitle, kMiddle);
        break;
    default:
        m_window->setWindowFlags(m_window->windowFlags() | Qt::WindowStaysOnTopHint);
        m_window->show();
        m_window->onHide = strike;
        m_helper->removeFrom(m_window.get());
        break;
    }
    QVERIFY(ran);
}

void tst_FramelessHelper::survivesDestructionOfOneWidgetByAnother()
{
    std::vector<std::unique_ptr<Window>> windows(8);
    for (auto &window : windows) {
        window = std::make_unique<Window>();
        m_helper->activateOn(window.get());
        window->setWindowFlags(window->windowFlags() | Qt::WindowStaysOnTopHint);
        window->show();
        // The first that is hidden takes all others with it.
        window->onHide = [&windows, survivor = window.get()] {
            for (auto &other : windows) {
                if (other.get() != survivor)
                    other.reset();
            }
        };
    }
    m_helper.reset();
    int left = 0;
    for (const auto &window : windows)
        left += window ? 1 : 0;
    QCOMPARE(left, 1);
}

QTEST_MAIN(tst_FramelessHelper)

#include "tst_framelesshelper.moc"
