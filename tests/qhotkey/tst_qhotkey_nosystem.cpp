#include "logcapture.h"
#include "qhotkey.h"
#include "qhotkey_p.h"
#include "testmain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <functional>

using NativeShortcut = QHotkey::NativeShortcut;

Q_DECLARE_METATYPE(std::function<bool(QHotkey *)>)

// A platform without global hotkeys: nothing is known, nothing is registered, and the log says why.
class tst_qhotkey_nosystem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void registrationSaysWhyItFails_data();
    void registrationSaysWhyItFails();
    void constructorsSayWhyTheyFail();
    void mappingFails_data();
    void mappingFails();
};

static QStringList platformWarnings(const LogCapture &log)
{
    QStringList warnings;
    const QVector<LogLine> lines = log.lines();
    for (const LogLine &line : lines) {
        if (line.type == QtWarningMsg && line.category == QLatin1String("QHotkey") &&
            line.function.contains(QLatin1String("::registerShortcut(")))
            warnings << line.text;
    }
    return warnings;
}

static QStringList oneWarning()
{
    return {QStringLiteral("Failed to register hotkey. Error: there are no global hotkeys on the platform "
                           "\"offscreen\"")};
}

void tst_qhotkey_nosystem::registrationSaysWhyItFails_data()
{
    QTest::addColumn<std::function<bool(QHotkey *)>>("ask");
    QTest::addColumn<bool>("isMapped"); // by the registry, or given in the system's form
    const auto row = [](const char *name, bool isMapped, const std::function<bool(QHotkey *)> &ask) {
        QTest::newRow(name) << ask << isMapped;
    };
    row("sequence", true,
        [](QHotkey *hotkey) { return hotkey->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_A), true); });
    row("key and modifiers", true, [](QHotkey *hotkey) {
        return hotkey->setShortcut(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier, true);
    });
    row("key and modifier", true,
        [](QHotkey *hotkey) { return hotkey->setShortcut(Qt::Key_A, Qt::ControlModifier, true); });
    row("a key of no system", true,
        [](QHotkey *hotkey) { return hotkey->setShortcut(Qt::Key_SysReq, Qt::ControlModifier, true); });
    row("native shortcut", false,
        [](QHotkey *hotkey) { return hotkey->setNativeShortcut(NativeShortcut(0x61, 4), true); });
    row("later", false, [](QHotkey *hotkey) {
        return hotkey->setNativeShortcut(NativeShortcut(0x61, 4)) && hotkey->setRegistered(true);
    });
    row("property", false, [](QHotkey *hotkey) {
        return hotkey->setNativeShortcut(NativeShortcut(0x61, 4)) &&
               hotkey->setProperty("registered", true) && hotkey->isRegistered();
    });
}

void tst_qhotkey_nosystem::registrationSaysWhyItFails()
{
    using Ask = std::function<bool(QHotkey *)>;
    QFETCH(Ask, ask);
    QFETCH(bool, isMapped);
    QHotkey hotkey;
    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);
    for (int time = 0; time < 2; ++time) {
        const LogCapture log;
        QVERIFY(!ask(&hotkey));
        QCOMPARE(platformWarnings(log), oneWarning());
        QCOMPARE(log.count(), isMapped ? 3 : 1); // the mapping has failed, too
        QVERIFY(!hotkey.isRegistered());
    }
    QCOMPARE(changed.count(), 0);
    QVERIFY(hotkey.currentNativeShortcut() == (isMapped ? NativeShortcut() : NativeShortcut(0x61, 4)));
}

void tst_qhotkey_nosystem::constructorsSayWhyTheyFail()
{
    const LogCapture log;
    const QHotkey sequence(QKeySequence(Qt::CTRL | Qt::Key_A), true);
    const QHotkey modifiers(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier, true);
    const QHotkey modifier(Qt::Key_A, Qt::ControlModifier, true);
    const QHotkey native(NativeShortcut(0x61, 4), true);
    QCOMPARE(platformWarnings(log), oneWarning() + oneWarning() + oneWarning() + oneWarning());
}

void tst_qhotkey_nosystem::mappingFails_data()
{
    QTest::addColumn<int>("key");
    for (const Qt::Key key :
         {Qt::Key_A, Qt::Key_1, Qt::Key_F1, Qt::Key_Space, Qt::Key_Return, Qt::Key_MediaPlay})
        QTest::addRow("%x", static_cast<unsigned>(key)) << int(key);
}

void tst_qhotkey_nosystem::mappingFails()
{
    QFETCH(int, key);
    const auto qtKey = static_cast<Qt::Key>(key);
    QHotkey hotkey(NativeShortcut(1, 2));
    const LogCapture log;
    QVERIFY(!QHotkeyPrivate::instance()->nativeShortcut(qtKey, Qt::NoModifier).isValid());
    QCOMPARE(log.count(), 1);
    QVERIFY(!hotkey.setShortcut(qtKey, Qt::ControlModifier));
    QCOMPARE(log.count(), 3);
    QVERIFY(
        log.texts().constLast().startsWith(QLatin1String("Unable to map shortcut to native keys. Key: ")));
    QVERIFY(hotkey.shortcut().isEmpty());
    QCOMPARE(hotkey.keyCode(), Qt::Key_unknown);
    QVERIFY(!hotkey.currentNativeShortcut().isValid());
    QCOMPARE(platformWarnings(log), QStringList()); // nobody has asked for a registration
}

ORV_TEST_MAIN(tst_qhotkey_nosystem)
#include "tst_qhotkey_nosystem.moc"
