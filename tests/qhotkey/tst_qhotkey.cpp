#include "logcapture.h"
#include "qhotkey.h"
#include "qhotkey_p.h"
#include "testmain.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QMetaProperty>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <type_traits>

using NativeShortcut = QHotkey::NativeShortcut;

static_assert(std::is_base_of<QObject, QHotkeyPrivate>::value, "the registry is a QObject");
static_assert(std::is_base_of<QAbstractNativeEventFilter, QHotkeyPrivate>::value,
              "the registry watches native events");
static_assert(std::is_abstract<QHotkeyPrivate>::value, "the registry needs a backend");
static_assert(std::is_nothrow_move_assignable<NativeShortcut>::value, "a native shortcut is a plain value");

class tst_qhotkey : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nativeShortcutIsInvalidByDefault();
    void nativeShortcutHoldsItsCodes();
    void nativeShortcutsCompare_data();
    void nativeShortcutsCompare();
    void nativeShortcutIsCopied();
    void hashIgnoresTheSeed_data();
    void hashIgnoresTheSeed();

    void categoryIsNamed();
    void methodsOfHotkey();
    void propertiesOfHotkey();
    void methodsOfRegistry();
    void registryIsOne();

    void startsEmpty();
    void constructorsTakeTheirShortcut();
    void emptySequenceResets();
    void unknownKeyClears();
    void onlyTheFirstCombinationCounts();
    void unmappableKeyClearsAndWarns_data();
    void unmappableKeyClearsAndWarns();
    void nativeShortcutHidesQtsForm();
    void invalidNativeShortcutEmpties();
    void emptyHotkeyIsNotRegistered();
    void unregisteringTheUnregisteredIsDone();
    void propertiesReachTheSetters();
    void registryRefusesNothing();
};

void tst_qhotkey::nativeShortcutIsInvalidByDefault()
{
    const NativeShortcut shortcut;
    QCOMPARE(shortcut.key, 0U);
    QCOMPARE(shortcut.modifier, 0U);
    QCOMPARE(shortcut.valid, false);
    QVERIFY(!shortcut.isValid());
}

void tst_qhotkey::nativeShortcutHoldsItsCodes()
{
    const NativeShortcut shortcut(0xfffffffeU, 0x80000001U);
    QCOMPARE(shortcut.key, 0xfffffffeU);
    QCOMPARE(shortcut.modifier, 0x80000001U);
    QVERIFY(shortcut.isValid());
    QVERIFY(NativeShortcut(0, 0).isValid());
}

void tst_qhotkey::nativeShortcutsCompare_data()
{
    QTest::addColumn<NativeShortcut>("left");
    QTest::addColumn<NativeShortcut>("right");
    QTest::addColumn<bool>("equal");

    QTest::newRow("same") << NativeShortcut(65, 2) << NativeShortcut(65, 2) << true;
    QTest::newRow("other key") << NativeShortcut(65, 2) << NativeShortcut(66, 2) << false;
    QTest::newRow("other modifier") << NativeShortcut(65, 2) << NativeShortcut(65, 3) << false;
    QTest::newRow("other validity") << NativeShortcut(0, 0) << NativeShortcut() << false;
    QTest::newRow("both invalid") << NativeShortcut() << NativeShortcut() << true;
    QTest::newRow("exchanged") << NativeShortcut(1, 2) << NativeShortcut(2, 1) << false;
}

void tst_qhotkey::nativeShortcutsCompare()
{
    QFETCH(NativeShortcut, left);
    QFETCH(NativeShortcut, right);
    QFETCH(bool, equal);

    QCOMPARE(left == right, equal);
    QCOMPARE(right == left, equal);
    QCOMPARE(left != right, !equal);
    QCOMPARE(right != left, !equal);
    if (equal)
        QCOMPARE(qHash(left), qHash(right));
}

void tst_qhotkey::nativeShortcutIsCopied()
{
    const NativeShortcut original(7, 9);
    NativeShortcut copy;
    copy = original;
    QVERIFY(copy == original);
    copy = NativeShortcut();
    QVERIFY(copy == NativeShortcut());
}

void tst_qhotkey::hashIgnoresTheSeed_data()
{
    QTest::addColumn<uint>("seed");
    QTest::newRow("zero") << 0U;
    QTest::newRow("one") << 1U;
    QTest::newRow("many bits") << 0xdeadbeefU;
    QTest::newRow("all bits") << 0xffffffffU;
}

