#include "hotkeycallgate.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QThread>

#include <chrono>
#include <utility>

namespace {

// How long a caller waits for a thread whose event loop has ended.
constexpr std::chrono::seconds kPatience{1};
// How often a thread that serves its last callers looks for their calls.
constexpr std::chrono::milliseconds kServingStep{1};

} // namespace

HotkeyCallGate::HotkeyCallGate(QObject *registry)
    : QObject(registry)
{
    const QCoreApplication *application = QCoreApplication::instance();
    if (application && application->thread() == thread()) {
        connect(application, &QCoreApplication::aboutToQuit, this, &HotkeyCallGate::endLoop,
                Qt::DirectConnection);
        connect(application, &QObject::destroyed, this, &HotkeyCallGate::endLoop, Qt::DirectConnection);
    }
    connect(thread(), &QThread::finished, this, &HotkeyCallGate::endLoop, Qt::DirectConnection);
}

HotkeyCallGate *HotkeyCallGate::of(const QObject *registry)
{
    // The gate is the registry's only child and lives as long: reading the list of children needs no lock.
    QObject *const gate = registry->children().constFirst();
    Q_ASSERT(qobject_cast<HotkeyCallGate *>(gate));
    return static_cast<HotkeyCallGate *>(gate);
}

bool HotkeyCallGate::enter()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_shut || (m_loopEnded && m_deaf))
        return false;
    if (!m_loopEnded) {
        ++m_inside;
        return true;
    }

    const unsigned answersBefore = m_answers;
    if (++m_knocking == 1)
        QMetaObject::invokeMethod(this, &HotkeyCallGate::answerKnock, Qt::QueuedConnection);
    m_answer.wait_for(lock, kPatience, [&] { return m_answers != answersBefore || m_shut; });
    if (m_answers != answersBefore)
        return true; // answerKnock() has counted this caller as being inside
    --m_knocking;
    m_deaf = true;
    return false;
}

void HotkeyCallGate::leave()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (--m_inside == 0)
        m_departure.notify_all();
}

void HotkeyCallGate::leaveWork(std::function<void()> work)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_work.push_back(std::move(work));
    m_hasWork = true;
}

void HotkeyCallGate::catchUp()
{
    if (!m_hasWork)
        return;
    std::vector<std::function<void()>> work;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        work.swap(m_work);
        m_hasWork = false;
    }
    for (const std::function<void()> &step : work)
        step();
}

void HotkeyCallGate::shut()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_shut = true;
    }
    m_answer.notify_all();
    untilEmpty([this] { QCoreApplication::removePostedEvents(parent(), QEvent::MetaCall); });
}

void HotkeyCallGate::endLoop()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_loopEnded = true;
    }
    untilEmpty([this] { QCoreApplication::sendPostedEvents(parent(), QEvent::MetaCall); });
}

void HotkeyCallGate::answerKnock()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_deaf = false;
        m_inside += m_knocking;
        m_knocking = 0;
        ++m_answers;
    }
    m_answer.notify_all();
    untilEmpty([this] { QCoreApplication::sendPostedEvents(parent(), QEvent::MetaCall); });
}

// Repeats the step until nobody is inside. Gives up in the end: a thread may have been killed in the middle
// of its call.
template<typename Step>
void HotkeyCallGate::untilEmpty(Step step)
{
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    const auto isEmpty = [this] {
        return m_inside == 0 && (m_knocking == 0 || !m_shut);
    };
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!isEmpty() && std::chrono::steady_clock::now() < deadline) {
        lock.unlock();
        step();
        lock.lock();
        m_departure.wait_for(lock, kServingStep, isEmpty);
    }
}

HotkeyCall::HotkeyCall(const QObject *registry)
    : m_gate(QThread::currentThread() == registry->thread() ? nullptr : HotkeyCallGate::of(registry))
    , m_possible(!m_gate || m_gate->enter())
{
}

HotkeyCall::~HotkeyCall()
{
    if (m_gate && m_possible)
        m_gate->leave();
}
