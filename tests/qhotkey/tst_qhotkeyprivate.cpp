#include "fakeregistry.h"
#include "logcapture.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtCore/QThread>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <memory>
#include <vector>

using NativeShortcut = QHotkey::NativeShortcut;

namespace {

const NativeShortcut kShortcut(65, 2);
const QString kRegister = QStringLiteral("register 65");
const QString kUnregister = QStringLiteral("unregister 65");

} // namespace

// The registry over a system that does as the test says.
class tst_qhotkeyprivate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mapsKeyAndModifiers();
    void refusesToMap_data();
    void refusesToMap();
    void invokablesAreFoundByName();

    void addsAndRemoves();
    void removalReportsTrueThenFalse();
    void removalHasLeftTheTableWhenItReportsTrue();
    void addingTwiceIsRefused();
    void removingTheUnregisteredIsRefused();
    void sharersRegisterOnce();
    void otherShortcutsRegisterAnew();
    void systemRefusesToRegister();
    void systemRefusesToRelease();
    void lastSharerSeesTheRefusalOfRelease();
    void flaggedButUnknownIsRefused();

    void pressReachesEverySharerOnce();
    void pressArrivesLater();
    void pressOfAnUnknownShortcutIsIgnored();
    void latestSharerIsFirst();
    void pressIsForgottenWithItsHotkey();
    void removalAfterThePressKeepsThePress();

    void slotDeletesTheHotkeyDuringRemoval_data();
    void slotDeletesTheHotkeyDuringRemoval();
    void slotRegistersAgainDuringRemoval();

    void warnsWhenDestroyedWithHotkeys();
    void destroyedEmptyItIsSilent();
    void manyChangesLeaveNothing();
    void manySharersLeaveNothing();
};

void tst_qhotkeyprivate::mapsKeyAndModifiers()
{
    FakeRegistry registry;
    const NativeShortcut shortcut =
        registry.nativeShortcut(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(shortcut ==
            NativeShortcut(quint32(Qt::Key_A) + 1, quint32(Qt::ControlModifier | Qt::ShiftModifier) + 2));
    QCOMPARE(registry.calls, QStringList({QStringLiteral("key"), QStringLiteral("modifiers")}));
}

void tst_qhotkeyprivate::refusesToMap_data()
{
    QTest::addColumn<bool>("knowsKeys");
    QTest::addColumn<bool>("knowsModifiers");
    QTest::newRow("no key") << false << true;
    QTest::newRow("no modifiers") << true << false;
    QTest::newRow("neither") << false << false;
}

void tst_qhotkeyprivate::refusesToMap()
{
    QFETCH(bool, knowsKeys);
    QFETCH(bool, knowsModifiers);

    FakeRegistry registry;
    registry.knowsKeys = knowsKeys;
    registry.knowsModifiers = knowsModifiers;
    const LogCapture log;
    QVERIFY(registry.nativeShortcut(Qt::Key_A, Qt::NoModifier) == NativeShortcut());
    QCOMPARE(registry.calls, QStringList({QStringLiteral("key"), QStringLiteral("modifiers")}));

    const auto printed = [](bool value) {
        return value ? QStringLiteral("true") : QStringLiteral("false");
    };
    QCOMPARE(log.texts(),
             QStringList(QStringLiteral("QHotkeyPrivate::nativeShortcutInvoked -- nativeKeycode return: "
                                        "%1 --nativeModifiers return: %2")
                             .arg(printed(knowsKeys), printed(knowsModifiers))));
    QCOMPARE(log.lines().constFirst().type, QtInfoMsg);
}

void tst_qhotkeyprivate::invokablesAreFoundByName()
{
    FakeRegistry registry;
    QHotkey hotkey(kShortcut);
    QHotkey *const pointer = &hotkey;
    bool result = false;
    QVERIFY(QMetaObject::invokeMethod(&registry, "addShortcutInvoked", Qt::DirectConnection,
                                      Q_RETURN_ARG(bool, result), QArgument<QHotkey *>("QHotkey*", pointer)));
    QVERIFY(result);
    QVERIFY(hotkey.isRegistered());
    result = false;
    QVERIFY(QMetaObject::invokeMethod(&registry, "removeShortcutInvoked", Qt::DirectConnection,
                                      Q_RETURN_ARG(bool, result), QArgument<QHotkey *>("QHotkey*", pointer)));
    QVERIFY(result);
    NativeShortcut native;
    QVERIFY(QMetaObject::invokeMethod(&registry, "nativeShortcutInvoked", Qt::DirectConnection,
                                      Q_RETURN_ARG(QHotkey::NativeShortcut, native),
                                      Q_ARG(Qt::Key, Qt::Key_B),
                                      Q_ARG(Qt::KeyboardModifiers, Qt::NoModifier)));
    QVERIFY(native.isValid());
}

void tst_qhotkeyprivate::addsAndRemoves()
{
    FakeRegistry registry;
    QHotkey hotkey(kShortcut);
    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);

    QVERIFY(registry.addShortcut(&hotkey));
    QVERIFY(hotkey.isRegistered());
    QCOMPARE(registry.calls, QStringList(kRegister));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toBool(), true);

    QVERIFY(registry.removeShortcut(&hotkey));
    QVERIFY(!hotkey.isRegistered());
    QCOMPARE(registry.calls, QStringList({kRegister, kUnregister}));
    QVERIFY(hotkey.currentNativeShortcut() == kShortcut);
}

