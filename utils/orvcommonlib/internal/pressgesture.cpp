#include "pressgesture.h"

#include <QtCore/QDateTime>
#include <QtCore/QEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <utility>

qint64 (*PressGesture::clock)() = &QDateTime::currentMSecsSinceEpoch;

PressGesture::PressGesture(QWidget *widget, std::function<void()> lost)
    : m_widget(widget)
    , m_lost(std::move(lost))
{
}

bool PressGesture::begin()
{
    if (!announceNow())
        return false;
    m_underWay = true;
    m_begin = clock();
    watchWhileNeeded();
    return true;
}

bool PressGesture::end()
{
    const bool wasUnderWay = isUnderWay();
    m_underWay = false;
    watchWhileNeeded();
    return wasUnderWay;
}

bool PressGesture::isUnderWay() const
{
    return m_underWay && m_widget;
}

qint64 PressGesture::duration() const
{
    return isUnderWay() ? clock() - m_begin : 0;
}

void PressGesture::announce(std::function<void()> announcement)
{
    m_announcement = std::move(announcement);
    QMetaObject::invokeMethod(this, &PressGesture::announceNow, Qt::QueuedConnection);
}

bool PressGesture::eventFilter(QObject *receiver, QEvent *event)
{
    const QPointer<PressGesture> guard(this);
    const QPointer<QObject> alive(receiver);
    if (isUnderWay() && takesTheEnd(receiver, event))
        lose();
    if (guard && leavesTheWidgetAlone(receiver, event))
        announceNow();
    // Nothing is consumed; but what is gone cannot get its event any more.
    return alive.isNull();
}

// The filter is one of the application's: events of the widget and its window would not tell of popups, and
// a filter that an event filter adds to its own widget would make Qt call that one twice for one event.
bool PressGesture::takesTheEnd(QObject *receiver, QEvent *event) const
{
    switch (event->type()) {
    case QEvent::Hide:
    case QEvent::UngrabMouse:
        return receiver == m_widget;
    case QEvent::EnabledChange:
        return receiver == m_widget && !m_widget->isEnabled();
    case QEvent::Close:
    case QEvent::WindowBlocked:
        return receiver == m_widget || receiver == m_widget->window();
    case QEvent::Show:
        return receiver->isWidgetType() && static_cast<QWidget *>(receiver)->windowType() == Qt::Popup;
    default:
        return false;
    }
}

// Whether this event is the last thing that Qt does to the widget in the call that it belongs to.
bool PressGesture::leavesTheWidgetAlone(QObject *receiver, QEvent *event) const
{
    if (!m_widget || receiver != m_widget)
        return false;
    switch (event->type()) {
    case QEvent::HideToParent:
    case QEvent::UngrabMouse:
        return true;
    case QEvent::EnabledChange: // one that is disabled with its parent comes in a loop over the siblings
        return m_widget->isWindow() || m_widget->parentWidget()->isEnabled();
    default:
        return false;
    }
}

void PressGesture::lose()
{
    m_underWay = false;
    const QPointer<PressGesture> guard(this);
    if (const std::function<void()> lost = m_lost) // a copy, which outlives the gesture
        lost();
    if (guard)
        watchWhileNeeded();
}

bool PressGesture::announceNow()
{
    const std::function<void()> announcement = std::exchange(m_announcement, nullptr);
    watchWhileNeeded();
    const QPointer<PressGesture> guard(this);
    if (announcement)
        announcement();
    return !guard.isNull();
}

void PressGesture::watchWhileNeeded()
{
    const bool needed = m_underWay || m_announcement;
    if (needed == m_watching)
        return;
    m_watching = needed;
    if (needed)
        qApp->installEventFilter(this);
    else
        qApp->removeEventFilter(this);
}
