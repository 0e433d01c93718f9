#include "framelesshelper.h"

#include "orvqtcompat.h"
#include "pressgesture.h"

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtGui/QHoverEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QRubberBand>
#include <QtWidgets/QWidget>

#include <optional>
#include <utility>

namespace {

constexpr Qt::Edges kTopLeft = Qt::TopEdge | Qt::LeftEdge;
constexpr Qt::Edges kBottomLeft = Qt::BottomEdge | Qt::LeftEdge;
constexpr Qt::Edges kTopRight = Qt::TopEdge | Qt::RightEdge;
constexpr Qt::Edges kBottomRight = Qt::BottomEdge | Qt::RightEdge;

class WatchedWidgetState;

/// Where a point lies relative to a frame rectangle.
class EdgeHitTest
{
public:
    void hitTest(const QPoint &globalPos, const QRect &frameRect, const FramelessHelperState &helper);

    bool onAnyEdge() const { return m_sides || m_onBottomRight; }
    /// The cursor that announces a resize from here, if there is one.
    std::optional<Qt::CursorShape> cursorShape() const;
    /// The edges that a resize from here pulls: of a frame so small that the point lies on more than one corner, those
    /// of one of them.
    Qt::Edges pulledEdges() const;
    /// The rectangle after these edges have been pulled to `globalPos`; it may be invalid.
    QRect pulled(const QRect &start, const QPoint &globalPos) const;

    // The settings that all helpers of the process share.
    static inline unsigned int borderWidth = 5;
    static inline unsigned int titleHeight = 50;
    static inline unsigned int rightBottomExtra = 10;
    static inline bool rightBottomEnlarged = false;

private:
    bool isOn(Qt::Edges corner) const { return (m_sides & corner) == corner; }

    Qt::Edges m_sides;
    bool m_onBottomRight = false; // a corner that may be larger than where its sides meet
};

} // namespace

/// The private data of a helper.
struct FramelessHelperState
{
    QHash<QWidget *, WatchedWidgetState *> watchedWidgets; // owns the values
    bool movable = true;
    bool resizable = true;
    bool rubberBandResize = false;
    bool rubberBandMove = false;
    bool dragLeft = true;
    bool dragTop = true;
    bool dragRight = true;
    bool dragBottom = true;
    bool systemMoveResize = false;
};

namespace {

/// Settings are unsigned, but screens reach into negative coordinates: edges are compared signed.
int asSigned(unsigned int setting)
{
    return static_cast<int>(setting);
}

bool isWithin(qint64 low, qint64 value, qint64 high)
{
    return low <= value && value <= high;
}

void EdgeHitTest::hitTest(const QPoint &globalPos, const QRect &frameRect, const FramelessHelperState &helper)
{
    const qint64 border = asSigned(borderWidth);
    const qint64 left = frameRect.x();
    const qint64 top = frameRect.y();
    // Both limits lie one pixel past the last pixel of the frame: a pointer that just left it still counts.
    const qint64 right = left + frameRect.width();
    const qint64 bottom = top + frameRect.height();

    m_sides.setFlag(Qt::LeftEdge, helper.dragLeft && isWithin(left, globalPos.x(), left + border));
    m_sides.setFlag(Qt::RightEdge, helper.dragRight && isWithin(right - border, globalPos.x(), right));
    m_sides.setFlag(Qt::TopEdge, helper.dragTop && isWithin(top, globalPos.y(), top + border));
    m_sides.setFlag(Qt::BottomEdge, helper.dragBottom && isWithin(bottom - border, globalPos.y(), bottom));

    const qint64 reach = border + asSigned(rightBottomExtra);
    m_onBottomRight = rightBottomEnlarged ? isWithin(right - reach, globalPos.x(), right) &&
                                                isWithin(bottom - reach, globalPos.y(), bottom)
                                          : isOn(kBottomRight);
}

std::optional<Qt::CursorShape> EdgeHitTest::cursorShape() const
{
    if (isOn(kTopLeft) || m_onBottomRight)
        return Qt::SizeFDiagCursor;
    if (isOn(kBottomLeft) || isOn(kTopRight))
        return Qt::SizeBDiagCursor;
    if (m_sides & (Qt::LeftEdge | Qt::RightEdge))
        return Qt::SizeHorCursor;
    if (m_sides)
        return Qt::SizeVerCursor;
    return std::nullopt;
}

Qt::Edges EdgeHitTest::pulledEdges() const
{
    for (const Qt::Edges corner : {kTopLeft, kBottomLeft, kTopRight}) {
        if (isOn(corner))
            return corner;
    }
    if (m_onBottomRight)
        return kBottomRight;
    for (const Qt::Edge side : {Qt::LeftEdge, Qt::RightEdge, Qt::TopEdge}) {
        if (m_sides.testFlag(side))
            return side;
    }
    return Qt::BottomEdge;
}

QRect EdgeHitTest::pulled(const QRect &start, const QPoint &globalPos) const
{
    const Qt::Edges edges = pulledEdges();
    QRect pulled = start;
    if (edges.testFlag(Qt::LeftEdge))
        pulled.setLeft(globalPos.x());
    if (edges.testFlag(Qt::RightEdge))
        pulled.setRight(globalPos.x());
    if (edges.testFlag(Qt::TopEdge))
        pulled.setTop(globalPos.y());
    if (edges.testFlag(Qt::BottomEdge))
        pulled.setBottom(globalPos.y());
    return pulled;
}

/// Puts back the edge that was pulled so far that the rectangle became smaller than the minimum size.
void keepMinimumSize(QRect *pulled, const QRect &start, const QSize &minimum)
{
    if (pulled->width() < minimum.width()) {
        if (pulled->left() == start.left())
            pulled->setRight(start.right());
        else
            pulled->setLeft(start.left());
    }
    if (pulled->height() < minimum.height()) {
        if (pulled->top() == start.top())
            pulled->setBottom(start.bottom());
        else
            pulled->setTop(start.top());
    }
}

/// What a helper knows about one widget.
///
/// Moving, resizing and cursor changes call back into the client, which may deactivate the helper or destroy
/// the widget there. So each handler does them last and touches no member afterwards.
class WatchedWidgetState
{
public:
    WatchedWidgetState(const FramelessHelperState *helperState, QWidget *widget);
    ~WatchedWidgetState();
    WatchedWidgetState(const WatchedWidgetState &) = delete;
    WatchedWidgetState &operator=(const WatchedWidgetState &) = delete;

