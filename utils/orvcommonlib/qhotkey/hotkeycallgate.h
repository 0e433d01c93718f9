#pragma once

#include <QtCore/QObject>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <vector>

/// Lets other threads make blocking calls into the hotkey registry, but never into a thread that will not
/// answer.
///
/// A blocking queued call waits for the receiver's event loop, for ever when that loop has ended. The gate,
/// which lives in the registry's thread as a child of the registry, counts the callers and knows when the
/// loop ends.
///
/// Until then everybody is let in, and waits as long as the registry's thread is busy. At the end those who
/// are inside are served before that thread goes on. From then on a caller knocks first, with an event that
/// asks the thread for an answer. A thread that still processes events lets the caller in and stays until it
/// was served. If no answer comes in time the caller is turned away, and so is, at once, everybody after it,
/// until the thread processes events again.
class HotkeyCallGate : public QObject
{
    Q_OBJECT

public:
    /// Makes the gate of a registry that is just being built, in the registry's thread.
    explicit HotkeyCallGate(QObject *registry);

    /// The gate of this registry. It is made with the registry, so that any thread can look it up.
    static HotkeyCallGate *of(const QObject *registry);

    /// Any other thread: whether the caller may make its call. One that may has to leave() afterwards.
    bool enter();
    void leave();

    /// Any thread: leaves work for the registry's thread, to be done before it next looks at its table.
    void leaveWork(std::function<void()> work);
    /// The registry's thread: does the work that was left.
    void catchUp();

    /// The registry is being destroyed: turns away whoever waits or is inside; their calls return what they
    /// were preset to.
    void shut();

private:
    void endLoop();
    void answerKnock();
    template<typename Step>
    void untilEmpty(Step step);

    std::mutex m_mutex;
    std::condition_variable m_answer;
    std::condition_variable m_departure;
    bool m_loopEnded = false;
    bool m_deaf = false;
    bool m_shut = false;
    int m_knocking = 0;
    int m_inside = 0;
    unsigned m_answers = 0;

    std::atomic<bool> m_hasWork{false};
    std::vector<std::function<void()>> m_work;
};

/// One call into the registry: straight away in the registry's own thread, through the gate from any other
/// one.
class HotkeyCall
{
public:
    explicit HotkeyCall(const QObject *registry);
    ~HotkeyCall();
    Q_DISABLE_COPY(HotkeyCall)

    /// False when the registry's thread no longer answers.
    bool isPossible() const { return m_possible; }
    Qt::ConnectionType type() const { return m_gate ? Qt::BlockingQueuedConnection : Qt::DirectConnection; }

private:
    HotkeyCallGate *const m_gate;
    const bool m_possible;
};
