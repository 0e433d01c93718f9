#include "framelesshelpertest.h"

#include "logcapture.h"
#include "testmain.h"

#include <climits>
#include <vector>

namespace {

constexpr int kNoCursor = Qt::ArrowCursor; // what a window shows that has no cursor of its own

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

class tst_FramelessHelper : public FramelessHelperTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { setUp(); }
    void cleanup() { tearDown(); }

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
    void comparesMeasuresBeyondInt();
    void unsetsOnlyItsOwnCursor();
    void unsetsTheCursorOnLeave();
    void showsNoCursorUnlessResizable();
    void showsNoCursorWhenItFillsTheScreen_data();
    void showsNoCursorWhenItFillsTheScreen();

    void passesEveryEventOnAfterActing();
    void forgetsADestroyedWidget();
    void forgetsADestroyedWidgetThatLostItsConnections();
    void survivesItsDestroyedParent_data();
    void survivesItsDestroyedParent();
    void survivesRemovalInsideItsOwnActions_data();
    void survivesRemovalInsideItsOwnActions();
    void keepsAnEventThatTheWidgetDoesNotSurvive();
    void survivesDestructionOfOneWidgetByAnother();
};

// The measures that all helpers share, before anything has set them.
void tst_FramelessHelper::initTestCase()
{
    const FramelessHelper first;
    QCOMPARE(first.borderWidth(), 5U);
    QCOMPARE(first.titleHeight(), 50U);
    QCOMPARE(first.rightBottomAreaExtraPix(), 10U);
    QVERIFY(!first.enableRightBottomAreaResizeState());
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

void tst_FramelessHelper::comparesMeasuresBeyondInt()
{
    for (const unsigned int measure : {UINT_MAX, unsigned(INT_MAX) + 1U}) {
        m_helper->setBorderWidth(measure);
        m_helper->setTitleHeight(measure);
        QCOMPARE(m_helper->borderWidth(), measure);
        QCOMPARE(m_helper->titleHeight(), measure);
        // Edges are compared signed, so that there is none; the title strip as the number that it is, so that
        // it is the whole widget.
        for (const QPoint &point : {QPoint(0, 0), QPoint(0, 130), kTitle, kMiddle, QPoint(299, 249)}) {
            MouseEvents::hover(m_window.get(), at(point));
            QCOMPARE(cursorOf(m_window.get()), kNoCursor);
            drag(point, point + QPoint(-5, -5));
            QCOMPARE(m_window->geometry(), kFrame.translated(-5, -5));
            m_window->setGeometry(kFrame);
        }
    }
    // The enlarged corner goes by the sum of both measures.
    m_helper->setEnabelRightBottomAreaResize(true);
    m_helper->setBorderWidth(unsigned(-4));
    m_helper->setRightBottomAreaExtraPix(10);
    MouseEvents::hover(m_window.get(), at({294, 244}));
    QCOMPARE(cursorOf(m_window.get()), int(Qt::SizeFDiagCursor));
    MouseEvents::hover(m_window.get(), at({293, 244}));
    QCOMPARE(cursorOf(m_window.get()), kNoCursor);
    m_helper->setEnabelRightBottomAreaResize(false);
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
    QRect result = kFrame;
    m_helper->setRubberBandOnMove(action == 4);
    if (action == 4)
        rubberBand();
    switch (action) {
    case 0:
    case 4:
        m_window->show();
        m_window->onMove = strike;
        drag(kTitle, kMiddle);
        result.translate(kMiddle - kTitle);
        break;
    case 1:
        m_window->show();
        m_window->onResize = strike;
        drag({299, 249}, {320, 260});
        result.setBottomRight(at({320, 260}));
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
    default:
        m_window->setWindowFlags(m_window->windowFlags() | Qt::WindowStaysOnTopHint);
        m_window->show();
        m_window->onHide = strike;
        m_helper->removeFrom(m_window.get());
        break;
    }
    QVERIFY(ran);
    QVERIFY(rubberBands().isEmpty());
    if (!m_window)
        return;

    // The action itself was done, and the widget is nobody's any more.
    QCOMPARE(m_window->geometry(), result);
    QVERIFY(!m_window->hasMouseTracking());
    QVERIFY(!m_window->testAttribute(Qt::WA_Hover));
    MouseEvents::press(m_window.get(), result.topLeft() + kTitle);
    MouseEvents::move(m_window.get(), result.topLeft() + kMiddle);
    QCOMPARE(m_window->geometry(), result);
}

// Qt offers an event that is not accepted to the parent, which it asks the receiver for.
void tst_FramelessHelper::keepsAnEventThatTheWidgetDoesNotSurvive()
{
    m_window->onCursorChange = [this] {
        m_window.reset();
    };
    QMouseEvent event(QEvent::MouseMove, QPointF(0, 0), at({0, 0}), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    event.ignore();
    QVERIFY(QCoreApplication::sendEvent(m_window.get(), &event));
    QVERIFY(!m_window);
    QVERIFY(event.isAccepted());
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

ORV_TEST_MAIN(tst_FramelessHelper)

#include "tst_framelesshelper.moc"