void tst_qhotkeyprivate::removalReportsTrueThenFalse()
{
    FakeRegistry registry;
    QHotkey hotkey(kShortcut);
    QVERIFY(registry.addShortcut(&hotkey));

    QStringList story;
    connect(&hotkey, &QHotkey::registeredChanged, this, [&](bool value) {
        story << QStringLiteral("%1 %2 %3").arg(value).arg(hotkey.isRegistered()).arg(registry.calls.size());
    });
    QVERIFY(registry.removeShortcut(&hotkey));
    // The flag is down both times; the system has released the shortcut only the second time.
    QCOMPARE(story, QStringList({QStringLiteral("1 0 1"), QStringLiteral("0 0 2")}));
}

void tst_qhotkeyprivate::removalHasLeftTheTableWhenItReportsTrue()
{
    FakeRegistry registry;
    QHotkey hotkey(kShortcut);
    QVERIFY(registry.addShortcut(&hotkey));
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    connect(&hotkey, &QHotkey::registeredChanged, this, [&] { registry.press(kShortcut); });
    QVERIFY(registry.removeShortcut(&hotkey));
    QCoreApplication::processEvents();
    QCOMPARE(activated.count(), 0);
}

void tst_qhotkeyprivate::addingTwiceIsRefused()
{
    FakeRegistry registry;
    QHotkey hotkey(kShortcut);
    QVERIFY(registry.addShortcut(&hotkey));
    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);
    QVERIFY(!registry.addShortcut(&hotkey));
    QCOMPARE(registry.calls, QStringList(kRegister));
    QCOMPARE(changed.count(), 0);
    QVERIFY(registry.removeShortcut(&hotkey));
}

void tst_qhotkeyprivate::removingTheUnregisteredIsRefused()
{
    FakeRegistry registry;
    QHotkey hotkey(kShortcut);
    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);
    QVERIFY(!registry.removeShortcut(&hotkey));
    QCOMPARE(registry.calls, QStringList());
    QCOMPARE(changed.count(), 0);
}

void tst_qhotkeyprivate::sharersRegisterOnce()
{
    FakeRegistry registry;
    QHotkey first(kShortcut);
    QHotkey second(kShortcut);
    QVERIFY(registry.addShortcut(&first));
    QVERIFY(registry.addShortcut(&second));
    QCOMPARE(registry.calls, QStringList(kRegister));

    const QSignalSpy changed(&first, &QHotkey::registeredChanged);
    QVERIFY(registry.removeShortcut(&first));
    QCOMPARE(registry.calls, QStringList(kRegister));
    QCOMPARE(changed.count(), 2);
    QVERIFY(registry.removeShortcut(&second));
    QCOMPARE(registry.calls, QStringList({kRegister, kUnregister}));
}