    void handleEvent(QEvent *event);
    void updateRubberBand();
    /// Whether the last left press went to the window manager; true once for each.
    bool takeHandedOver() { return std::exchange(m_handedOver, false); }
    /// The widget is being destroyed: it will not be touched any more.
    void forgetWidget() { m_widget = nullptr; }

    QMetaObject::Connection destroyedConnection;

private:
    void handlePress(const QMouseEvent *event);
    void handleRelease(const QMouseEvent *event);
    void handleMouseMove(const QMouseEvent *event);
    void handleHoverMove(const QHoverEvent *event);
    void handleLeave();
    bool isResize() const { return m_helperState->resizable && m_pressEdges.onAnyEdge(); }
    bool isMove() const { return !isResize() && m_helperState->movable && m_titlePressed; }
    bool handOver();

    void updateCursor(const QPoint &globalPos);
    void moveTo(const QPoint &globalPos);
    void resizeTo(const QPoint &globalPos);
    void hideRubberBand();

    const FramelessHelperState *m_helperState;
    QPointer<QRubberBand> m_rubberBand; // owned; guarded, as any code may delete a top-level widget
    QWidget *m_widget;
    QPoint m_dragOffset;
    EdgeHitTest m_pressEdges;
    EdgeHitTest m_hoverEdges;
    PressGesture m_press; // of the left button
    bool m_cursorChanged = false;
    bool m_titlePressed = false;
    bool m_handedOver = false;
    Qt::WindowFlags m_savedWindowFlags;
};

WatchedWidgetState::WatchedWidgetState(const FramelessHelperState *helperState, QWidget *widget)
    : m_helperState(helperState)
    , m_widget(widget)
    , m_press(widget, [this] { hideRubberBand(); })
    , m_savedWindowFlags(widget->windowFlags())
{
    m_widget->setMouseTracking(true);
    m_widget->setAttribute(Qt::WA_Hover, true);
    updateRubberBand();
}

WatchedWidgetState::~WatchedWidgetState()
{
    if (m_widget) {
        const QPointer<QWidget> alive(m_widget);
        alive->setMouseTracking(false);
        if (alive)
            alive->setWindowFlags(m_savedWindowFlags);
        if (alive)
            alive->setAttribute(Qt::WA_Hover, false);
    }
    delete m_rubberBand;
}

void WatchedWidgetState::updateRubberBand()
{
    if (!m_helperState->rubberBandMove && !m_helperState->rubberBandResize)
        delete m_rubberBand;
    else if (!m_rubberBand)
        m_rubberBand = new QRubberBand(QRubberBand::Rectangle, nullptr);
}

void WatchedWidgetState::handleEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        handlePress(static_cast<QMouseEvent *>(event));
        break;
    case QEvent::MouseButtonRelease:
        handleRelease(static_cast<QMouseEvent *>(event));
        break;
    case QEvent::MouseMove:
        handleMouseMove(static_cast<QMouseEvent *>(event));
        break;
    case QEvent::HoverMove:
        handleHoverMove(static_cast<QHoverEvent *>(event));
        break;
    case QEvent::Leave:
        handleLeave();
        break;
    default:
        break;
    }
}

