#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtTest/QTest>

#include <functional>
#include <utility>

/// What a test does while a call that it tests blocks in an event loop of its own.
namespace InsideLoop {

/// Runs `action` as soon as an event loop turns.
inline void run(const std::function<void()> &action)
{
    QTimer::singleShot(0, qApp, action);
}

inline void click(QWidget *button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

/// Runs `action` on each event of one type before `watched` gets it; the action returns whether to swallow
/// the event. It may destroy the watched object, but not the hook.
class EventHook : public QObject
{
public:
    EventHook(QObject *watched, QEvent::Type type, std::function<bool(QEvent *)> action)
        : m_type(type)
        , m_action(std::move(action))
    {
        watched->installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override { return event->type() == m_type && m_action(event); }

private:
    QEvent::Type m_type;
    std::function<bool(QEvent *)> m_action;
};

} // namespace InsideLoop
