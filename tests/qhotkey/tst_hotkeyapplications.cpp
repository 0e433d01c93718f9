#include "fakeregistry.h"
#include "testmain.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

#include <memory>

using NativeShortcut = QHotkey::NativeShortcut;

namespace {

const NativeShortcut kShortcut(65, 2);

// Sees the events of the application.
class WatchingRegistry : public FakeRegistry
{
public:
    int events = 0;

    bool nativeEventFilter(const QByteArray & /*eventType*/, void * /*message*/,
                           orvqt::NativeResult * /*result*/) override
    {
        ++events;
        return false;
    }
};

// An application object of which a process has several, one after the other.
class Application
{
public:
    Application()
        : m_application(m_count, m_arguments)
    {
    }
    static void sendEvent()
    {
        orvqt::NativeResult result = 0;
        QAbstractEventDispatcher::instance()->filterNativeEvent(QByteArrayLiteral("event"), nullptr, &result);
    }

private:
    int m_count = 1;
    char m_name[5] = "test";
    char *m_arguments[2] = {m_name, nullptr};
    QGuiApplication m_application;
};

} // namespace

// One registry and several application objects.
class tst_hotkeyapplications : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void watchesEveryApplication();
    void watchesOnlyOnce();
};

void tst_hotkeyapplications::watchesEveryApplication()
{
    auto application = std::make_unique<Application>();
    WatchingRegistry registry;
    Application::sendEvent();
    QCOMPARE(registry.events, 1);
    QHotkey kept(kShortcut);
    QVERIFY(registry.addShortcut(&kept));

    for (int round = 2; round < 5; ++round) {
        application.reset();
        application = std::make_unique<Application>();
        QHotkey hotkey(kShortcut);
        QVERIFY(registry.addShortcut(&hotkey));
        Application::sendEvent();
        QCOMPARE(registry.events, round);
        QVERIFY(registry.removeShortcut(&hotkey));
    }
    QVERIFY(registry.removeShortcut(&kept));
}

void tst_hotkeyapplications::watchesOnlyOnce()
{
    const Application application;
    WatchingRegistry registry;
    QHotkey hotkey(kShortcut);
    QVERIFY(registry.addShortcut(&hotkey));
    QVERIFY(registry.removeShortcut(&hotkey));
    Application::sendEvent();
    QCOMPARE(registry.events, 1);
}

ORV_TEST_APPLESS_MAIN(tst_hotkeyapplications)
#include "tst_hotkeyapplications.moc"
