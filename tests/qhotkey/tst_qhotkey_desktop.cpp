#include "logcapture.h"
#include "qhotkey.h"
#include "qhotkey_p.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtCore/QProcess>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <cstdio>
#include <cstdlib>
#include <memory>

using NativeShortcut = QHotkey::NativeShortcut;

namespace {

const Qt::KeyboardModifiers kModifiers = Qt::ControlModifier | Qt::ShiftModifier;
const QKeySequence kFirst(Qt::CTRL | Qt::SHIFT | Qt::Key_F9);
const QKeySequence kSecond(Qt::CTRL | Qt::SHIFT | Qt::Key_F10);
constexpr char kLeaveRegistered[] = "--leave-a-hotkey-registered";
constexpr char kStaticHotkey[] = "--keep-a-static-hotkey";
constexpr char kOutliveApplication[] = "--let-a-hotkey-outlive-the-application";
constexpr char kUseLate[] = "--use-a-hotkey-after-the-registry";

// What was made last is destroyed first; but a program's static objects go before those of its DLLs.
#ifdef Q_OS_WIN
constexpr bool kRegistryGoesFirst = false;
#else
constexpr bool kRegistryGoesFirst = true;
#endif

// Made before main(), the registry in it.
std::unique_ptr<QHotkey> longLived;
QHotkey *volatile immortal = nullptr; // volatile: still reachable in the end, also to a leak checker

// Once armed, ends the process with a failure unless the registry is gone when it should be, and hotkeys then
// fail.
class LateUser
{
public:
    LateUser() = default;
    ~LateUser()
    {
        if (m_armed && !seesWhatItShould())
            std::_Exit(1);
    }
    Q_DISABLE_COPY(LateUser)

    void arm() { m_armed = true; }

private:
    static bool seesWhatItShould()
    {
        if ((QHotkeyPrivate::instance() == nullptr) != kRegistryGoesFirst)
            return false;
        QHotkey hotkey;
        return hotkey.setShortcut(kFirst, true) != kRegistryGoesFirst;
    }

    bool m_armed = false;
};

LateUser lateUser;

} // namespace

// QHotkey's own rules on a system where registering works.
class tst_qhotkey_desktop : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void registersAndUnregisters();
    void constructorsRegister();
    void autoRegisterIsOffByDefault();
    void firstCombinationIsRegistered();
    void registeredHotkeyKeepsItsShortcut();
    void registeredHotkeyChangesItsShortcut();
    void registeredHotkeyTakesANativeShortcut();
    void failedMappingLeavesItUnregistered();
    void unknownKeyUnregisters();
    void resetUnregisters();
    void emptySequenceUnregisters();
    void settingTheSameStateDoesNothing();
    void propertiesRegister();
    void nativeShortcutIsRegistered();
    void sharersKeepTheRegistration();
    void destructorUnregisters();
    void slotDeletesTheHotkey_data();
    void slotDeletesTheHotkey();
    void slotRegistersAgain();
    void processEnds_data();
    void processEnds();
};

void tst_qhotkey_desktop::registersAndUnregisters()
{
    QHotkey hotkey(kFirst);
    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);
    QVERIFY(!hotkey.isRegistered());
    QVERIFY(hotkey.setRegistered(true));
    QVERIFY(hotkey.isRegistered());
    QVERIFY(hotkey.setRegistered(false));
    QVERIFY(!hotkey.isRegistered());
    QCOMPARE(hotkey.shortcut(), kFirst);
    QCOMPARE(changed.count(), 3);
    QCOMPARE(changed.at(0).at(0).toBool(), true);
    QCOMPARE(changed.at(1).at(0).toBool(), true);
    QCOMPARE(changed.at(2).at(0).toBool(), false);
}

