#include "mouseevents.h"

#include "hoverevent.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QWidget>

namespace MouseEvents {

namespace {

bool send(QWidget *widget, QEvent::Type type, QPoint globalPos, Qt::MouseButton button,
          Qt::MouseButtons buttons)
{
    const QPoint localPos = widget->mapFromGlobal(globalPos);
    QMouseEvent event(type, localPos, localPos, globalPos, button, buttons, Qt::NoModifier);
    return QCoreApplication::sendEvent(widget, &event);
}

} // namespace

bool press(QWidget *widget, QPoint globalPos, Qt::MouseButton button)
{
    return send(widget, QEvent::MouseButtonPress, globalPos, button, button);
}

bool release(QWidget *widget, QPoint globalPos, Qt::MouseButton button)
{
    return send(widget, QEvent::MouseButtonRelease, globalPos, button, Qt::NoButton);
}

bool doubleClick(QWidget *widget, QPoint globalPos, Qt::MouseButton button)
{
    return send(widget, QEvent::MouseButtonDblClick, globalPos, button, button);
}

bool move(QWidget *widget, QPoint globalPos, Qt::MouseButtons buttons)
{
    return send(widget, QEvent::MouseMove, globalPos, Qt::NoButton, buttons);
}

bool hover(QWidget *widget, QPoint globalPos)
{
    const QPoint localPos = widget->mapFromGlobal(globalPos);
    HoverEvent event(QEvent::HoverMove, localPos, localPos);
    return QCoreApplication::sendEvent(widget, &event);
}

bool enter(QWidget *widget)
{
    const QPointF center = QRectF(widget->rect()).center();
    QEnterEvent event(center, center, widget->mapToGlobal(center.toPoint()));
    return QCoreApplication::sendEvent(widget, &event);
}

bool leave(QWidget *widget)
{
    QEvent event(QEvent::Leave);
    return QCoreApplication::sendEvent(widget, &event);
}

} // namespace MouseEvents