void WatchedWidgetState::handlePress(const QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_titlePressed = event->pos().y() < qint64(EdgeHitTest::titleHeight);
    const QRect frame = m_widget->frameGeometry();
    m_pressEdges.hitTest(orvqt::globalPosition(event), frame, *m_helperState);
    m_dragOffset = orvqt::globalPosition(event) - frame.topLeft();
    m_handedOver = false;
    if (m_helperState->systemMoveResize && handOver())
        return;

    m_press.begin();
    const bool banded =
        m_pressEdges.onAnyEdge() ? m_helperState->rubberBandResize : m_helperState->rubberBandMove;
    if (banded && m_rubberBand) {
        m_rubberBand->setGeometry(frame);
        m_rubberBand->show();
    }
}

/// A platform that takes the gesture may run it within the call, and events of the client with it: the press is over
/// before, and no member is touched afterwards. One that refuses does so at once.
bool WatchedWidgetState::handOver()
{
    QWindow *window = m_widget->isWindow() ? m_widget->windowHandle() : nullptr;
    if (!window || (!isResize() && !isMove()))
        return false;
    const QPointer<QRubberBand> band(m_rubberBand);
    m_press.end();
    m_handedOver = true;
    if (isResize() ? window->startSystemResize(m_pressEdges.pulledEdges()) : window->startSystemMove()) {
        if (band)
            band->hide();
        return true;
    }
    m_handedOver = false;
    return false;
}

void WatchedWidgetState::handleRelease(const QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_press.end() || !m_rubberBand || !m_rubberBand->isVisible())
        return;
    const QPointer<QWidget> widget(m_widget);
    const QRect geometry = m_rubberBand->geometry();
    hideRubberBand();
    if (widget)
        widget->setGeometry(geometry);
}

void WatchedWidgetState::handleMouseMove(const QMouseEvent *event)
{
    if (m_press.isUnderWay()) {
        if (isResize())
            resizeTo(orvqt::globalPosition(event));
        else if (isMove())
            moveTo(orvqt::globalPosition(event));
    } else if (m_helperState->resizable) {
        updateCursor(orvqt::globalPosition(event));
    }
}

void WatchedWidgetState::handleHoverMove(const QHoverEvent *event)
{
    if (m_helperState->resizable)
        updateCursor(m_widget->mapToGlobal(orvqt::position(event)));
}

void WatchedWidgetState::handleLeave()
{
    // The changed-cursor flag stays: a later update unsets the cursor once more, which harms nothing.
    if (!m_press.isUnderWay())
        m_widget->unsetCursor();
}

void WatchedWidgetState::updateCursor(const QPoint &globalPos)
{
    if (m_widget->isFullScreen() || m_widget->isMaximized()) {
        if (m_cursorChanged)
            m_widget->unsetCursor();
        return;
    }
    m_hoverEdges.hitTest(globalPos, m_widget->frameGeometry(), *m_helperState);
    if (const std::optional<Qt::CursorShape> shape = m_hoverEdges.cursorShape()) {
        m_cursorChanged = true;
        m_widget->setCursor(*shape);
    } else if (m_cursorChanged) {
        m_cursorChanged = false;
        m_widget->unsetCursor();
    }
}

void WatchedWidgetState::moveTo(const QPoint &globalPos)
{
    QWidget *moved = m_widget;
    if (m_helperState->rubberBandMove && m_rubberBand)
        moved = m_rubberBand;
    moved->move(globalPos - m_dragOffset);
}

void WatchedWidgetState::resizeTo(const QPoint &globalPos)
{
    QWidget *resized = m_widget;
    if (m_helperState->rubberBandResize && m_rubberBand)
        resized = m_rubberBand;

    const QRect start = resized->frameGeometry();
    QRect pulled = m_pressEdges.pulled(start, globalPos);
    if (!pulled.isValid())
        return;
    keepMinimumSize(&pulled, start, {m_widget->minimumWidth(), m_widget->minimumHeight()});
    resized->setGeometry(pulled);
}

void WatchedWidgetState::hideRubberBand()
{
    if (m_rubberBand)
        m_rubberBand->hide();
}

} // namespace

FramelessHelper::FramelessHelper(QObject *parent)
    : QObject(parent)
    , m_state(std::make_unique<FramelessHelperState>())
{
}