void tst_qhotkey::hashIgnoresTheSeed()
{
    QFETCH(uint, seed);
    QCOMPARE(qHash(NativeShortcut(0x41, 0x6), seed), 0x47U);
    QCOMPARE(qHash(NativeShortcut(0x41, 0x6)), 0x47U);
    QCOMPARE(qHash(NativeShortcut(), seed), 0U);
    QCOMPARE(qHash(NativeShortcut(0xffffffffU, 0x0000ffffU), seed), 0xffff0000U);
}

void tst_qhotkey::categoryIsNamed()
{
    QCOMPARE(logQHotkey().categoryName(), "QHotkey");
    QCOMPARE(&logQHotkey(), &logQHotkey());
    const QLoggingCategory stock("a category with Qt's default levels");
    QCOMPARE(logQHotkey().isDebugEnabled(), stock.isDebugEnabled());
    QVERIFY(logQHotkey().isInfoEnabled());
    QVERIFY(logQHotkey().isWarningEnabled());
}

static QStringList methods(const QMetaObject &meta, QMetaMethod::MethodType type, QMetaMethod::Access access)
{
    QStringList result;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        const QMetaMethod method = meta.method(index);
        if (method.methodType() == type && method.access() == access) {
            result << QLatin1String(method.typeName()) + QLatin1Char(' ') +
                          QString::fromLatin1(method.methodSignature());
        }
    }
    return result;
}

void tst_qhotkey::methodsOfHotkey()
{
    const QMetaObject &meta = QHotkey::staticMetaObject;
    QCOMPARE(meta.className(), "QHotkey");
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    const QStringList expectedSignals{QStringLiteral("void activated()"),
                                      QStringLiteral("void registeredChanged(bool)")};
    QCOMPARE(methods(meta, QMetaMethod::Signal, QMetaMethod::Public), expectedSignals);
    const QStringList expectedSlots{
        QStringLiteral("bool setRegistered(bool)"),
        QStringLiteral("bool setShortcut(QKeySequence,bool)"),
        QStringLiteral("bool setShortcut(QKeySequence)"),
        QStringLiteral("bool setShortcut(Qt::Key,Qt::KeyboardModifiers,bool)"),
        QStringLiteral("bool setShortcut(Qt::Key,Qt::KeyboardModifiers)"),
        QStringLiteral("bool resetShortcut()"),
        QStringLiteral("bool setNativeShortcut(QHotkey::NativeShortcut,bool)"),
        QStringLiteral("bool setNativeShortcut(QHotkey::NativeShortcut)"),
    };
    QCOMPARE(methods(meta, QMetaMethod::Slot, QMetaMethod::Public), expectedSlots);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), expectedSignals.size() + expectedSlots.size());
}

void tst_qhotkey::propertiesOfHotkey()
{
    const QMetaObject &meta = QHotkey::staticMetaObject;
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 2);

    const QMetaProperty registered = meta.property(meta.propertyOffset());
    QCOMPARE(registered.name(), "registered");
    QCOMPARE(registered.typeName(), "bool");
    QVERIFY(registered.isWritable());
    QVERIFY(!registered.isResettable());
    QCOMPARE(registered.notifySignal().methodSignature(), QByteArrayLiteral("registeredChanged(bool)"));

    const QMetaProperty shortcut = meta.property(meta.propertyOffset() + 1);
    QCOMPARE(shortcut.name(), "shortcut");
    QCOMPARE(shortcut.typeName(), "QKeySequence");
    QVERIFY(shortcut.isWritable());
    QVERIFY(shortcut.isResettable());
    QVERIFY(!shortcut.hasNotifySignal());
}

void tst_qhotkey::methodsOfRegistry()
{
    const QMetaObject &meta = QHotkeyPrivate::staticMetaObject;
    QCOMPARE(meta.className(), "QHotkeyPrivate");
    const QStringList expected{
        QStringLiteral("bool addShortcutInvoked(QHotkey*)"),
        QStringLiteral("bool removeShortcutInvoked(QHotkey*)"),
        QStringLiteral("QHotkey::NativeShortcut nativeShortcutInvoked(Qt::Key,Qt::KeyboardModifiers)"),
    };
    QCOMPARE(methods(meta, QMetaMethod::Method, QMetaMethod::Private), expected);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), expected.size());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void tst_qhotkey::registryIsOne()
{
    QHotkeyPrivate *registry = QHotkeyPrivate::instance();
    QVERIFY(registry);
    QCOMPARE(QHotkeyPrivate::instance(), registry);
    QCOMPARE(registry->thread(), QCoreApplication::instance()->thread());
    QVERIFY(!registry->parent());
}

