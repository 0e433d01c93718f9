#include "focusmark.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionFocusRect>

#include <cmath>

namespace {

bool isKeyboard(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

// With these the focus only follows a window or a popup that comes or goes; where it came from stays as it is.
bool isInterruption(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

} // namespace

FocusMark::FocusMark(QWidget *control)
    : QFocusFrame(control)
{
    control->installEventFilter(this);
}

void FocusMark::follow(QWidget *control, const QEvent *event)
{
    if (event->type() != QEvent::FocusIn && event->type() != QEvent::FocusOut)
        return;
    const auto *change = static_cast<const QFocusEvent *>(event);
    auto *mark = control->findChild<FocusMark *>(QString(), Qt::FindDirectChildrenOnly);
    if (!mark && change->gotFocus() && isKeyboard(change->reason()) && control->focusPolicy() != Qt::NoFocus)
        mark = new FocusMark(control);
    if (mark)
        mark->apply(change);
}

void FocusMark::apply(const QFocusEvent *event)
{
    if (!isInterruption(event->reason()))
        m_fromKeyboard = event->gotFocus() && isKeyboard(event->reason());
    const bool isShown = event->gotFocus() && m_fromKeyboard && parentWidget()->focusPolicy() != Qt::NoFocus;
    if (isShown) {
        setGeometry(parentWidget()->rect());
        raise();
    }
    setVisible(isShown);
}

bool FocusMark::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && watched == parent())
        resize(parentWidget()->size());
    return QFocusFrame::eventFilter(watched, event);
}

// In units of whole pixels, so that lines of one unit are sharp at every ratio.
void FocusMark::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QTransform toPixels = painter.deviceTransform();
    const double unit = qMax(1.0, std::floor(devicePixelRatioF()));
    const QRectF pixels = toPixels.mapRect(QRectF(rect()));
    const QPointF corner(std::ceil(pixels.left()), std::ceil(pixels.top()));
    const QSizeF room(std::floor(pixels.right()) - corner.x(), std::floor(pixels.bottom()) - corner.y());
    painter.setWorldTransform(QTransform::fromTranslate(corner.x(), corner.y()).scale(unit, unit) *
                              toPixels.inverted());

    const QWidget *control = parentWidget();
    QStyleOptionFocusRect option;
    option.initFrom(control);
    option.state |= QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    option.backgroundColor = control->palette().color(control->backgroundRole());
    option.rect = QRect(0, 0, int(room.width() / unit), int(room.height() / unit));
    control->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, control);
}
