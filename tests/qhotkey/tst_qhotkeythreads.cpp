#include "fakeregistry.h"
#include "logcapture.h"
#include "testmain.h"
#include "waitingevents.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtCore/QRegularExpression>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtTest/QTest>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <vector>

using NativeShortcut = QHotkey::NativeShortcut;

namespace {

constexpr int kThreads = 6;
constexpr int kRounds = 150;
constexpr std::chrono::seconds kDeadlock(60);
constexpr std::chrono::milliseconds kLongerThanPatience(1500); // of a caller who finds no event loop
const NativeShortcut kShortcut(65, 2);

// Runs a function in a thread of its own; the test fails where it would wait for ever.
class Worker
{
public:
    explicit Worker(const std::function<void()> &function)
        : m_result(std::async(std::launch::async, function))
    {
    }
    bool isFinished() const { return endsWithin(std::chrono::seconds(0)); }
    /// Waits without processing an event.
    bool join() const { return endsWithin(kDeadlock); }

private:
    bool endsWithin(std::chrono::seconds time) const
    {
        return m_result.wait_for(time) == std::future_status::ready;
    }

    std::future<void> m_result;
};

// Holds this thread up, without an event, until the worker has given up: if it is going to at all.
void keepBusy(const Worker &worker)
{
    const auto end = std::chrono::steady_clock::now() + kLongerThanPatience;
    while (!worker.isFinished() && std::chrono::steady_clock::now() < end)
        QThread::yieldCurrentThread();
}

void letEveryLoopEnd()
{
    QTimer::singleShot(0, QCoreApplication::instance(), &QCoreApplication::quit);
    QCoreApplication::exec();
}

} // namespace

// Several threads and one registry, which lives in the test's own.
class tst_qhotkeythreads : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyOperationIsAnswered();
    void signalsComeFromTheThreadThatTellsThem();
    void pressArrivesInTheHotkeysThread();
    void pressOfADeadHotkeyGoesNowhere();
    void manyThreadsAtOnce();
    void callsWaitForTheFirstLoop();
    void callsFailWhenTheRegistryGoes_data();
    void callsFailWhenTheRegistryGoes();

    // From here on the application's loop has ended at least once.
    void callersInsideAreAnsweredWhenTheLoopEnds();
    void callsFailWhenNobodyAnswers();
    void callsAreAnsweredWhileEventsAreProcessed();
    void callsAreAnsweredByTheNextLoop();
    void callsWaitForABusyLoop_data();
    void callsWaitForABusyLoop();
    void slotOnAboutToQuitWaitsForACaller();
    void callersAreWaitedForAfterAnyLoop();
    void callsFailWhenTheRegistrysThreadHasEnded();
};

void tst_qhotkeythreads::everyOperationIsAnswered()
{
    FakeRegistry registry;
    registry.knowsKeys = false;
    const LogCapture log;
    NativeShortcut unknown(1, 1);
    NativeShortcut known;
    bool added = false;
    bool addedAgain = true;
    bool removed = false;
    bool removedAgain = true;
    Worker worker([&] {
        QHotkey hotkey(kShortcut);
        unknown = registry.nativeShortcut(Qt::Key_A, Qt::NoModifier);
        QMetaObject::invokeMethod(
            &registry, [&] { registry.knowsKeys = true; }, Qt::BlockingQueuedConnection);
        known = registry.nativeShortcut(Qt::Key_A, Qt::ControlModifier);
        added = registry.addShortcut(&hotkey);
        addedAgain = registry.addShortcut(&hotkey);
        removed = registry.removeShortcut(&hotkey);
        removedAgain = registry.removeShortcut(&hotkey);
    });
    QTRY_VERIFY(worker.isFinished());
    QVERIFY(!unknown.isValid());
    QVERIFY(known == NativeShortcut(quint32(Qt::Key_A) + 1, quint32(Qt::ControlModifier) + 2));
    QVERIFY(added);
    QVERIFY(!addedAgain);
    QVERIFY(removed);
    QVERIFY(!removedAgain);
    QCOMPARE(log.count(), 1); // of the unknown key
}

void tst_qhotkeythreads::signalsComeFromTheThreadThatTellsThem()
{
    FakeRegistry registry;
    QVector<bool> values;
    QVector<QThread *> threads;
    QThread *caller = nullptr;
    Worker worker([&] {
        caller = QThread::currentThread();
        QHotkey hotkey(kShortcut);
        QObject::connect(
            &hotkey, &QHotkey::registeredChanged, &hotkey,
            [&](bool value) {
                values << value;
                threads << QThread::currentThread();
            },
            Qt::DirectConnection);
        registry.addShortcut(&hotkey);
        registry.removeShortcut(&hotkey);
    });
    QTRY_VERIFY(worker.isFinished());
    QCOMPARE(values, QVector<bool>({true, true, false}));
    QCOMPARE(threads, QVector<QThread *>({caller, thread(), caller}));
}