void tst_qhotkeyprivate::otherShortcutsRegisterAnew()
{
    FakeRegistry registry;
    QHotkey first(kShortcut);
    QHotkey second(NativeShortcut(65, 3));
    QHotkey third(NativeShortcut(66, 2));
    QVERIFY(registry.addShortcut(&first));
    QVERIFY(registry.addShortcut(&second));
    QVERIFY(registry.addShortcut(&third));
    QCOMPARE(registry.calls, QStringList({kRegister, kRegister, QStringLiteral("register 66")}));
    QVERIFY(registry.removeShortcut(&first));
    QVERIFY(registry.removeShortcut(&second));
    QVERIFY(registry.removeShortcut(&third));
}

void tst_qhotkeyprivate::systemRefusesToRegister()
{
    FakeRegistry registry;
    registry.agrees = false;
    QHotkey hotkey(kShortcut);
    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    QVERIFY(!registry.addShortcut(&hotkey));
    QVERIFY(!hotkey.isRegistered());
    QCOMPARE(changed.count(), 0);

    registry.press(kShortcut);
    QCoreApplication::processEvents();
    QCOMPARE(activated.count(), 0);

    registry.agrees = true;
    QVERIFY(registry.addShortcut(&hotkey)); // nothing was left behind: the system is asked again
    QCOMPARE(registry.calls, QStringList({kRegister, kRegister}));
    QVERIFY(registry.removeShortcut(&hotkey));
}

void tst_qhotkeyprivate::systemRefusesToRelease()
{
    FakeRegistry registry;
    registry.releases = false;
    QHotkey hotkey(kShortcut);
    QVERIFY(registry.addShortcut(&hotkey));
    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);
    QVERIFY(!registry.removeShortcut(&hotkey));
    QVERIFY(!hotkey.isRegistered());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toBool(), true);
    QCOMPARE(registry.calls, QStringList({kRegister, kUnregister}));

    QVERIFY(!registry.removeShortcut(&hotkey)); // it has left the table all the same
    QCOMPARE(registry.calls.size(), 2);
}

void tst_qhotkeyprivate::lastSharerSeesTheRefusalOfRelease()
{
    FakeRegistry registry;
    registry.releases = false;
    QHotkey first(kShortcut);
    QHotkey second(kShortcut);
    QVERIFY(registry.addShortcut(&first));
    QVERIFY(registry.addShortcut(&second));
    QVERIFY(registry.removeShortcut(&second));
    QVERIFY(!registry.removeShortcut(&first));
}

void tst_qhotkeyprivate::flaggedButUnknownIsRefused()
{
    FakeRegistry holder;
    FakeRegistry stranger;
    QHotkey hotkey(kShortcut);
    QVERIFY(holder.addShortcut(&hotkey));
    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);
    QVERIFY(!stranger.removeShortcut(&hotkey));
    QVERIFY(hotkey.isRegistered());
    QCOMPARE(changed.count(), 0);
    QCOMPARE(stranger.calls, QStringList());
    QVERIFY(holder.removeShortcut(&hotkey));
}

void tst_qhotkeyprivate::pressReachesEverySharerOnce()
{
    FakeRegistry registry;
    QHotkey first(kShortcut);
    QHotkey second(kShortcut);
    QHotkey other(NativeShortcut(66, 2));
    for (QHotkey *hotkey : {&first, &second, &other})
        QVERIFY(registry.addShortcut(hotkey));
    const QSignalSpy firstActivated(&first, &QHotkey::activated);
    const QSignalSpy secondActivated(&second, &QHotkey::activated);
    const QSignalSpy otherActivated(&other, &QHotkey::activated);

    registry.press(kShortcut);
    QCoreApplication::processEvents();
    QCOMPARE(firstActivated.count(), 1);
    QCOMPARE(secondActivated.count(), 1);
    QCOMPARE(otherActivated.count(), 0);

    QVERIFY(registry.removeShortcut(&first));
    registry.press(kShortcut);
    registry.press(kShortcut);
    QCoreApplication::processEvents();
    QCOMPARE(firstActivated.count(), 1);
    QCOMPARE(secondActivated.count(), 3);
    QVERIFY(registry.removeShortcut(&second));
    QVERIFY(registry.removeShortcut(&other));
}

