#include "hotkeycallgate.h"
#include "testmain.h"
#include "waitingevents.h"

#include <QtCore/QEventLoop>
#include <QtCore/QThread>
#include <QtCore/QVector>
#include <QtTest/QTest>

#include <chrono>
#include <future>

class tst_hotkeycallgate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isFoundFromAnyThread();
    void ownThreadCallsDirectly();
    void otherThreadWaits();
    void dyingGateReleasesTheCaller();
    void stepUnderWayIsWaitedFor();
    void leftWorkIsDoneOnce();
    void leftWorkIsDoneByTheEventLoop();
    void meetsAnApplicationOnce();
};

void tst_hotkeycallgate::isFoundFromAnyThread()
{
    QObject registry;
    const auto *gate = new HotkeyCallGate(&registry);
    const HotkeyCallGate *seen = nullptr;
    const std::future<void> thread(
        std::async(std::launch::async, [&] { seen = HotkeyCallGate::of(&registry); }));
    thread.wait();
    QCOMPARE(seen, gate);
}

void tst_hotkeycallgate::ownThreadCallsDirectly()
{
    QObject registry;
    HotkeyCallGate gate(&registry);
    const QThread *caller = nullptr;
    QVERIFY(gate.call([&] { caller = QThread::currentThread(); }));
    QCOMPARE(caller, thread());
}

void tst_hotkeycallgate::otherThreadWaits()
{
    QObject registry;
    HotkeyCallGate gate(&registry);
    bool answered = false;
    const QThread *caller = nullptr;
    const std::future<void> other(std::async(
        std::launch::async, [&] { answered = gate.call([&] { caller = QThread::currentThread(); }); }));
    QTRY_COMPARE(other.wait_for(std::chrono::seconds(0)), std::future_status::ready);
    QVERIFY(answered);
    QCOMPARE(caller, thread());
}

void tst_hotkeycallgate::dyingGateReleasesTheCaller()
{
    QObject registry;
    auto *gate = new HotkeyCallGate(&registry);
    QCoreApplication::sendPostedEvents();
    bool answered = true;
    bool done = false;
    const std::future<void> other(
        std::async(std::launch::async, [&] { answered = gate->call([&] { done = true; }); }));
    while (!eventsWait())
        QThread::yieldCurrentThread();
    delete gate;
    other.wait();
    QVERIFY(!answered);
    QVERIFY(!done);
}

// Although no event loop runs, and the step takes longer than a caller has patience then: it uses what is the caller's.
void tst_hotkeycallgate::stepUnderWayIsWaitedFor()
{
    QEventLoop over;
    QMetaObject::invokeMethod(&over, &QEventLoop::quit, Qt::QueuedConnection);
    over.exec();
    QObject registry;
    HotkeyCallGate gate(&registry);
    QCoreApplication::sendPostedEvents();
    bool answered = false;
    bool isGivenUp = false;
    std::future<void> other;
    const auto step = [&] {
        isGivenUp = other.wait_for(std::chrono::milliseconds(1500)) == std::future_status::ready;
    };
    other = std::async(std::launch::async, [&] { answered = gate.call(step); });
    while (!eventsWait())
        QThread::yieldCurrentThread();
    QCoreApplication::sendPostedEvents();
    other.wait();
    QVERIFY(!isGivenUp);
    QVERIFY(answered);
}

void tst_hotkeycallgate::leftWorkIsDoneOnce()
{
    QObject registry;
    HotkeyCallGate gate(&registry);
    QVector<int> done;
    gate.catchUp();
    const std::future<void> other(std::async(std::launch::async, [&] {
        gate.leaveWork([&] { done << 1; });
        gate.leaveWork([&] { done << 2; });
    }));
    other.wait();
    QCOMPARE(done, QVector<int>());
    gate.catchUp();
    gate.catchUp();
    QCoreApplication::processEvents();
    QCOMPARE(done, QVector<int>({1, 2}));
}

void tst_hotkeycallgate::leftWorkIsDoneByTheEventLoop()
{
    QObject registry;
    HotkeyCallGate gate(&registry);
    int done = 0;
    const std::future<void> other(std::async(std::launch::async, [&] { gate.leaveWork([&] { ++done; }); }));
    QTRY_COMPARE(done, 1);
}

void tst_hotkeycallgate::meetsAnApplicationOnce()
{
    QObject registry;
    HotkeyCallGate gate(&registry);
    QVERIFY(gate.meetsNewApplication());
    QVERIFY(!gate.meetsNewApplication());
}

ORV_TEST_MAIN(tst_hotkeycallgate)
#include "tst_hotkeycallgate.moc"