void tst_qhotkey_desktop::constructorsRegister()
{
    const QHotkey sequence(kFirst, true);
    QVERIFY(sequence.isRegistered());
    const QHotkey key(Qt::Key_F10, kModifiers, true);
    QVERIFY(key.isRegistered());
    QCOMPARE(key.shortcut(), kSecond);
    const QHotkey modifier(Qt::Key_F10, Qt::ControlModifier, true);
    QVERIFY(modifier.isRegistered());
    QCOMPARE(modifier.shortcut(), QKeySequence(Qt::CTRL | Qt::Key_F10));
    const QHotkey native(key.currentNativeShortcut(), true);
    QVERIFY(native.isRegistered());
    QVERIFY(native.shortcut().isEmpty());
}

void tst_qhotkey_desktop::autoRegisterIsOffByDefault()
{
    QHotkey hotkey(Qt::Key_F10, kModifiers);
    QVERIFY(hotkey.setShortcut(kFirst));
    QVERIFY(hotkey.setShortcut(Qt::Key_F10, kModifiers));
    QVERIFY(hotkey.setShortcut(Qt::Key_F10, Qt::ControlModifier));
    QCOMPARE(hotkey.modifiers(), Qt::KeyboardModifiers(Qt::ControlModifier));
    QVERIFY(hotkey.setNativeShortcut(hotkey.currentNativeShortcut()));
    QVERIFY(!hotkey.isRegistered());
}

void tst_qhotkey_desktop::firstCombinationIsRegistered()
{
    const LogCapture log;
    QHotkey hotkey;
    QVERIFY(hotkey.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_A, Qt::CTRL | Qt::Key_B)));
    QCOMPARE(log.count(), 1);
    QCOMPARE(hotkey.shortcut(), QKeySequence(Qt::CTRL | Qt::Key_A));
    QCOMPARE(hotkey.keyCode(), Qt::Key_A);
    QCOMPARE(hotkey.modifiers(), Qt::KeyboardModifiers(Qt::ControlModifier));
}

void tst_qhotkey_desktop::registeredHotkeyKeepsItsShortcut()
{
    QHotkey hotkey(kFirst, true);
    const NativeShortcut native = hotkey.currentNativeShortcut();
    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);
    QVERIFY(!hotkey.setShortcut(kSecond, false));
    QVERIFY(!hotkey.setShortcut(Qt::Key_unknown, Qt::NoModifier, false));
    QVERIFY(!hotkey.setNativeShortcut(NativeShortcut(), false));
    QVERIFY(hotkey.isRegistered());
    QCOMPARE(hotkey.shortcut(), kFirst);
    QVERIFY(hotkey.currentNativeShortcut() == native);
    QCOMPARE(changed.count(), 0);
}

void tst_qhotkey_desktop::registeredHotkeyChangesItsShortcut()
{
    QHotkey hotkey(kFirst, true);
    const NativeShortcut native = hotkey.currentNativeShortcut();
    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);
    QVERIFY(hotkey.setShortcut(kSecond, true));
    QVERIFY(hotkey.isRegistered());
    QCOMPARE(hotkey.shortcut(), kSecond);
    QVERIFY(hotkey.currentNativeShortcut() != native);
    QCOMPARE(changed.count(), 3);
    QCOMPARE(changed.at(1).at(0).toBool(), false);
    QCOMPARE(changed.at(2).at(0).toBool(), true);
}

void tst_qhotkey_desktop::registeredHotkeyTakesANativeShortcut()
{
    const QHotkey other(kSecond);
    QHotkey hotkey(kFirst, true);
    QVERIFY(hotkey.setNativeShortcut(other.currentNativeShortcut(), true));
    QVERIFY(hotkey.isRegistered());
    QVERIFY(hotkey.currentNativeShortcut() == other.currentNativeShortcut());
    QCOMPARE(hotkey.keyCode(), Qt::Key_unknown);

    QVERIFY(hotkey.setNativeShortcut(NativeShortcut(), true));
    QVERIFY(!hotkey.isRegistered());
    QVERIFY(hotkey.currentNativeShortcut() == NativeShortcut());
}