void tst_qhotkeythreads::pressArrivesInTheHotkeysThread()
{
    FakeRegistry registry;
    std::atomic<bool> ready{false};
    bool arrivedThere = false;
    Worker worker([&] {
        QHotkey hotkey(kShortcut);
        QEventLoop loop;
        QObject::connect(
            &hotkey, &QHotkey::activated, &hotkey,
            [&] {
                arrivedThere =
                    QThread::currentThread() == hotkey.thread() && hotkey.thread() != registry.thread();
                loop.quit();
            },
            Qt::DirectConnection);
        registry.addShortcut(&hotkey);
        ready = true;
        loop.exec();
        registry.removeShortcut(&hotkey);
    });
    QTRY_VERIFY(ready);
    registry.press(kShortcut);
    QTRY_VERIFY(worker.isFinished());
    QVERIFY(arrivedThere);
}

void tst_qhotkeythreads::pressOfADeadHotkeyGoesNowhere()
{
    FakeRegistry registry;
    std::atomic<bool> ready{false};
    std::atomic<bool> pressed{false};
    int activations = 0;
    Worker worker([&] {
        QEventLoop loop;
        auto hotkey = std::make_unique<QHotkey>(kShortcut);
        QObject::connect(hotkey.get(), &QHotkey::activated, hotkey.get(), [&] { ++activations; });
        registry.addShortcut(hotkey.get());
        ready = true;
        while (!pressed)
            QThread::yieldCurrentThread();
        registry.removeShortcut(hotkey.get());
        hotkey.reset(); // with the presses still in this thread's queue
        loop.processEvents();
    });
    QTRY_VERIFY(ready);
    for (int press = 0; press < 100; ++press)
        registry.press(kShortcut);
    pressed = true;
    QTRY_VERIFY(worker.isFinished());
    QCOMPARE(activations, 0);
}

void tst_qhotkeythreads::manyThreadsAtOnce()
{
    FakeRegistry registry;
    std::atomic<int> failures{0};
    std::atomic<int> activations{0};
    const auto live = [&](quint32 key) {
        QEventLoop loop;
        for (int round = 0; round < kRounds; ++round) {
            QHotkey shared(kShortcut);
            QHotkey own(NativeShortcut(key, 0));
            QObject::connect(&shared, &QHotkey::activated, &shared, [&] { ++activations; });
            const bool mapped = registry.nativeShortcut(Qt::Key_A, Qt::NoModifier).isValid();
            const bool added = registry.addShortcut(&shared) && registry.addShortcut(&own);
            loop.processEvents();
            const bool removed = registry.removeShortcut(&own) && registry.removeShortcut(&shared);
            if (!mapped || !added || !removed || shared.isRegistered() || own.isRegistered())
                ++failures;
        }
    };
    std::vector<std::unique_ptr<Worker>> workers;
    workers.reserve(kThreads);
    for (quint32 index = 0; index < kThreads; ++index)
        workers.push_back(std::make_unique<Worker>([&live, index] { live(1000 + index); }));
    const auto finished = [&] {
        return std::all_of(workers.cbegin(), workers.cend(),
                           [](const auto &worker) { return worker->isFinished(); });
    };
    while (!finished()) {
        registry.press(kShortcut);
        QCoreApplication::processEvents();
    }
    QCOMPARE(failures.load(), 0);
    QVERIFY(activations > 0);
    QCOMPARE(registry.calls.filter(QRegularExpression(QStringLiteral("^register"))).size(),
             registry.calls.filter(QRegularExpression(QStringLiteral("^unregister"))).size());
    QCOMPARE(registry.calls.filter(QRegularExpression(QStringLiteral("^register 100"))).size(),
             kThreads * kRounds);
}

// A program that still builds its windows.
void tst_qhotkeythreads::callsWaitForTheFirstLoop()
{
    FakeRegistry registry;
    bool added = false;
    bool removed = false;
    const Worker worker([&] {
        QHotkey hotkey(kShortcut);
        added = registry.addShortcut(&hotkey);
        removed = registry.removeShortcut(&hotkey);
    });
    keepBusy(worker);
    QTRY_VERIFY(worker.isFinished());
    QVERIFY(added);
    QVERIFY(removed);
}

void tst_qhotkeythreads::callsFailWhenTheRegistryGoes_data()
{
    QTest::addColumn<bool>("adds");
    QTest::newRow("adding") << true;
    QTest::newRow("removing") << false;
}