void tst_qhotkey::startsEmpty()
{
    QObject parent;
    const QHotkey hotkey(&parent);
    QCOMPARE(hotkey.parent(), &parent);
    QCOMPARE(hotkey.keyCode(), Qt::Key_unknown);
    QCOMPARE(hotkey.modifiers(), Qt::KeyboardModifiers(Qt::NoModifier));
    QVERIFY(hotkey.shortcut().isEmpty());
    QVERIFY(hotkey.currentNativeShortcut() == NativeShortcut());
    QVERIFY(!hotkey.isRegistered());
}

void tst_qhotkey::constructorsTakeTheirShortcut()
{
    QObject parent;
    const QHotkey native(NativeShortcut(123, 4), false, &parent);
    QVERIFY(native.currentNativeShortcut() == NativeShortcut(123, 4));
    QVERIFY(!native.isRegistered());
    QCOMPARE(native.parent(), &parent);

    const LogCapture log;
    const QHotkey sequence(QKeySequence(Qt::CTRL | Qt::Key_SysReq), false, &parent);
    QCOMPARE(sequence.parent(), &parent);
    QCOMPARE(log.count(), 2); // it went through setShortcut(), whose result is lost
    const QHotkey key(Qt::Key_SysReq, Qt::ShiftModifier | Qt::AltModifier, false, &parent);
    QCOMPARE(key.parent(), &parent);
    QCOMPARE(log.count(), 4);
    const QHotkey modifier(Qt::Key_SysReq, Qt::ShiftModifier, false, &parent);
    QCOMPARE(modifier.parent(), &parent);
    QCOMPARE(log.count(), 6);
    QVERIFY2(log.texts().constLast().endsWith(QLatin1String("(ShiftModifier)")),
             qPrintable(log.texts().constLast()));
}

void tst_qhotkey::emptySequenceResets()
{
    QHotkey hotkey(NativeShortcut(1, 2));
    const LogCapture log;
    QVERIFY(hotkey.setShortcut(QKeySequence(), true));
    QVERIFY(hotkey.currentNativeShortcut() == NativeShortcut());
    QVERIFY(!hotkey.isRegistered());
    QCOMPARE(log.count(), 0);
}

void tst_qhotkey::unknownKeyClears()
{
    QHotkey hotkey(NativeShortcut(1, 2));
    const LogCapture log;
    QVERIFY(hotkey.setShortcut(Qt::Key_unknown, Qt::ControlModifier, true));
    QVERIFY(hotkey.currentNativeShortcut() == NativeShortcut());
    QCOMPARE(hotkey.modifiers(), Qt::KeyboardModifiers(Qt::NoModifier));
    QVERIFY(!hotkey.isRegistered());
    QCOMPARE(log.count(), 0);
}

void tst_qhotkey::onlyTheFirstCombinationCounts()
{
    QHotkey hotkey;
    const LogCapture log;
    QVERIFY(!hotkey.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_SysReq, Qt::CTRL | Qt::Key_B)));
    const QVector<LogLine> lines = log.lines();
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.at(0).type, QtWarningMsg);
    QCOMPARE(lines.at(0).category, QStringLiteral("QHotkey"));
    QCOMPARE(lines.at(0).text, QStringLiteral("Keysequences with multiple shortcuts are not allowed! "
                                              "Only the first shortcut will be used!"));
    QVERIFY(lines.at(0).function.contains(QLatin1String("QHotkey::setShortcut(")));
    QVERIFY(lines.at(0).file.endsWith(QLatin1String("qhotkey/qhotkey.cpp")));
    QVERIFY(lines.at(2).text.contains(QLatin1String("Key_SysReq")));
}

void tst_qhotkey::unmappableKeyClearsAndWarns_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QString>("printed");
    QTest::newRow("none") << Qt::KeyboardModifiers() << "NoModifier";
    QTest::newRow("shift") << Qt::KeyboardModifiers(Qt::ShiftModifier) << "ShiftModifier";
    QTest::newRow("ctrl and alt") << (Qt::ControlModifier | Qt::AltModifier) << "ControlModifier|AltModifier";
}