void tst_qhotkey_desktop::failedMappingLeavesItUnregistered()
{
    QHotkey hotkey(kFirst, true);
    const LogCapture log;
    QVERIFY(!hotkey.setShortcut(Qt::Key_SysReq, Qt::ControlModifier, true));
    QVERIFY(!hotkey.isRegistered());
    QVERIFY(hotkey.shortcut().isEmpty());
    QCOMPARE(log.count(), 2);
}

void tst_qhotkey_desktop::unknownKeyUnregisters()
{
    QHotkey hotkey(kFirst, true);
    QVERIFY(hotkey.setShortcut(Qt::Key_unknown, Qt::NoModifier, true));
    QVERIFY(!hotkey.isRegistered());
    QVERIFY(!hotkey.currentNativeShortcut().isValid());
}

void tst_qhotkey_desktop::resetUnregisters()
{
    QHotkey hotkey(kFirst, true);
    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);
    QVERIFY(hotkey.resetShortcut());
    QVERIFY(!hotkey.isRegistered());
    QVERIFY(hotkey.shortcut().isEmpty());
    QVERIFY(!hotkey.currentNativeShortcut().isValid());
    QCOMPARE(changed.count(), 2);
}

void tst_qhotkey_desktop::emptySequenceUnregisters()
{
    QHotkey hotkey(kFirst, true);
    QVERIFY(hotkey.setShortcut(QKeySequence(), false)); // resetting needs no autoRegister
    QVERIFY(!hotkey.isRegistered());
}

void tst_qhotkey_desktop::settingTheSameStateDoesNothing()
{
    QHotkey hotkey(kFirst, true);
    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);
    QVERIFY(hotkey.setRegistered(true));
    QCOMPARE(changed.count(), 0);
    QVERIFY(hotkey.setRegistered(false));
    QCOMPARE(changed.count(), 2);
    QVERIFY(hotkey.setRegistered(false));
    QCOMPARE(changed.count(), 2);
}

void tst_qhotkey_desktop::propertiesRegister()
{
    QHotkey hotkey;
    QVERIFY(hotkey.setProperty("shortcut", QVariant::fromValue(kFirst)));
    QCOMPARE(hotkey.property("shortcut").value<QKeySequence>(), kFirst);
    QVERIFY(hotkey.setProperty("registered", true));
    QVERIFY(hotkey.property("registered").toBool());
    QVERIFY(hotkey.setProperty("registered", false));
    QVERIFY(!hotkey.isRegistered());
}

void tst_qhotkey_desktop::nativeShortcutIsRegistered()
{
    const QHotkey mapped(kFirst);
    QHotkey hotkey(mapped.currentNativeShortcut(), true);
    QVERIFY(hotkey.isRegistered());
    QCOMPARE(hotkey.keyCode(), Qt::Key_unknown);
    QVERIFY(hotkey.shortcut().isEmpty());
}

void tst_qhotkey_desktop::sharersKeepTheRegistration()
{
    QHotkey first(kFirst, true);
    QHotkey second(kFirst, true);
    QVERIFY(first.isRegistered() && second.isRegistered());
    QVERIFY(first.setRegistered(false));
    QVERIFY(second.isRegistered());
    QVERIFY(first.setRegistered(true));
    QVERIFY(second.setRegistered(false));
    QVERIFY(first.setRegistered(false));
}

void tst_qhotkey_desktop::destructorUnregisters()
{
    QVector<bool> values;
    {
        QHotkey hotkey(kFirst, true);
        connect(&hotkey, &QHotkey::registeredChanged, this, [&](bool value) { values << value; });
    }
    QCOMPARE(values, QVector<bool>({true, false}));
}

void tst_qhotkey_desktop::slotDeletesTheHotkey_data()
{
    QTest::addColumn<int>("setter");
    QTest::addColumn<bool>("atValue");
    for (int setter = 0; setter < 4; ++setter) {
        QTest::addRow("setter %d, first signal", setter) << setter << true;
        QTest::addRow("setter %d, second signal", setter) << setter << false;
    }
}