void tst_qhotkeythreads::callsFailWhenTheRegistryGoes()
{
    QFETCH(bool, adds);
    const LogCapture log; // the registry complains of the hotkey that it is left with
    auto registry = std::make_unique<FakeRegistry>();
    QHotkey hotkey(kShortcut);
    QVERIFY(adds || registry->addShortcut(&hotkey));
    QCoreApplication::sendPostedEvents();
    int signalCount = 0;
    connect(&hotkey, &QHotkey::registeredChanged, this, [&] { ++signalCount; });
    bool done = true;
    const Worker worker(
        [&] { done = adds ? registry->addShortcut(&hotkey) : registry->removeShortcut(&hotkey); });
    while (!eventsWait())
        QThread::yieldCurrentThread();
    registry.reset(); // with the call in this thread's queue
    QVERIFY(worker.join());
    QVERIFY(!done);
    QCOMPARE(hotkey.isRegistered(), !adds);
    QCOMPARE(signalCount, 0);
}

// The usual end of a program: the loop ends, and what comes after it waits for the threads.
void tst_qhotkeythreads::callersInsideAreAnsweredWhenTheLoopEnds()
{
    FakeRegistry registry;
    std::atomic<bool> stopped{false};
    std::atomic<int> answered{0};
    std::atomic<int> wrong{0};
    std::vector<std::unique_ptr<QHotkey>> hotkeys;
    std::vector<std::unique_ptr<Worker>> workers;
    workers.reserve(kThreads);
    for (quint32 index = 0; index < kThreads; ++index) {
        hotkeys.push_back(std::make_unique<QHotkey>(NativeShortcut(index, 0)));
        QHotkey *hotkey = hotkeys.back().get();
        workers.push_back(std::make_unique<Worker>([&, hotkey] {
            while (!stopped) {
                const bool before = hotkey->isRegistered();
                const bool done = before ? registry.removeShortcut(hotkey) : registry.addShortcut(hotkey);
                answered += done ? 1 : 0;
                wrong +=
                    done == (hotkey->isRegistered() == before) ? 1 : 0; // a false answer has changed nothing
            }
        }));
    }
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (answered > 100)
            QCoreApplication::exit();
    });
    timer.start(0);
    QCoreApplication::exec();

    stopped = true;
    for (const std::unique_ptr<Worker> &worker : workers)
        QVERIFY(worker->join());
    QCOMPARE(wrong.load(), 0);
    for (const std::unique_ptr<QHotkey> &hotkey : hotkeys) {
        const bool registered = hotkey->isRegistered();
        QCOMPARE(registry.removeShortcut(hotkey.get()), registered); // flag and table agree
    }
}

void tst_qhotkeythreads::callsFailWhenNobodyAnswers()
{
    FakeRegistry registry;
    letEveryLoopEnd();
    const LogCapture log;
    bool added = true;
    bool removed = true;
    NativeShortcut native(1, 1);
    int signalCount = 0;
    Worker worker([&] {
        QHotkey hotkey(kShortcut);
        QObject::connect(&hotkey, &QHotkey::registeredChanged, &hotkey, [&] { ++signalCount; });
        added = registry.addShortcut(&hotkey);
        native = registry.nativeShortcut(Qt::Key_A, Qt::ControlModifier);
        removed = registry.removeShortcut(&hotkey);
    });
    QVERIFY(worker.join());
    QVERIFY(!added);
    QVERIFY(!removed);
    QVERIFY(!native.isValid());
    QCOMPARE(signalCount, 0);
    QCOMPARE(registry.calls, QStringList());

    QCOMPARE(log.count(), 1);
    const LogLine line = log.lines().constFirst();
    QCOMPARE(line.type, QtInfoMsg);
    QCOMPARE(line.category, QStringLiteral("default"));
    QCOMPARE(line.text,
             QStringLiteral("nativeShortcut--QMetaObject::invokeMethod --return false:--keycode: Qt::Key_A "
                            "-modifiers: QFlags<Qt::KeyboardModifier>(ControlModifier) "
                            "--contype: Qt::BlockingQueuedConnection"));
    QVERIFY(line.function.contains(QLatin1String("QHotkeyPrivate::nativeShortcut(")));

    // The registry's own thread needs no loop.
    QHotkey hotkey(kShortcut);
    QVERIFY(registry.addShortcut(&hotkey));
    QVERIFY(registry.removeShortcut(&hotkey));
}

