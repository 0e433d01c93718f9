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
    m_widget->installEventFilter(this);
    m_window->installEventFilter(this);
}

void SystemGesture::end()
{
    m_widget->removeEventFilter(this);
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = nullptr;
}

bool SystemGesture::eventFilter(QObject *receiver, QEvent *event)
{
    const QPointer<QObject> alive(receiver);
    std::function<void()> announcement; // a copy, which outlives the gesture
    if (isOver(receiver, event)) {
        end();
        announcement = m_ended;
    } else if (isUnderWay() && receiver == m_widget && event->type() == QEvent::Move) {
        announcement = m_moved;
    }
    if (announcement)
        announcement();
    // Nothing is consumed; but what is gone cannot get its event any more.
    return alive.isNull();
}

bool SystemGesture::isOver(QObject *receiver, QEvent *event) const
{
    if (receiver != m_window)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return true;
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return !static_cast<const QMouseEvent *>(event)->buttons().testFlag(Qt::LeftButton);
    default:
        return false;
    }
}
