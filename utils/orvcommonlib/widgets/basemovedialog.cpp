#include "basemovedialog.h"

#include "framelesshelper.h"
#include "orvcommonlib.h"
#include "orvqtcompat.h"
#include "pressgesture.h"
#include "stylesheetpainting.h"
#include "systemgesture.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QScreen>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

/// A setting of the helper as a signed length; no widget is larger than the bounds.
int asLength(unsigned int setting)
{
    return qBound(-QWIDGETSIZE_MAX, static_cast<int>(setting), QWIDGETSIZE_MAX);
}

/// `pos` brought to where `length` pixels lie within [start, end); the start wins when they do not fit.
int keptWithin(int pos, int length, int start, qint64 end)
{
    return static_cast<int>(qMax<qint64>(qMin<qint64>(pos, end - length), start));
}

/// A window with its frame. Of a window that was never shown Qt gives a frame one pixel smaller than itself.
QRect frameOf(const QWidget *window)
{
    return window->frameGeometry().united(window->geometry());
}

/// The screen on which the middle of a window lies, or else the one that Qt has put the window on.
QScreen *screenOf(const QWidget *window)
{
    bool found = false;
    QScreen *screen = totalcommon::getScreen(frameOf(window).center(), &found);
    return found ? screen : window->screen();
}

/// Where `length` pixels lie in the middle of the pixels from `start` on.
int centred(int length, int start, int available)
{
    return start + (available - length) / 2;
}

/// Whether a dialog is still there after what it has told its clients. Where it is not, it keeps the event:
/// Qt would ask it for the parent that is to get it next.
bool survived(const QPointer<BaseMoveDialog> &dialog, QMouseEvent *event)
{
    if (!dialog)
        event->accept();
    return !dialog.isNull();
}

} // namespace

BaseMoveDialog::BaseMoveDialog(QWidget *parent, bool canMove, bool translucent, bool asDialog)
    : QWidget(parent)
    , m_canMove(canMove)
    , m_press(std::make_unique<PressGesture>(this, [this] { losePress(); }))
    , m_systemGesture(std::make_unique<SystemGesture>(
          this, [this] { followSystemMove(); }, [this] { endSystemGesture(); }))
{
    Qt::WindowFlags flags = windowFlags() | Qt::FramelessWindowHint;
    if (asDialog)
        flags |= Qt::Dialog;
    setWindowFlags(flags);
    if (translucent)
        setAttribute(Qt::WA_TranslucentBackground, true);

    m_framelessHelper = new FramelessHelper(this);
    m_framelessHelper->activateOn(this);
    m_framelessHelper->setWidgetResizable(false);
    m_framelessHelper->setWidgetMovable(canMove);
}

BaseMoveDialog::~BaseMoveDialog() = default;

void BaseMoveDialog::setCanMove(bool canMove)
{
    m_canMove = canMove;
    if (m_framelessHelper)
        m_framelessHelper->setWidgetMovable(canMove);
}

void BaseMoveDialog::setRectOfCanMove(QRect *rect)
{
    m_rectOfCanMove = rect ? std::make_unique<QRect>(*rect) : nullptr;
}

void BaseMoveDialog::setRectOfCanDrag(const QRect &rect)
{
    m_rectOfCanDrag = std::make_unique<QRect>(rect);
}

void BaseMoveDialog::setRectOfCanResize(bool rubberBand, int borderWidth, bool applyRubberBand)
{
    if (!m_framelessHelper)
        return;
    if (applyRubberBand)
        m_framelessHelper->setRubberBandOnResize(rubberBand);
    m_framelessHelper->setBorderWidth(static_cast<unsigned int>(borderWidth));
}

void BaseMoveDialog::setWidgetResizable(bool resizable)
{
    m_resizable = resizable;
    if (m_framelessHelper)
        m_framelessHelper->setWidgetResizable(resizable);
}

void BaseMoveDialog::setSystemMoveResize(bool enabled)
{
    if (m_framelessHelper)
        m_framelessHelper->setSystemMoveResize(enabled);
}

void BaseMoveDialog::setWidgetTitleHeight(int height)
{
    if (m_framelessHelper)
        m_framelessHelper->setTitleHeight(static_cast<unsigned int>(height));
}

void BaseMoveDialog::setEnableRightBottomResizeArea(bool enable)
{
    if (m_framelessHelper)
        m_framelessHelper->setEnabelRightBottomAreaResize(enable);
}

void BaseMoveDialog::moveOver(const QWidget *window)
{
    if (!testAttribute(Qt::WA_Resized)) {
        adjustSize();
        setAttribute(Qt::WA_Resized, false); // as after Qt's own adjusting: nobody has sized it yet
    }
    const QWidget *target = (window ? window : this)->window();
    const QScreen *screen = screenOf(target);
    if (!screen)
        return;
    const QRect available = screen->availableGeometry();
    const QRect ground = window ? frameOf(target) : available;
    const QSize size = frameOf(this).size();
    const int x = centred(size.width(), ground.x(), ground.width());
    const int y = centred(size.height(), ground.y(), ground.height());
    const QPoint pos(keptWithin(x, size.width(), available.x(), qint64(available.right()) + 1),
                     keptWithin(y, size.height(), available.y(), qint64(available.bottom()) + 1));
    move(isWindow() ? pos : parentWidget()->mapFromGlobal(pos));
}