void tst_qhotkey::unmappableKeyClearsAndWarns()
{
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QString, printed);

    QHotkey hotkey(NativeShortcut(1, 2));
    const LogCapture log;
    QVERIFY(!hotkey.setShortcut(Qt::Key_SysReq, modifiers));
    QVERIFY(hotkey.shortcut().isEmpty());
    QCOMPARE(hotkey.keyCode(), Qt::Key_unknown);
    QCOMPARE(hotkey.modifiers(), Qt::KeyboardModifiers(Qt::NoModifier));
    QVERIFY(hotkey.currentNativeShortcut() == NativeShortcut());
    QVERIFY(!hotkey.isRegistered());

    const QVector<LogLine> lines = log.lines();
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.at(0).type, QtInfoMsg);
    QCOMPARE(lines.at(0).category, QStringLiteral("default"));
    QCOMPARE(lines.at(0).text,
             QStringLiteral("QHotkeyPrivate::nativeShortcutInvoked -- nativeKeycode return: false "
                            "--nativeModifiers return: true"));
    QVERIFY(lines.at(0).function.contains(QLatin1String("QHotkeyPrivate::nativeShortcutInvoked(")));
    QCOMPARE(lines.at(1).type, QtWarningMsg);
    QCOMPARE(lines.at(1).category, QStringLiteral("QHotkey"));
    QCOMPARE(lines.at(1).text,
             QStringLiteral("Unable to map shortcut to native keys. Key: Qt::Key_SysReq Modifiers: "
                            "QFlags<Qt::KeyboardModifier>(%1)")
                 .arg(printed));
    QVERIFY(lines.at(1).function.contains(QLatin1String("QHotkey::setShortcut(")));
}

void tst_qhotkey::nativeShortcutHidesQtsForm()
{
    QHotkey hotkey;
    QVERIFY(hotkey.setNativeShortcut(NativeShortcut(0x41, 2)));
    QVERIFY(hotkey.currentNativeShortcut() == NativeShortcut(0x41, 2));
    QCOMPARE(hotkey.keyCode(), Qt::Key_unknown);
    QCOMPARE(hotkey.modifiers(), Qt::KeyboardModifiers(Qt::NoModifier));
    QVERIFY(hotkey.shortcut().isEmpty());
    QVERIFY(!hotkey.isRegistered());
}

void tst_qhotkey::invalidNativeShortcutEmpties()
{
    QHotkey hotkey(NativeShortcut(1, 2));
    NativeShortcut invalid(77, 88);
    invalid.valid = false;
    QVERIFY(hotkey.setNativeShortcut(invalid, true));
    QVERIFY(hotkey.currentNativeShortcut() == NativeShortcut());
    QVERIFY(hotkey.shortcut().isEmpty());
    QVERIFY(!hotkey.isRegistered());
}

void tst_qhotkey::emptyHotkeyIsNotRegistered()
{
    QHotkey hotkey;
    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);
    const LogCapture log;
    QVERIFY(!hotkey.setRegistered(true));
    QVERIFY(!hotkey.isRegistered());
    QCOMPARE(changed.count(), 0);
    QCOMPARE(log.count(), 0);
}

void tst_qhotkey::unregisteringTheUnregisteredIsDone()
{
    QHotkey hotkey(NativeShortcut(1, 2));
    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);
    QVERIFY(hotkey.setRegistered(false));
    QVERIFY(hotkey.resetShortcut());
    QVERIFY(hotkey.setRegistered(false));
    QCOMPARE(changed.count(), 0);
}

void tst_qhotkey::propertiesReachTheSetters()
{
    QHotkey hotkey(NativeShortcut(1, 2));
    const QMetaObject &meta = QHotkey::staticMetaObject;
    const QMetaProperty shortcut = meta.property(meta.indexOfProperty("shortcut"));
    QVERIFY(shortcut.reset(&hotkey));
    QVERIFY(!hotkey.currentNativeShortcut().isValid());

    QVERIFY(hotkey.setNativeShortcut(NativeShortcut(1, 2)));
    QVERIFY(hotkey.setProperty("shortcut", QVariant::fromValue(QKeySequence())));
    QVERIFY(!hotkey.currentNativeShortcut().isValid());
    QVERIFY(hotkey.setProperty("registered", true)); // the write itself cannot fail; the hotkey is empty
    QCOMPARE(hotkey.property("registered").toBool(), false);
}

void tst_qhotkey::registryRefusesNothing()
{
    const LogCapture log;
    QVERIFY(!QHotkeyPrivate::instance()->addShortcut(nullptr));
    QVERIFY(!QHotkeyPrivate::instance()->removeShortcut(nullptr));
    QHotkey hotkey(NativeShortcut(1, 2));
    QVERIFY(!QHotkeyPrivate::instance()->removeShortcut(&hotkey));
    QCOMPARE(log.count(), 0);
}

ORV_TEST_MAIN(tst_qhotkey)
#include "tst_qhotkey.moc"
