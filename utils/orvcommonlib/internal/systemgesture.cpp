#include "systemgesture.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

#include <utility>

SystemGesture::SystemGesture(QWidget *widget, std::function<void()> moved, std::function<void()> ended)
    : m_widget(widget)
    , m_moved(std::move(moved))
    , m_ended(std::move(ended))
{
}

void SystemGesture::begin()
{
    end();
    m_window = m_widget->window()->windowHandle();
    if (!m_window)
        return;
    m_hasHappened = false;
    m_widget->installEventFilter(this);
    m_window->installEventFilter(this);
}

void SystemGesture::end()
{
    m_moveIsDue = false;
    m_widget->removeEventFilter(this);
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = nullptr;
}

bool SystemGesture::eventFilter(QObject *receiver, QEvent *event)
{
    const QPointer<QObject> alive(receiver);
    const bool isFromOutside = isUnderWay() && receiver == m_widget && event->spontaneous();
    const bool isMove = isFromOutside && event->type() == QEvent::Move;
    m_hasHappened |= isMove || (isFromOutside && event->type() == QEvent::Resize);
    const QPointer<SystemGesture> guard(this);
    if (isOver(receiver, event)) {
        tellMove();
        if (guard && isUnderWay()) {
            end();
            const std::function<void()> ended = m_ended; // which outlives the gesture
            ended();
        }
    } else if (isMove && !std::exchange(m_moveIsDue, true)) {
        QMetaObject::invokeMethod(this, &SystemGesture::tellMove, Qt::QueuedConnection);
    }
    // Nothing is consumed; but what is gone cannot get its event any more.
    return alive.isNull();
}

// Not within the event: Qt goes on with a window that it has told of its move.
void SystemGesture::tellMove()
{
    if (!std::exchange(m_moveIsDue, false))
        return;
    const std::function<void()> moved = m_moved;
    moved();
}

bool SystemGesture::isOver(QObject *receiver, QEvent *event) const
{
    if (receiver != m_window)
        return false;
    const auto isWithoutButton = [event] {
        return !static_cast<const QMouseEvent *>(event)->buttons().testFlag(Qt::LeftButton);
    };
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return true;
    case QEvent::MouseMove:
        return isWithoutButton();
    case QEvent::MouseButtonRelease:
        return m_hasHappened && isWithoutButton();
    default:
        return false;
    }
}
