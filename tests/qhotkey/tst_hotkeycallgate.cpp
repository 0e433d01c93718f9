#include "hotkeycallgate.h"
#include "testmain.h"

#include <QtCore/QThread>
#include <QtTest/QTest>

#include <atomic>
#include <chrono>
#include <future>

// Stands for the registry: an object with a gate and one invokable method.
class Receiver : public QObject
{
    Q_OBJECT

public:
    Receiver() { new HotkeyCallGate(this); }
    Q_INVOKABLE bool answer() { return true; }
};

class tst_hotkeycallgate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isFoundFromAnyThread();
    void ownThreadCallsDirectly();
    void otherThreadWaits();
    void shutReleasesWhoIsInside();
    void shutTurnsAwayWhoComesLater();
    void leftWorkIsDoneOnce();
};

static bool call(Receiver *receiver, const HotkeyCall &hotkeyCall)
{
    bool answer = false;
    QMetaObject::invokeMethod(receiver, "answer", hotkeyCall.type(), Q_RETURN_ARG(bool, answer));
    return answer;
}

void tst_hotkeycallgate::isFoundFromAnyThread()
{
    Receiver receiver;
    const HotkeyCallGate *gate = HotkeyCallGate::of(&receiver);
    QVERIFY(gate);
    QCOMPARE(gate->parent(), &receiver);
    const HotkeyCallGate *seen = nullptr;
    const std::future<void> thread(
        std::async(std::launch::async, [&] { seen = HotkeyCallGate::of(&receiver); }));
    thread.wait();
    QCOMPARE(seen, gate);
}

void tst_hotkeycallgate::ownThreadCallsDirectly()
{
    Receiver receiver;
    const HotkeyCall direct(&receiver);
    QVERIFY(direct.isPossible());
    QCOMPARE(direct.type(), Qt::DirectConnection);
    QVERIFY(call(&receiver, direct));

    HotkeyCallGate::of(&receiver)->shut();
    const HotkeyCall stillDirect(&receiver);
    QVERIFY(stillDirect.isPossible());
}

void tst_hotkeycallgate::otherThreadWaits()
{
    Receiver receiver;
    bool answer = false;
    Qt::ConnectionType type = Qt::AutoConnection;
    const std::future<void> thread(std::async(std::launch::async, [&] {
        const HotkeyCall blocking(&receiver);
        type = blocking.type();
        answer = blocking.isPossible() && call(&receiver, blocking);
    }));
    QTRY_COMPARE(thread.wait_for(std::chrono::seconds(0)), std::future_status::ready);
    QCOMPARE(type, Qt::BlockingQueuedConnection);
    QVERIFY(answer);
}

void tst_hotkeycallgate::shutReleasesWhoIsInside()
{
    Receiver receiver;
    std::atomic<bool> inside{false};
    bool answer = true;
    const std::future<void> thread(std::async(std::launch::async, [&] {
        const HotkeyCall blocking(&receiver);
        inside = blocking.isPossible();
        answer = call(&receiver, blocking);
    }));
    while (!inside)
        QThread::yieldCurrentThread();
    HotkeyCallGate::of(&receiver)->shut(); // no event is processed: the call is waiting, or about to
    thread.wait();
    QVERIFY(!answer);
}

void tst_hotkeycallgate::shutTurnsAwayWhoComesLater()
{
    Receiver receiver;
    HotkeyCallGate::of(&receiver)->shut();
    bool possible = true;
    const std::future<void> thread(
        std::async(std::launch::async, [&] { possible = HotkeyCall(&receiver).isPossible(); }));
    thread.wait();
    QVERIFY(!possible);
}

void tst_hotkeycallgate::leftWorkIsDoneOnce()
{
    Receiver receiver;
    HotkeyCallGate *gate = HotkeyCallGate::of(&receiver);
    QVector<int> done;
    gate->catchUp();
    const std::future<void> thread(std::async(std::launch::async, [&] {
        gate->leaveWork([&] { done << 1; });
        gate->leaveWork([&] { done << 2; });
    }));
    thread.wait();
    QCOMPARE(done, QVector<int>());
    gate->catchUp();
    gate->catchUp();
    QCOMPARE(done, QVector<int>({1, 2}));
}

ORV_TEST_MAIN(tst_hotkeycallgate)
#include "tst_hotkeycallgate.moc"
