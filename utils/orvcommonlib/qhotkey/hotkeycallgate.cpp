#include "hotkeycallgate.h"

#include <QtCore/private/qthread_p.h>
#include <QtCore/QSemaphore>
#include <QtCore/QThread>

#include <utility>

namespace {

constexpr std::chrono::seconds kPatience(1);
// How often a caller that waits looks whether there is still somebody to wait for.
constexpr int kLookIntervalMs = 20;

// A step on its way to the registry's thread. Whoever claims it first, that thread or the caller who gives
// up, decides whether it is done.
struct Call
{
    const std::function<void()> &step;
    std::atomic<bool> isClaimed{false};
    std::atomic<bool> isDone{false};
    QSemaphore over{0};
};

// Whether an event loop runs in the thread, or its first one is still to come. QThread::loopLevel() is for
// the thread itself: it reads the stack of the loops without the lock that guards it.
bool hasEventLoop(QThread *thread)
{
    const auto *const d = static_cast<const QThreadPrivate *>(QObjectPrivate::get(thread));
    const QMutexLocker lock(&d->mutex);
    const auto &loops = d->data->eventLoops; // keeps the memory of what once was in it
    return !loops.isEmpty() || (loops.capacity() == 0 && d->data->hasEventDispatcher());
}

} // namespace

HotkeyCallGate::HotkeyCallGate(QObject *registry)
    : QObject(registry)
    , m_patienceEnd(std::make_shared<Instant>(0))
{
}

HotkeyCallGate *HotkeyCallGate::of(const QObject *registry)
{
    // The only child, and it lives as long as the registry: reading the list of children needs no lock.
    return static_cast<HotkeyCallGate *>(registry->children().constFirst());
}

bool HotkeyCallGate::call(const std::function<void()> &step)
{
    QThread *const home = thread();
    if (home == QThread::currentThread()) {
        step();
        return true;
    }
    const std::shared_ptr<Instant> patienceEnd = m_patienceEnd;
    if (!home || !isWorthWaiting(home, *patienceEnd))
        return false;

    const std::shared_ptr<Call> call(new Call{step});
    // Only the event holds this: when it is gone, handled or dropped, the call is over.
    std::shared_ptr<Call> delivery(call.get(), [call](Call *) { call->over.release(); });
    QMetaObject::invokeMethod(
        this,
        [patienceEnd, delivery = std::move(delivery)] {
            *patienceEnd = 0;
            if (delivery->isClaimed.exchange(true))
                return;
            delivery->step();
            delivery->isDone = true;
        },
        Qt::QueuedConnection);
    while (!call->over.tryAcquire(1, kLookIntervalMs)) {
        if (!isWorthWaiting(home, *patienceEnd) && !call->isClaimed.exchange(true))
            return false;
    }
    return call->isDone;
}

bool HotkeyCallGate::isWorthWaiting(QThread *thread, Instant &patienceEnd)
{
    if (hasEventLoop(thread)) {
        patienceEnd = 0;
        return true;
    }
    const Clock::time_point now = Clock::now();
    Clock::rep end = 0;
    return patienceEnd.compare_exchange_strong(end, (now + kPatience).time_since_epoch().count()) ||
           now.time_since_epoch().count() < end;
}

void HotkeyCallGate::leaveWork(std::function<void()> work)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_work.push_back(std::move(work));
    }
    QMetaObject::invokeMethod(this, &HotkeyCallGate::catchUp, Qt::QueuedConnection);
}

void HotkeyCallGate::catchUp()
{
    std::vector<std::function<void()>> work;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        work.swap(m_work);
    }
    for (const std::function<void()> &step : work)
        step();
}

bool HotkeyCallGate::meetsNewApplication()
{
    QCoreApplication *application = QCoreApplication::instance();
    if (!application || m_application == application)
        return false;
    m_application = application;
    // Who has called before the end of the loop is still answered.
    connect(application, &QCoreApplication::aboutToQuit, this,
            [this] { QCoreApplication::sendPostedEvents(this); });
    return true;
}