void BaseMoveDialog::mousePressEvent(QMouseEvent *event)
{
    const QPointer<BaseMoveDialog> alive(this);
    m_press->begin();
    if (!survived(alive, event))
        return;
    m_isMoving = true;
    m_movedSincePress = false;
    if (m_canMove && event->button() == Qt::LeftButton) {
        m_dragOffset = orvqt::globalPosition(event) - frameGeometry().topLeft();
        if (m_rectOfCanDrag)
            m_dragAllowedNow = m_rectOfCanDrag->contains(event->pos());
    }
    if (m_resizable && event->button() == Qt::LeftButton && m_framelessHelper) {
        m_pressPosition = event->pos();
        if (isOnResizeBorder(m_pressPosition)) {
            m_resizing = true;
            m_dragAllowedNow = false;
        }
    }
    if (event->button() == Qt::LeftButton && m_framelessHelper && m_framelessHelper->takeHandedOver(this)) {
        m_pressSize = size();
        m_systemGesture->begin();
    }
    QWidget::mousePressEvent(event);
}

void BaseMoveDialog::mouseMoveEvent(QMouseEvent *event)
{
    const bool dragging = m_canMove && m_isMoving && event->buttons().testFlag(Qt::LeftButton);
    if (dragging && m_dragAllowedNow && !m_systemGesture->isUnderWay()) {
        const QPointer<BaseMoveDialog> alive(this);
        reportMove(orvqt::globalPosition(event) - m_dragOffset);
        if (!survived(alive, event))
            return;
    }
    QWidget::mouseMoveEvent(event);
}

void BaseMoveDialog::reportMove(const QPoint &pos)
{
    const QPointer<BaseMoveDialog> alive(this);
    m_reportingMove = true;
    Q_EMIT sig_windowMoved(keptInRectOfCanMove(pos));
    // A slot that has taken the press its end has also taken the report back.
    if (alive && std::exchange(m_reportingMove, false))
        m_movedSincePress = true;
}

void BaseMoveDialog::followSystemMove()
{
    if (m_canMove && m_isMoving && m_dragAllowedNow)
        reportMove(frameGeometry().topLeft());
}

void BaseMoveDialog::mouseReleaseEvent(QMouseEvent *event)
{
    const QPointer<BaseMoveDialog> alive(this);
    if (!m_systemGesture->isUnderWay())
        endPress(event->button() == Qt::LeftButton && event->pos() != m_pressPosition);
    if (survived(alive, event))
        QWidget::mouseReleaseEvent(event);
}

void BaseMoveDialog::endSystemGesture()
{
    endPress(size() != m_pressSize);
}

void BaseMoveDialog::endPress(bool isElsewhere)
{
    const QPointer<BaseMoveDialog> alive(this);
    m_press->end();
    m_systemGesture->end();
    if (m_canMove) {
        m_isMoving = false;
        m_dragAllowedNow = true;
    }
    if (std::exchange(m_movedSincePress, false))
        Q_EMIT sig_windowMovefinished();
    if (alive && std::exchange(m_resizing, false) && isElsewhere)
        Q_EMIT sig_windowResizefinished();
}

void BaseMoveDialog::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QPointer<BaseMoveDialog> alive(this);
    QWidget::mouseDoubleClickEvent(event);
    if (alive && m_rectOfCanDrag && m_rectOfCanDrag->contains(event->pos()))
        Q_EMIT sig_doubleclickCanDragRect();
    survived(alive, event);
}

/// Nothing is told but that a move has stopped that clients know of.
void BaseMoveDialog::losePress()
{
    if (m_canMove)
        m_isMoving = false;
    m_dragAllowedNow = true;
    m_resizing = false;
    m_systemGesture->end();
    const bool moveReported = m_movedSincePress || m_reportingMove;
    m_movedSincePress = m_reportingMove = false;
    if (moveReported)
        m_press->announce([this] { Q_EMIT sig_windowMovefinished(); });
}

void BaseMoveDialog::paintEvent(QPaintEvent *event)
{
    paintStyleSheet(this);
    QWidget::paintEvent(event);
}

void BaseMoveDialog::showEvent(QShowEvent *event)
{
    // A frameless window would otherwise not be repainted when it is shown again.
    setAttribute(Qt::WA_Mapped, true);
    QWidget::showEvent(event);
}

bool BaseMoveDialog::isOnResizeBorder(const QPoint &pos) const
{
    const int border = asLength(m_framelessHelper->borderWidth());
    const int corner = m_framelessHelper->enableRightBottomAreaResizeState()
                           ? border + asLength(m_framelessHelper->rightBottomAreaExtraPix())
                           : border;
    const QRect borders[] = {
        {0, 0, width(), border},
        {0, 0, border, height()},
        {width() - border, 0, border, height()},
        {0, height() - border, width(), border},
        {width() - corner, height() - corner, corner, corner},
    };
    // Without border there is nothing to hit; a QRect of negative size would find its own first pixel.
    return std::any_of(std::begin(borders), std::end(borders),
                       [&pos](const QRect &rect) { return rect.isValid() && rect.contains(pos); });
}

QPoint BaseMoveDialog::keptInRectOfCanMove(const QPoint &pos) const
{
    if (!m_rectOfCanMove)
        return pos;
    const QRect &rect = *m_rectOfCanMove;
    return {keptWithin(pos.x(), width(), rect.x(), qint64(rect.right()) + 1),
            keptWithin(pos.y(), height(), rect.y(), qint64(rect.bottom()) + 1)};
}