void tst_qhotkey_desktop::slotDeletesTheHotkey()
{
    QFETCH(int, setter);
    QFETCH(bool, atValue);
    const QPointer<QHotkey> hotkey(new QHotkey(kFirst, true));
    connect(hotkey, &QHotkey::registeredChanged, this, [&](bool value) {
        if (value == atValue)
            delete hotkey;
    });
    if (setter == 0)
        QVERIFY(!hotkey->setShortcut(kSecond, true));
    else if (setter == 1)
        QVERIFY(!hotkey->setNativeShortcut(NativeShortcut(1, 1), true));
    else if (setter == 2)
        QVERIFY(!hotkey->resetShortcut());
    else
        QVERIFY(hotkey->setRegistered(false));
    QVERIFY(!hotkey);
}

// What a slot has registered again keeps its shortcut: a change under a registration would tear them apart.
void tst_qhotkey_desktop::slotRegistersAgain()
{
    QHotkey hotkey(kFirst, true);
    bool again = true;
    connect(&hotkey, &QHotkey::registeredChanged, this, [&](bool value) {
        if (!value && again) {
            again = false;
            QVERIFY(hotkey.setRegistered(true));
        }
    });
    QVERIFY(!hotkey.setShortcut(kSecond, true));
    QVERIFY(hotkey.isRegistered());
    QCOMPARE(hotkey.shortcut(), kFirst);
    QVERIFY(hotkey.setShortcut(kSecond, true));
    QCOMPARE(hotkey.shortcut(), kSecond);
}

void tst_qhotkey_desktop::processEnds_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QByteArray>("complaint");
    const QByteArray none;
    const QByteArray leftRegistered("QHotkeyPrivate destroyed with registered shortcuts!");
    const QByteArray unmappable("Unable to map shortcut to native keys.");
    QTest::newRow("hotkey left registered") << kLeaveRegistered << leftRegistered;
    QTest::newRow("hotkey of a static object")
        << kStaticHotkey << (kRegistryGoesFirst ? leftRegistered : none);
    QTest::newRow("hotkey outlives the application") << kOutliveApplication << none;
    QTest::newRow("hotkey comes after the registry") << kUseLate << (kRegistryGoesFirst ? unmappable : none);
}

void tst_qhotkey_desktop::processEnds()
{
    QFETCH(QString, mode);
    QFETCH(QByteArray, complaint);
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {mode});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    const QByteArray output = process.readAllStandardError();
    QVERIFY2(output.contains(complaint), output.constData());
    QCOMPARE(output.count("QHotkey: "), complaint.isEmpty() ? 0 : 1);
}

// The child processes of processEnds(): 0 when the hotkey was registered.
static int leaveRegistered(int argc, char **argv)
{
    const QApplication application(argc, argv);
    immortal = new QHotkey(kFirst, true);
    return immortal->isRegistered() ? 0 : 1;
}

static int keepStatic(int argc, char **argv)
{
    const QApplication application(argc, argv);
    longLived = std::make_unique<QHotkey>(kFirst, true);
    return longLived->isRegistered() ? 0 : 1;
}

static int outliveApplication(int argc, char **argv)
{
    auto application = std::make_unique<QApplication>(argc, argv);
    QHotkey hotkey(kFirst, true);
    const bool registered = hotkey.isRegistered();
    application.reset();
    return registered && hotkey.setRegistered(false) && !hotkey.isRegistered() ? 0 : 1;
}

static int useLate(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QHotkey hotkey(kFirst, true);
    lateUser.arm();
    return hotkey.isRegistered() ? 0 : 1;
}

int main(int argc, char **argv)
{
    const QByteArray mode(argc > 1 ? argv[1] : "");
    if (mode == kLeaveRegistered)
        return leaveRegistered(argc, argv);
    if (mode == kStaticHotkey)
        return keepStatic(argc, argv);
    if (mode == kOutliveApplication)
        return outliveApplication(argc, argv);
    if (mode == kUseLate)
        return useLate(argc, argv);
    QApplication application(argc, argv);
    tst_qhotkey_desktop test;
    return TestMain::run(&test, argc, argv);
}

#include "tst_qhotkey_desktop.moc"