FramelessHelper::~FramelessHelper()
{
    // Restoring one widget may destroy another, so the hash is asked anew each time.
    while (!m_state->watchedWidgets.isEmpty())
        delete m_state->watchedWidgets.take(m_state->watchedWidgets.constBegin().key());
}

void FramelessHelper::activateOn(QWidget *w)
{
    if (!w || m_state->watchedWidgets.contains(w))
        return;
    auto *state = new WatchedWidgetState(m_state.get(), w);
    // Before a widget destroys its children it reports its own end, in time for a helper that is its child.
    state->destroyedConnection = connect(w, &QObject::destroyed, this, [this, w] { forget(w); });
    m_state->watchedWidgets.insert(w, state);
    w->installEventFilter(this);
}

void FramelessHelper::removeFrom(QWidget *w)
{
    WatchedWidgetState *state = m_state->watchedWidgets.take(w);
    if (!state)
        return;
    disconnect(state->destroyedConnection);
    w->removeEventFilter(this);
    delete state;
}

/// A widget that is being destroyed cannot be restored any more: only what is known about it goes.
void FramelessHelper::forget(QWidget *destroyed)
{
    if (WatchedWidgetState *state = m_state->watchedWidgets.take(destroyed)) {
        state->forgetWidget();
        delete state;
    }
}

void FramelessHelper::setWidgetMovable(bool movable)
{
    m_state->movable = movable;
}

bool FramelessHelper::widgetMovable() const
{
    return m_state->movable;
}

void FramelessHelper::setWidgetResizable(bool resizable)
{
    m_state->resizable = resizable;
}

bool FramelessHelper::widgetResizable() const
{
    return m_state->resizable;
}

void FramelessHelper::setRubberBandOnMove(bool rubberBand)
{
    m_state->rubberBandMove = rubberBand;
    updateRubberBands();
}

bool FramelessHelper::rubberBandOnMove() const
{
    return m_state->rubberBandMove;
}

void FramelessHelper::setRubberBandOnResize(bool rubberBand)
{
    m_state->rubberBandResize = rubberBand;
    updateRubberBands();
}

bool FramelessHelper::rubberBandOnResisze() const
{
    return m_state->rubberBandResize;
}

void FramelessHelper::updateRubberBands()
{
    for (WatchedWidgetState *state : qAsConst(m_state->watchedWidgets))
        state->updateRubberBand();
}

void FramelessHelper::setSystemMoveResize(bool enabled)
{
    m_state->systemMoveResize = enabled;
}

bool FramelessHelper::systemMoveResize() const
{
    return m_state->systemMoveResize;
}

bool FramelessHelper::takeHandedOver(QWidget *w)
{
    WatchedWidgetState *state = m_state->watchedWidgets.value(w);
    return state && state->takeHandedOver();
}

void FramelessHelper::setBorderWidth(unsigned int width)
{
    if (width > 0)
        EdgeHitTest::borderWidth = width;
}

unsigned int FramelessHelper::borderWidth() const
{
    return EdgeHitTest::borderWidth;
}

void FramelessHelper::setTitleHeight(unsigned int height)
{
    if (height > 0)
        EdgeHitTest::titleHeight = height;
}

unsigned int FramelessHelper::titleHeight() const
{
    return EdgeHitTest::titleHeight;
}

void FramelessHelper::setRightBottomAreaExtraPix(unsigned int extra)
{
    if (extra > 0)
        EdgeHitTest::rightBottomExtra = extra;
}

unsigned int FramelessHelper::rightBottomAreaExtraPix() const
{
    return EdgeHitTest::rightBottomExtra;
}

void FramelessHelper::setEnabelRightBottomAreaResize(bool enable)
{
    EdgeHitTest::rightBottomEnlarged = enable;
}

bool FramelessHelper::enableRightBottomAreaResizeState() const
{
    return EdgeHitTest::rightBottomEnlarged;
}

void FramelessHelper::setDragDirection(bool left, bool top, bool right, bool bottom)
{
    m_state->dragLeft = left;
    m_state->dragTop = top;
    m_state->dragRight = right;
    m_state->dragBottom = bottom;
}

bool FramelessHelper::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::Leave:
    case QEvent::HoverMove:
        if (WatchedWidgetState *state = m_state->watchedWidgets.value(qobject_cast<QWidget *>(watched))) {
            const QPointer<QObject> alive(watched);
            state->handleEvent(event);
            // The widget receives every event, unless the client destroyed it meanwhile: then nobody does.
            if (!alive)
                event->accept();
            return !alive;
        }
        break;
    case QEvent::Destroy: // also when the client has disconnected everything from the widget's signals
        forget(qobject_cast<QWidget *>(watched));
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