void tst_qhotkeyprivate::pressArrivesLater()
{
    FakeRegistry registry;
    QHotkey hotkey(kShortcut);
    QVERIFY(registry.addShortcut(&hotkey));
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    registry.press(kShortcut);
    QCOMPARE(activated.count(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(activated.count(), 1);
    QVERIFY(registry.removeShortcut(&hotkey));
}

void tst_qhotkeyprivate::pressOfAnUnknownShortcutIsIgnored()
{
    FakeRegistry registry;
    QHotkey hotkey(kShortcut);
    QVERIFY(registry.addShortcut(&hotkey));
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    registry.press(NativeShortcut(65, 3));
    registry.press(NativeShortcut());
    QCoreApplication::processEvents();
    QCOMPARE(activated.count(), 0);
    QVERIFY(registry.removeShortcut(&hotkey));
}

void tst_qhotkeyprivate::latestSharerIsFirst()
{
    FakeRegistry registry;
    std::vector<std::unique_ptr<QHotkey>> hotkeys;
    QVector<int> order;
    for (int index = 0; index < 5; ++index) {
        hotkeys.push_back(std::make_unique<QHotkey>(kShortcut));
        connect(hotkeys.back().get(), &QHotkey::activated, this, [&order, index] { order << index; });
        QVERIFY(registry.addShortcut(hotkeys.back().get()));
    }
    registry.press(kShortcut);
    QCoreApplication::processEvents();
    QCOMPARE(order, QVector<int>({4, 3, 2, 1, 0}));

    order.clear();
    QVERIFY(registry.removeShortcut(hotkeys.at(2).get()));
    QVERIFY(registry.addShortcut(hotkeys.at(2).get()));
    registry.press(kShortcut);
    QCoreApplication::processEvents();
    QCOMPARE(order, QVector<int>({2, 4, 3, 1, 0}));
    for (const std::unique_ptr<QHotkey> &hotkey : hotkeys)
        QVERIFY(registry.removeShortcut(hotkey.get()));
}

void tst_qhotkeyprivate::pressIsForgottenWithItsHotkey()
{
    FakeRegistry registry;
    auto hotkey = std::make_unique<QHotkey>(kShortcut);
    QHotkey survivor(kShortcut);
    QVERIFY(registry.addShortcut(hotkey.get()));
    QVERIFY(registry.addShortcut(&survivor));
    int activations = 0;
    connect(hotkey.get(), &QHotkey::activated, this, [&] { activations += 100; });
    connect(&survivor, &QHotkey::activated, this, [&] { ++activations; });
    registry.press(kShortcut);
    QVERIFY(registry.removeShortcut(hotkey.get()));
    hotkey.reset();
    QCoreApplication::processEvents();
    QCOMPARE(activations, 1);
    QVERIFY(registry.removeShortcut(&survivor));
}

void tst_qhotkeyprivate::removalAfterThePressKeepsThePress()
{
    FakeRegistry registry;
    QHotkey hotkey(kShortcut);
    QVERIFY(registry.addShortcut(&hotkey));
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    registry.press(kShortcut);
    QVERIFY(registry.removeShortcut(&hotkey));
    QCoreApplication::processEvents();
    QCOMPARE(activated.count(), 1); // the key was pressed while the hotkey was registered
}

void tst_qhotkeyprivate::slotDeletesTheHotkeyDuringRemoval_data()
{
    QTest::addColumn<bool>("atValue");
    QTest::newRow("first signal") << true;
    QTest::newRow("second signal") << false;
}

void tst_qhotkeyprivate::slotDeletesTheHotkeyDuringRemoval()
{
    QFETCH(bool, atValue);
    FakeRegistry registry;
    const QPointer<QHotkey> hotkey(new QHotkey(kShortcut));
    QVERIFY(registry.addShortcut(hotkey));
    QVector<bool> values;
    connect(hotkey, &QHotkey::registeredChanged, this, [&](bool value) {
        values << value;
        if (value == atValue)
            delete hotkey;
    });
    QVERIFY(registry.removeShortcut(hotkey));
    QVERIFY(!hotkey);
    QCOMPARE(values, atValue ? QVector<bool>({true}) : QVector<bool>({true, false}));
    QCOMPARE(registry.calls, QStringList({kRegister, kUnregister}));
}

void tst_qhotkeyprivate::slotRegistersAgainDuringRemoval()
{
    FakeRegistry registry;
    QHotkey hotkey(kShortcut);
    QVERIFY(registry.addShortcut(&hotkey));
    bool again = true;
    connect(&hotkey, &QHotkey::registeredChanged, this, [&](bool value) {
        if (value && again) {
            again = false;
            QVERIFY(registry.addShortcut(&hotkey));
        }
    });
    QVERIFY(registry.removeShortcut(&hotkey));
    QVERIFY(hotkey.isRegistered());
    QCOMPARE(registry.calls,
             QStringList({kRegister, kRegister})); // somebody stands under the shortcut: it is kept
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    registry.press(kShortcut);
    QCoreApplication::processEvents();
    QCOMPARE(activated.count(), 1);
    QVERIFY(registry.removeShortcut(&hotkey));
    QCOMPARE(registry.calls.last(), kUnregister);
}

void tst_qhotkeyprivate::warnsWhenDestroyedWithHotkeys()
{
    const LogCapture log;
    QHotkey hotkey(kShortcut);
    QStringList calls;
    {
        FakeRegistry registry;
        QVERIFY(registry.addShortcut(&hotkey));
        calls = registry.calls;
    }
    QCOMPARE(log.count(), 1);
    const LogLine line = log.lines().constFirst();
    QCOMPARE(line.type, QtWarningMsg);
    QCOMPARE(line.category, QStringLiteral("QHotkey"));
    QCOMPARE(line.text, QStringLiteral("QHotkeyPrivate destroyed with registered shortcuts!"));
    QVERIFY(line.function.contains(QLatin1String("QHotkeyPrivate::~QHotkeyPrivate()")));
    QCOMPARE(calls, QStringList(kRegister));
    QVERIFY(hotkey.isRegistered()); // nobody has told it
}

void tst_qhotkeyprivate::destroyedEmptyItIsSilent()
{
    const LogCapture log;
    QHotkey hotkey(kShortcut);
    {
        FakeRegistry registry;
        QVERIFY(registry.addShortcut(&hotkey));
        QVERIFY(registry.removeShortcut(&hotkey));
    }
    QCOMPARE(log.count(), 0);
}

void tst_qhotkeyprivate::manyChangesLeaveNothing()
{
    const LogCapture log;
    {
        FakeRegistry registry;
        QHotkey hotkey;
        for (quint32 change = 0; change < 10000; ++change) {
            QVERIFY(hotkey.setNativeShortcut(NativeShortcut(change % 250, change % 16)));
            QVERIFY(registry.addShortcut(&hotkey));
            QVERIFY(registry.removeShortcut(&hotkey));
        }
        QCOMPARE(registry.calls.filter(QStringLiteral("unregister")).size(), 10000);
    }
    QCOMPARE(log.count(), 0); // an entry left in the table would make the registry warn
}

void tst_qhotkeyprivate::manySharersLeaveNothing()
{
    const LogCapture log;
    {
        FakeRegistry registry;
        std::vector<std::unique_ptr<QHotkey>> hotkeys;
        int activations = 0;
        for (int index = 0; index < 1000; ++index) {
            hotkeys.push_back(std::make_unique<QHotkey>(kShortcut));
            connect(hotkeys.back().get(), &QHotkey::activated, this, [&] { ++activations; });
            QVERIFY(registry.addShortcut(hotkeys.back().get()));
        }
        registry.press(kShortcut);
        QCoreApplication::processEvents();
        QCOMPARE(activations, 1000);
        for (const std::unique_ptr<QHotkey> &hotkey : hotkeys)
            QVERIFY(registry.removeShortcut(hotkey.get()));
        QCOMPARE(registry.calls, QStringList({kRegister, kUnregister}));
    }
    QCOMPARE(log.count(), 0);
}

ORV_TEST_MAIN(tst_qhotkeyprivate)
#include "tst_qhotkeyprivate.moc"