void tst_qhotkeythreads::callsAreAnsweredWhileEventsAreProcessed()
{
    FakeRegistry registry;
    letEveryLoopEnd();
    const auto use = [&] {
        QHotkey hotkey(kShortcut);
        return registry.addShortcut(&hotkey) &&
               registry.nativeShortcut(Qt::Key_A, Qt::NoModifier).isValid() &&
               registry.removeShortcut(&hotkey);
    };
    bool answered = true;
    Worker unheard([&] { answered = use(); });
    QVERIFY(unheard.join());
    QVERIFY(!answered);

    QCoreApplication::processEvents(); // the thread finds that somebody had knocked
    std::atomic<int> successes{0};
    std::vector<std::unique_ptr<Worker>> workers;
    workers.reserve(kThreads);
    for (int index = 0; index < kThreads; ++index)
        workers.push_back(std::make_unique<Worker>([&] { successes += use(); }));
    for (const std::unique_ptr<Worker> &worker : workers)
        QTRY_VERIFY(worker->isFinished());
    QCOMPARE(successes.load(), kThreads);
}

void tst_qhotkeythreads::callsAreAnsweredByTheNextLoop()
{
    FakeRegistry registry;
    letEveryLoopEnd();
    std::atomic<int> successes{0};
    std::vector<std::unique_ptr<Worker>> workers;
    workers.reserve(kThreads);
    for (int index = 0; index < kThreads; ++index) {
        workers.push_back(std::make_unique<Worker>([&] {
            QHotkey hotkey(kShortcut);
            successes += registry.addShortcut(&hotkey) && registry.removeShortcut(&hotkey);
        }));
    }
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (std::all_of(workers.cbegin(), workers.cend(),
                        [](const auto &worker) { return worker->isFinished(); }))
            QCoreApplication::exit();
    });
    timer.start(0);
    QCoreApplication::exec();
    QCOMPARE(successes.load(), kThreads);
}

void tst_qhotkeythreads::callsWaitForABusyLoop_data()
{
    QTest::addColumn<bool>("isApplications");
    QTest::newRow("application's") << true;
    QTest::newRow("dialog's") << false;
}

// It is not the first loop of this process.
void tst_qhotkeythreads::callsWaitForABusyLoop()
{
    QFETCH(bool, isApplications);
    FakeRegistry registry;
    letEveryLoopEnd();
    bool added = false;
    bool removed = false;
    std::unique_ptr<Worker> worker;
    QEventLoop dialogs;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (!worker) {
            worker = std::make_unique<Worker>([&] {
                QHotkey hotkey(kShortcut);
                added = registry.addShortcut(&hotkey);
                removed = registry.removeShortcut(&hotkey);
            });
            keepBusy(*worker);
        } else if (worker->isFinished()) {
            isApplications ? QCoreApplication::exit() : dialogs.quit();
        }
    });
    timer.start(0);
    isApplications ? QCoreApplication::exec() : dialogs.exec();
    QVERIFY(added);
    QVERIFY(removed);
}

void tst_qhotkeythreads::slotOnAboutToQuitWaitsForACaller()
{
    std::atomic<bool> stopped{false};
    std::unique_ptr<Worker> worker;
    bool joined = false;
    // Connected before the registry has connected anything.
    const auto connection = connect(qApp, &QCoreApplication::aboutToQuit, this, [&] {
        stopped = true;
        joined = worker->join();
    });
    FakeRegistry registry;
    std::atomic<int> answered{0};
    worker = std::make_unique<Worker>([&] {
        QHotkey hotkey(kShortcut);
        while (!stopped)
            answered += registry.addShortcut(&hotkey) && registry.removeShortcut(&hotkey) ? 1 : 0;
        registry.removeShortcut(&hotkey);
    });
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (answered > 10)
            QCoreApplication::exit();
    });
    timer.start(0);
    QCoreApplication::exec();
    disconnect(connection);
    QVERIFY(joined);
}

// A program may show one dialog after the other, and have no loop of the application's.
void tst_qhotkeythreads::callersAreWaitedForAfterAnyLoop()
{
    FakeRegistry registry;
    QEventLoop loop;
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
    bool added = true;
    const Worker worker([&] {
        QHotkey hotkey(kShortcut);
        added = registry.addShortcut(&hotkey);
    });
    QVERIFY(worker.join());
    QVERIFY(!added);
}

void tst_qhotkeythreads::callsFailWhenTheRegistrysThreadHasEnded()
{
    QThread home;
    QObject inside;
    inside.moveToThread(&home);
    std::promise<std::unique_ptr<FakeRegistry>> made;
    connect(&home, &QThread::started, &inside, [&] { made.set_value(std::make_unique<FakeRegistry>()); });
    home.start();
    const std::unique_ptr<FakeRegistry> registry = made.get_future().get();
    QHotkey hotkey(kShortcut);
    QVERIFY(registry->addShortcut(&hotkey));
    QVERIFY(registry->removeShortcut(&hotkey));

    home.quit();
    QVERIFY(home.wait());
    QVERIFY(!registry->addShortcut(&hotkey));
    QVERIFY(!hotkey.isRegistered());
}

ORV_TEST_MAIN(tst_qhotkeythreads)
#include "tst_qhotkeythreads.moc"
