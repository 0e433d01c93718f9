#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

/// Has the calls of other threads into the hotkey registry done by the event loop of the registry's thread.
///
/// The callers wait: without limit while an event loop runs in that thread, however busy it is, and before
/// the first one has begun. Without a loop they wait a second, in case that somebody processes events all the
/// same, and give up; so does then, at once, everybody after them, until the thread processes events again. A
/// call fails, too, when the registry or the application object goes.
///
/// The gate lives in the registry's thread and is the registry's only child.
class HotkeyCallGate : public QObject
{
public:
    explicit HotkeyCallGate(QObject *registry);

    /// The gate of this registry, for any thread.
    static HotkeyCallGate *of(const QObject *registry);

    /// Any thread: has the step done, straight away when this is the registry's thread. False when it is not
    /// done, and never will be.
    bool call(const std::function<void()> &step);
    /// Any thread: leaves work to the registry's thread, and waits for nothing.
    void leaveWork(std::function<void()> work);

    /// The registry's thread: does the work that was left.
    void catchUp();
    /// The registry's thread: whether the application object is another one than at the last call.
    bool meetsNewApplication();

private:
    using Clock = std::chrono::steady_clock;
    using Instant = std::atomic<Clock::rep>;

    static bool isWorthWaiting(QThread *thread, Instant &patienceEnd);

    // Of all callers, from when one of them has found no event loop; they may outlive the gate.
    const std::shared_ptr<Instant> m_patienceEnd;
    QPointer<QCoreApplication> m_application;
    std::mutex m_mutex;
    std::vector<std::function<void()>> m_work;
};
