#include "logcapture.h"
#include "qhotkey.h"
#include "seed.h"
#include "testmain.h"
#include "xclient.h"
#include "xpointer.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QEventLoop>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include <xkbcommon/xkbcommon-keysyms.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <random>
#include <vector>

using NativeShortcut = QHotkey::NativeShortcut;

namespace {

constexpr int kCtrlShift = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT;
constexpr int kNumLock = XCB_MOD_MASK_2;
constexpr int kScrollLock =
    XCB_MOD_MASK_3; // has no modifier in the usual layouts: the tests give it this one
constexpr xcb_keycode_t kSpareKeycode = 93;
constexpr xcb_keycode_t kControlKeycode = 37;
constexpr std::chrono::milliseconds kLongerThanPatience(1500); // of a caller who finds no event loop
const QVector<int> kNothing;
const QVector<int> kAllFourLocks{0, XCB_MOD_MASK_LOCK, kNumLock, XCB_MOD_MASK_LOCK | kNumLock};

// Delivers an event as if the platform plugin had just received it.
bool filter(void *event, const QByteArray &type = QByteArrayLiteral("xcb_generic_event_t"))
{
    long result = 12345;
    const bool consumed = QAbstractEventDispatcher::instance()->filterNativeEvent(type, event, &result);
    return consumed || result != 12345;
}

xcb_key_press_event_t keyPress(int keycode, int modifiers)
{
    xcb_key_press_event_t event{};
    event.response_type = XCB_KEY_PRESS;
    event.detail = static_cast<xcb_keycode_t>(keycode);
    event.state = static_cast<uint16_t>(modifiers);
    return event;
}

} // namespace

// Real grabs on a real server, pressed by xdotool and looked at by a second client.
class tst_qhotkey_x11 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void pressActivatesWhileAnotherProgramHasTheFocus();
    void pressActivatesWhileOwnWindowHasTheFocus();
    void locksDoNotMatter_data();
    void locksDoNotMatter();
    void holdsEveryCombinationOfTheLocks();
    void otherModifiersDoNotActivate();
    void sharersFireOnceEach();
    void twoSymbolsOnOneKeyBothFire();

    void heldByAnotherClientIsRefused_data();
    void heldByAnotherClientIsRefused();
    void releasedByTheOtherClientIsTaken();
    void symbolWithoutKeyIsRefused_data();
    void symbolWithoutKeyIsRefused();
    void unknownModifiersAreRefused();
    void unregisteringFreesTheKey();
    void destructionFreesTheKey();

    void grabsMoveWithTheLayout();
    void grabsSwapWithTheLayout();
    void grabsComeBackWithTheLayout();
    void grabsFollowTheLockModifiers();
    void movedGrabMeetsAnotherClient();
    void mappingFollowsTheLayoutAtOnce();
    void grabsMoveWithASwitchOfLayout();
    void symbolOfAnotherLayoutKeepsItsKey();
    void everyKeyOfTheSymbolIsGrabbed_data();
    void everyKeyOfTheSymbolIsGrabbed();
    void allKeysOfTheSymbolOrNone();
    void bothSpellingsAreOneKey();

    void lostGrabIsTakenWithTheNextChange();
    void lostGrabIsTakenByTheNextHotkey();
    void lostGrabLeavesNothingBehind_data();
    void lostGrabLeavesNothingBehind();
    void noOrderLeavesAnything();

    void everyMessageIsPassedOn();
    void madeUpEventsAreIgnored();
    void heldKeysRepeat();
    void manyChangesLeaveNothing();
    void manySharersLeaveNothing();

    void threadsShareTheServer();
    void hotkeyDiesWhileTheLoopIsBusy();
    void hotkeyDiesWhileNobodyAnswers(); // last: the application's loop has ended then

private:
    std::unique_ptr<XClient> m_other;
};

void tst_qhotkey_x11::initTestCase()
{
    XClient().setLayout(QStringLiteral("us"));
    XPointer::key(QStringLiteral("F12")); // the server tells of the keyboard that xdotool presses
}

void tst_qhotkey_x11::init()
{
    m_other = std::make_unique<XClient>();
    QCOMPARE(m_other->modifierState(), 0);
}

void tst_qhotkey_x11::cleanup()
{
    m_other.reset();
    QCoreApplication::processEvents();
}

void tst_qhotkey_x11::pressActivatesWhileAnotherProgramHasTheFocus()
{
    m_other->focusWindow();
    QHotkey hotkey(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_A), true);
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    XPointer::key(QStringLiteral("ctrl+shift+a"));
    QTRY_COMPARE(activated.count(), 1);
    QVERIFY(
        !m_other->pressedKeycodes().contains(m_other->keycode(XKB_KEY_a))); // the key is the hotkey's alone

    QVERIFY(hotkey.setRegistered(false));
    XPointer::key(QStringLiteral("ctrl+shift+a"));
    QTRY_VERIFY(m_other->pressedKeycodes().contains(m_other->keycode(XKB_KEY_a)));
    QCOMPARE(activated.count(), 1);
}

void tst_qhotkey_x11::pressActivatesWhileOwnWindowHasTheFocus()
{
    QLineEdit edit;
    QVERIFY(XPointer::showAndWait(&edit));
    QTRY_VERIFY(edit.hasFocus());
    const QSignalSpy focusChanged(qApp, &QApplication::focusChanged);
    QHotkey hotkey(QKeySequence(Qt::Key_F9), true);
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    XPointer::key(QStringLiteral("F9"));
    QTRY_COMPARE(activated.count(), 1);
    XPointer::key(QStringLiteral("x"));
    QTRY_COMPARE(edit.text(), QStringLiteral("x"));
    QCOMPARE(activated.count(), 1);
    QCOMPARE(focusChanged.count(), 0); // the grab takes the key, not the focus
}

void tst_qhotkey_x11::locksDoNotMatter_data()
{
    QTest::addColumn<bool>("caps");
    QTest::addColumn<bool>("num");
    QTest::addColumn<bool>("scroll");
    for (int subset = 0; subset < 8; ++subset) {
        QTest::addRow("caps %d, num %d, scroll %d", subset & 1, (subset >> 1) & 1, (subset >> 2) & 1)
            << bool(subset & 1) << bool(subset & 2) << bool(subset & 4);
    }
}

void tst_qhotkey_x11::locksDoNotMatter()
{
    QFETCH(bool, caps);
    QFETCH(bool, num);
    QFETCH(bool, scroll);
    m_other->setScrollLockModifier(true);
    QStringList locks;
    if (caps)
        locks << QStringLiteral("Caps_Lock");
    if (num)
        locks << QStringLiteral("Num_Lock");
    if (scroll)
        locks << QStringLiteral("Scroll_Lock");
    for (const QString &lock : qAsConst(locks))
        XPointer::key(lock);
    const int expected = (caps ? XCB_MOD_MASK_LOCK : 0) | (num ? kNumLock : 0) | (scroll ? kScrollLock : 0);
    QCOMPARE(m_other->modifierState(), expected);

    QHotkey hotkey(Qt::Key_F10, Qt::ControlModifier, true);
    QVERIFY(hotkey.isRegistered());
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    XPointer::key(QStringLiteral("ctrl+F10"));
    QTRY_COMPARE(activated.count(), 1);

    for (const QString &lock : qAsConst(locks))
        XPointer::key(lock);
    QCOMPARE(m_other->modifierState(), 0);
}

void tst_qhotkey_x11::holdsEveryCombinationOfTheLocks()
{
    const xcb_keycode_t key = m_other->keycode(XKB_KEY_F10);
    QHotkey hotkey(Qt::Key_F10, Qt::ControlModifier | Qt::ShiftModifier, true);
    QTRY_COMPARE(m_other->heldByOthers(key, kCtrlShift), kAllFourLocks);
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kNothing);
    QCOMPARE(m_other->heldByOthers(key, 0), kNothing);

    QVERIFY(hotkey.setRegistered(false));
    m_other->setScrollLockModifier(true);
    QTRY_VERIFY(hotkey.setRegistered(true) && m_other->heldByOthers(key, kCtrlShift).size() == 8);
}

void tst_qhotkey_x11::otherModifiersDoNotActivate()
{
    QHotkey hotkey(Qt::Key_F10, Qt::ControlModifier, true);
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    m_other->focusWindow();
    for (const char *combination :
         {"F10", "shift+F10", "ctrl+shift+F10", "ctrl+alt+F10", "super+ctrl+F10", "ctrl+F9"})
        XPointer::key(QString::fromLatin1(combination));
    XPointer::key(QStringLiteral("ctrl+F10"));
    QTRY_COMPARE(activated.count(), 1);
}

void tst_qhotkey_x11::sharersFireOnceEach()
{
    const xcb_keycode_t key = m_other->keycode(XKB_KEY_F10);
    QHotkey first(Qt::Key_F10, Qt::ControlModifier, true);
    QHotkey second(Qt::Key_F10, Qt::ControlModifier, true);
    QVERIFY(first.isRegistered() && second.isRegistered());
    const QSignalSpy firstActivated(&first, &QHotkey::activated);
    const QSignalSpy secondActivated(&second, &QHotkey::activated);
    XPointer::key(QStringLiteral("ctrl+F10"));
    QTRY_COMPARE(firstActivated.count(), 1);
    QTRY_COMPARE(secondActivated.count(), 1);

    QVERIFY(first.setRegistered(false));
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kAllFourLocks);
    QVERIFY(second.setRegistered(false));
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kNothing);
}

void tst_qhotkey_x11::twoSymbolsOnOneKeyBothFire()
{
    const xcb_keycode_t key = m_other->keycode(XKB_KEY_1);
    QHotkey digit(Qt::Key_1, Qt::ControlModifier, true);
    QHotkey mark(Qt::Key_Exclam, Qt::ControlModifier, true);
    QVERIFY(digit.isRegistered() && mark.isRegistered());
    const QSignalSpy digitActivated(&digit, &QHotkey::activated);
    const QSignalSpy markActivated(&mark, &QHotkey::activated);
    XPointer::key(QStringLiteral("ctrl+1"));
    QTRY_COMPARE(digitActivated.count(), 1);
    QTRY_COMPARE(markActivated.count(), 1);

    QVERIFY(digit.setRegistered(false));
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kAllFourLocks);
    XPointer::key(QStringLiteral("ctrl+1"));
    QTRY_COMPARE(markActivated.count(), 2);
    QCOMPARE(digitActivated.count(), 1);
    QVERIFY(mark.setRegistered(false));
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kNothing);
}

void tst_qhotkey_x11::heldByAnotherClientIsRefused_data()
{
    QTest::addColumn<int>("locks");
    QTest::newRow("without locks") << 0;
    QTest::newRow("with Caps Lock only") << int(XCB_MOD_MASK_LOCK);
    QTest::newRow("with Num Lock only") << kNumLock;
    QTest::newRow("with both") << int(XCB_MOD_MASK_LOCK | kNumLock);
    QTest::newRow("with anything") << int(XCB_MOD_MASK_ANY);
}

void tst_qhotkey_x11::heldByAnotherClientIsRefused()
{
    QFETCH(int, locks);
    const xcb_keycode_t key = m_other->keycode(XKB_KEY_F10);
    XClient holder;
    QVERIFY(holder.grab(key, locks == XCB_MOD_MASK_ANY ? locks : XCB_MOD_MASK_CONTROL | locks));

    QHotkey hotkey;
    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);
    const LogCapture log;
    QVERIFY(!hotkey.setShortcut(Qt::Key_F10, Qt::ControlModifier, true));
    QVERIFY(!hotkey.isRegistered());
    QCOMPARE(changed.count(), 0);
    QCOMPARE(hotkey.keyCode(), Qt::Key_F10); // the shortcut is kept: it may be free later
    QCOMPARE(log.count(), 1);
    const LogLine line = log.lines().constFirst();
    QCOMPARE(line.type, QtWarningMsg);
    QCOMPARE(line.category, QStringLiteral("QHotkey"));
    QCOMPARE(line.text,
             QStringLiteral("Failed to register hotkey. Error: another program has grabbed this key "
                            "combination"));
    QVERIFY(line.function.contains(QLatin1String("QHotkeyPrivateX11::registerShortcut(")));

    // Nothing is half-grabbed: all that the holder does not hold is free.
    holder.ungrab(key, locks == XCB_MOD_MASK_ANY ? locks : XCB_MOD_MASK_CONTROL | locks);
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kNothing);
}

void tst_qhotkey_x11::releasedByTheOtherClientIsTaken()
{
    const xcb_keycode_t key = m_other->keycode(XKB_KEY_F10);
    QHotkey hotkey;
    {
        XClient holder;
        QVERIFY(holder.grab(key, XCB_MOD_MASK_CONTROL));
        const LogCapture log;
        QVERIFY(!hotkey.setShortcut(Qt::Key_F10, Qt::ControlModifier, true));
    }
    const LogCapture log; // until the server has seen the holder go
    QTRY_VERIFY(hotkey.setRegistered(true));
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kAllFourLocks);
}

void tst_qhotkey_x11::symbolWithoutKeyIsRefused_data()
{
    QTest::addColumn<quint32>("keysym");
    QTest::newRow("none") << 0U;
    QTest::newRow("on no key") << quint32(XKB_KEY_F33);
    QTest::newRow("no symbol at all") << 0xffffffffU;
}

// To the server a keycode of 0 means every key.
void tst_qhotkey_x11::symbolWithoutKeyIsRefused()
{
    QFETCH(quint32, keysym);
    const LogCapture log;
    QHotkey hotkey;
    QVERIFY(!hotkey.setNativeShortcut(NativeShortcut(keysym, XCB_MOD_MASK_CONTROL), true));
    QVERIFY(
        !hotkey.setNativeShortcut(NativeShortcut(keysym, XCB_MOD_MASK_CONTROL), true)); // nothing remembered
    QCOMPARE(log.texts().constFirst(),
             QStringLiteral(
                 "Failed to register hotkey. Error: no key of the keyboard layout carries this symbol"));
    for (const int key : {24, 25, 38, 52, 67})
        QCOMPARE(m_other->heldByOthers(static_cast<xcb_keycode_t>(key), XCB_MOD_MASK_CONTROL), kNothing);
}

void tst_qhotkey_x11::unknownModifiersAreRefused()
{
    const LogCapture log;
    QHotkey hotkey;
    QVERIFY(!hotkey.setNativeShortcut(NativeShortcut(XKB_KEY_F10, XCB_MOD_MASK_ANY), true));
    QVERIFY(!hotkey.setNativeShortcut(NativeShortcut(XKB_KEY_F10, XCB_KEY_BUT_MASK_BUTTON_1), true));
    QCOMPARE(log.count(), 2);
    QVERIFY(log.texts().constFirst().startsWith(QLatin1String("Failed to register hotkey. Error: ")));
    QCOMPARE(m_other->heldByOthers(m_other->keycode(XKB_KEY_F10), 0), kNothing);
}

void tst_qhotkey_x11::unregisteringFreesTheKey()
{
    const xcb_keycode_t key = m_other->keycode(XKB_KEY_F10);
    for (int round = 0; round < 100; ++round) {
        QHotkey hotkey(Qt::Key_F10, Qt::ControlModifier, true);
        QVERIFY(!m_other->grab(key, XCB_MOD_MASK_CONTROL));
        QVERIFY(hotkey.setRegistered(false));
        QVERIFY(m_other->grab(key, XCB_MOD_MASK_CONTROL)); // at once: the server has answered
        m_other->ungrab(key, XCB_MOD_MASK_CONTROL);
    }
}

void tst_qhotkey_x11::destructionFreesTheKey()
{
    const xcb_keycode_t key = m_other->keycode(XKB_KEY_F10);
    {
        const QHotkey hotkey(Qt::Key_F10, Qt::ControlModifier, true);
        QVERIFY(hotkey.isRegistered());
    }
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kNothing);
}

void tst_qhotkey_x11::grabsMoveWithTheLayout()
{
    const xcb_keycode_t american = m_other->keycode(XKB_KEY_z);
    QHotkey hotkey(Qt::Key_Z, Qt::ControlModifier, true);
    const NativeShortcut before = hotkey.currentNativeShortcut();
    QCOMPARE(m_other->heldByOthers(american, XCB_MOD_MASK_CONTROL), kAllFourLocks);

    m_other->setLayout(QStringLiteral("de"));
    const xcb_keycode_t german = m_other->keycode(XKB_KEY_z);
    QVERIFY(german != american);
    QTRY_COMPARE(m_other->heldByOthers(german, XCB_MOD_MASK_CONTROL), kAllFourLocks);
    QCOMPARE(m_other->heldByOthers(american, XCB_MOD_MASK_CONTROL), kNothing);
    QVERIFY(hotkey.isRegistered());
    QVERIFY(hotkey.currentNativeShortcut() == before);

    m_other->focusWindow();
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    XPointer::key(QStringLiteral("ctrl+z"));
    QTRY_COMPARE(activated.count(), 1);

    QVERIFY(hotkey.setRegistered(false));
    QCOMPARE(m_other->heldByOthers(german, XCB_MOD_MASK_CONTROL), kNothing);
}

void tst_qhotkey_x11::grabsSwapWithTheLayout()
{
    QHotkey y(Qt::Key_Y, Qt::ControlModifier, true);
    QHotkey z(Qt::Key_Z, Qt::ControlModifier, true);
    QHotkey umlaut; // exists in the new layout only: when it is known the grabs have moved, too
    m_other->setLayout(QStringLiteral("de"));
    QTRY_VERIFY(umlaut.setShortcut(static_cast<Qt::Key>(0x00dc), Qt::ControlModifier, true));
    m_other->focusWindow();
    const QSignalSpy yActivated(&y, &QHotkey::activated);
    const QSignalSpy zActivated(&z, &QHotkey::activated);
    XPointer::key(QStringLiteral("ctrl+y"));
    QTRY_COMPARE(yActivated.count(), 1);
    QCOMPARE(zActivated.count(), 0);
    XPointer::key(QStringLiteral("ctrl+z"));
    QTRY_COMPARE(zActivated.count(), 1);
    QCOMPARE(yActivated.count(), 1);
}

void tst_qhotkey_x11::grabsComeBackWithTheLayout()
{
    const xcb_keycode_t american = m_other->keycode(XKB_KEY_q);
    QHotkey hotkey(Qt::Key_Q, Qt::ControlModifier, true);
    const LogCapture log;
    m_other->setLayout(QStringLiteral("ru"));
    QTRY_COMPARE(m_other->heldByOthers(american, XCB_MOD_MASK_CONTROL), kNothing);
    QCOMPARE(log.texts(),
             QStringList(QStringLiteral("Failed to register hotkey in the new keyboard layout. Error: "
                                        "no key of the keyboard layout carries this symbol")));
    QVERIFY(hotkey.isRegistered());

    m_other->setLayout(QStringLiteral("us"));
    QTRY_COMPARE(m_other->heldByOthers(american, XCB_MOD_MASK_CONTROL), kAllFourLocks);

    m_other->setLayout(QStringLiteral("ru"));
    QTRY_COMPARE(m_other->heldByOthers(american, XCB_MOD_MASK_CONTROL), kNothing);
    QVERIFY(hotkey.setRegistered(false)); // there is nothing to release
    QCOMPARE(log.count(), 2);
}

void tst_qhotkey_x11::grabsFollowTheLockModifiers()
{
    const xcb_keycode_t key = m_other->keycode(XKB_KEY_F10);
    const QHotkey hotkey(Qt::Key_F10, Qt::ControlModifier, true);
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL).size(), 4);
    m_other->setScrollLockModifier(true);
    QTRY_COMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL).size(), 8);
    m_other->setScrollLockModifier(false);
    QTRY_COMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kAllFourLocks);
}

void tst_qhotkey_x11::movedGrabMeetsAnotherClient()
{
    const xcb_keycode_t american = m_other->keycode(XKB_KEY_z);
    const xcb_keycode_t german = m_other->keycode(XKB_KEY_y); // where the German layout has its z
    const QHotkey hotkey(Qt::Key_Z, Qt::ControlModifier, true);
    QVERIFY(m_other->grab(german, XCB_MOD_MASK_CONTROL | kNumLock));
    const LogCapture log;
    m_other->setLayout(QStringLiteral("de"));
    QTRY_COMPARE(log.texts(),
                 QStringList(QStringLiteral("Failed to register hotkey in the new keyboard layout. "
                                            "Error: another program has grabbed this key combination")));
    XClient looker;
    QCOMPARE(looker.heldByOthers(german, XCB_MOD_MASK_CONTROL), QVector<int>({kNumLock}));
    QCOMPARE(looker.heldByOthers(american, XCB_MOD_MASK_CONTROL), kNothing);

    m_other->ungrab(german, XCB_MOD_MASK_CONTROL | kNumLock);
    m_other->setLayout(QStringLiteral("us"));
    QTRY_COMPARE(looker.heldByOthers(american, XCB_MOD_MASK_CONTROL), kAllFourLocks);
}

void tst_qhotkey_x11::mappingFollowsTheLayoutAtOnce()
{
    QHotkey hotkey;
    QHotkey registered(Qt::Key_Z, Qt::ControlModifier, true);
    m_other->setLayout(QStringLiteral("de"));
    QTRY_VERIFY(hotkey.setShortcut(static_cast<Qt::Key>(0x00dc) /* U umlaut */, Qt::ControlModifier, true));
    // Whoever is registered already has moved along.
    QCOMPARE(m_other->heldByOthers(m_other->keycode(XKB_KEY_z), XCB_MOD_MASK_CONTROL), kAllFourLocks);
}

void tst_qhotkey_x11::grabsMoveWithASwitchOfLayout()
{
    m_other->setLayout(QStringLiteral("us,de,ru"));
    const xcb_keycode_t american = m_other->keycode(XKB_KEY_z);
    const xcb_keycode_t german = m_other->keycode(XKB_KEY_y);
    const LogCapture log;
    QHotkey hotkey(Qt::Key_Z, Qt::ControlModifier, true);
    const NativeShortcut before = hotkey.currentNativeShortcut();
    QTRY_COMPARE(m_other->heldByOthers(american, XCB_MOD_MASK_CONTROL), kAllFourLocks);
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    m_other->focusWindow();

    m_other->switchLayout();
    QCOMPARE(m_other->layoutInEffect(), 1);
    QTRY_COMPARE(m_other->heldByOthers(german, XCB_MOD_MASK_CONTROL), kAllFourLocks);
    QCOMPARE(m_other->heldByOthers(american, XCB_MOD_MASK_CONTROL), kNothing);
    m_other->pressKeys({kControlKeycode, american});
    m_other->pressKeys({kControlKeycode, german});
    QTRY_COMPARE(activated.count(), 1);
    QVERIFY(hotkey.currentNativeShortcut() == before);

    m_other->switchLayout(); // to one that has no such symbol
    m_other->switchLayout();
    QCOMPARE(m_other->layoutInEffect(), 0);
    QTRY_COMPARE(m_other->heldByOthers(american, XCB_MOD_MASK_CONTROL), kAllFourLocks);
    QCOMPARE(m_other->heldByOthers(german, XCB_MOD_MASK_CONTROL), kNothing);
    m_other->pressKeys({kControlKeycode, american});
    QTRY_COMPARE(activated.count(), 2);
    QCOMPARE(log.texts(), QStringList());
}

// Who writes Russian has the shortcuts of programs where they were.
void tst_qhotkey_x11::symbolOfAnotherLayoutKeepsItsKey()
{
    m_other->setLayout(QStringLiteral("us,ru"));
    const xcb_keycode_t key = m_other->keycode(XKB_KEY_q);
    QHotkey hotkey(Qt::Key_Q, Qt::ControlModifier, true);
    QHotkey russian;
    QTRY_VERIFY(russian.setShortcut(static_cast<Qt::Key>(0x0419), Qt::ControlModifier, true));
    m_other->switchLayout();
    QHotkey mark; // on another key in the other layout: when it is there the switch has been seen
    QTRY_VERIFY(mark.setShortcut(Qt::Key_Slash, Qt::ControlModifier, false));
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    const QSignalSpy russianActivated(&russian, &QHotkey::activated);
    m_other->pressKeys({kControlKeycode, key});
    QTRY_COMPARE(activated.count(), 1);
    QCOMPARE(russianActivated.count(), 1);
}

void tst_qhotkey_x11::everyKeyOfTheSymbolIsGrabbed_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<quint32>("keysym");
    QTest::addColumn<int>("keys");
    QTest::newRow("Print") << int(Qt::Key_Print) << quint32(XKB_KEY_Print) << 2;
    QTest::newRow("play") << int(Qt::Key_MediaPlay) << quint32(XKB_KEY_XF86AudioPlay) << 3;
}

void tst_qhotkey_x11::everyKeyOfTheSymbolIsGrabbed()
{
    QFETCH(int, key);
    QFETCH(quint32, keysym);
    QFETCH(int, keys);
    const QVector<xcb_keycode_t> keycodes = m_other->keycodes(keysym);
    QCOMPARE(keycodes.size(), keys);
    QHotkey hotkey(static_cast<Qt::Key>(key), Qt::KeyboardModifiers(Qt::ControlModifier), true);
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    for (const xcb_keycode_t keycode : keycodes) {
        QCOMPARE(m_other->heldByOthers(keycode, XCB_MOD_MASK_CONTROL), kAllFourLocks);
        m_other->pressKeys({kControlKeycode, keycode});
    }
    QTRY_COMPARE(activated.count(), keys);
    QVERIFY(hotkey.setRegistered(false));
    for (const xcb_keycode_t keycode : keycodes)
        QCOMPARE(m_other->heldByOthers(keycode, XCB_MOD_MASK_CONTROL), kNothing);
}

void tst_qhotkey_x11::allKeysOfTheSymbolOrNone()
{
    const QVector<xcb_keycode_t> keycodes = m_other->keycodes(XKB_KEY_XF86AudioPlay);
    XClient holder;
    QVERIFY(holder.grab(keycodes.constLast(), XCB_MOD_MASK_CONTROL));
    QHotkey hotkey;
    const LogCapture log;
    QVERIFY(!hotkey.setShortcut(Qt::Key_MediaPlay, Qt::ControlModifier, true));
    QCOMPARE(log.count(), 1);
    for (const xcb_keycode_t keycode : keycodes.mid(0, keycodes.size() - 1))
        QCOMPARE(m_other->heldByOthers(keycode, XCB_MOD_MASK_CONTROL), kNothing);
}

void tst_qhotkey_x11::bothSpellingsAreOneKey()
{
    m_other->setLayout(QStringLiteral("de"));
    const xcb_keycode_t key = m_other->keycode(XKB_KEY_udiaeresis);
    QHotkey latin;
    QHotkey unicode;
    const LogCapture log;
    QTRY_VERIFY(latin.setNativeShortcut(NativeShortcut(XKB_KEY_udiaeresis, XCB_MOD_MASK_CONTROL), true));
    QVERIFY(unicode.setNativeShortcut(NativeShortcut(0x010000fc, XCB_MOD_MASK_CONTROL), true));
    const QSignalSpy latinActivated(&latin, &QHotkey::activated);
    const QSignalSpy unicodeActivated(&unicode, &QHotkey::activated);
    m_other->pressKeys({kControlKeycode, key});
    QTRY_COMPARE(latinActivated.count(), 1);
    QTRY_COMPARE(unicodeActivated.count(), 1);
    QVERIFY(latin.setRegistered(false));
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kAllFourLocks);
    QVERIFY(unicode.setRegistered(false));
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kNothing);
}

// Lets the hotkey of Ctrl+Z lose its key to the client, who takes the one that carries z in the German layout.
static xcb_keycode_t loseTo(XClient *client)
{
    const xcb_keycode_t german = client->keycode(XKB_KEY_y);
    const QStringList complaint(QStringLiteral("Failed to register hotkey in the new keyboard layout. Error: "
                                               "another program has grabbed this key combination"));
    const LogCapture log;
    client->setLayout(QStringLiteral("us,de"));
    // The hotkey may still be there, from the layout of the last test.
    if (!QTest::qWaitFor([&] { return client->grab(german, XCB_MOD_MASK_CONTROL); }))
        return 0;
    client->switchLayout();
    return QTest::qWaitFor([&] { return log.texts() == complaint; }) ? german : xcb_keycode_t(0);
}

void tst_qhotkey_x11::lostGrabIsTakenWithTheNextChange()
{
    XClient looker;
    QHotkey hotkey(Qt::Key_Z, Qt::ControlModifier, true);
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    const xcb_keycode_t german = loseTo(m_other.get());
    QVERIFY(german);
    QVERIFY(hotkey.isRegistered());

    const LogCapture log;
    m_other->ungrab(german, XCB_MOD_MASK_CONTROL);
    m_other->setKeysyms(kSpareKeycode, XKB_KEY_F34, XKB_KEY_F34); // a change that has nothing to do with it
    QTRY_COMPARE(looker.heldByOthers(german, XCB_MOD_MASK_CONTROL), kAllFourLocks);
    QCOMPARE(log.texts(), QStringList());
    m_other->pressKeys({kControlKeycode, german});
    QTRY_COMPARE(activated.count(), 1);
}

void tst_qhotkey_x11::lostGrabIsTakenByTheNextHotkey()
{
    XClient looker;
    QHotkey hotkey(Qt::Key_Z, Qt::ControlModifier, true);
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    const xcb_keycode_t german = loseTo(m_other.get());
    QVERIFY(german);

    QHotkey another(Qt::Key_Z, Qt::ControlModifier);
    {
        const LogCapture log;
        QVERIFY(!another.setRegistered(true));
        QCOMPARE(log.texts(),
                 QStringList(QStringLiteral("Failed to register hotkey. Error: another program has grabbed "
                                            "this key combination")));
        QVERIFY(!another.isRegistered());
        QVERIFY(hotkey.isRegistered());
    }
    m_other->ungrab(german, XCB_MOD_MASK_CONTROL);
    QVERIFY(another.setRegistered(true));
    QCOMPARE(looker.heldByOthers(german, XCB_MOD_MASK_CONTROL), kAllFourLocks);
    m_other->pressKeys({kControlKeycode, german});
    QTRY_COMPARE(activated.count(), 1);

    QVERIFY(another.setRegistered(false));
    QCOMPARE(looker.heldByOthers(german, XCB_MOD_MASK_CONTROL), kAllFourLocks);
    QVERIFY(hotkey.setRegistered(false));
    QCOMPARE(looker.heldByOthers(german, XCB_MOD_MASK_CONTROL), kNothing);
}

void tst_qhotkey_x11::lostGrabLeavesNothingBehind_data()
{
    QTest::addColumn<bool>("again");
    QTest::newRow("unregistered") << false;
    QTest::newRow("registered again, and unregistered") << true;
}

void tst_qhotkey_x11::lostGrabLeavesNothingBehind()
{
    QFETCH(bool, again);
    XClient looker;
    QHotkey hotkey(Qt::Key_Z, Qt::ControlModifier, true);
    const xcb_keycode_t german = loseTo(m_other.get());
    QVERIFY(german);
    m_other->ungrab(german, XCB_MOD_MASK_CONTROL);
    QVERIFY(hotkey.setRegistered(false));
    if (again)
        QVERIFY(hotkey.setRegistered(true) && hotkey.setRegistered(false));
    const xcb_keycode_t american = m_other->keycode(XKB_KEY_z);
    for (const xcb_keycode_t key : {american, german})
        QCOMPARE(looker.heldByOthers(key, XCB_MOD_MASK_CONTROL), kNothing);
}

// Hotkeys, layouts and another program's grabs in any order: what is held is what some hotkey means.
void tst_qhotkey_x11::noOrderLeavesAnything()
{
    constexpr int kSteps = 80;
    const quint32 seed = firstSeed();
    std::mt19937 random(seed);
    const auto below = [&](int end) {
        return std::uniform_int_distribution<int>(0, end - 1)(random);
    };
    XClient looker;
    const LogCapture log;
    m_other->setLayout(QStringLiteral("us,de"));
    const QVector<xcb_keycode_t> keys{m_other->keycode(XKB_KEY_y), m_other->keycode(XKB_KEY_z)};
    QVector<bool> taken(keys.size(), false);
    std::vector<std::unique_ptr<QHotkey>> hotkeys;
    for (const Qt::Key key : {Qt::Key_Y, Qt::Key_Z, Qt::Key_Y, Qt::Key_Z})
        hotkeys.push_back(std::make_unique<QHotkey>(key, Qt::ControlModifier));
    const auto isConsistent = [&] {
        const bool isSwapped = m_other->layoutInEffect() == 1;
        for (int place = 0; place < keys.size(); ++place) {
            const int symbol = isSwapped ? 1 - place : place;
            const bool isMeant = hotkeys[symbol]->isRegistered() || hotkeys[symbol + 2]->isRegistered();
            const QVector<int> held = looker.heldByOthers(keys[place], XCB_MOD_MASK_CONTROL);
            const bool isOurs = held == kAllFourLocks;
            const bool isTakens = held == QVector<int>(taken[place] ? 1 : 0, 0);
            if (!(isOurs && isMeant && !taken[place]) && !isTakens)
                return false;
        }
        return true;
    };
    for (int step = 0; step < kSteps; ++step) {
        const int index = below(4);
        const int place = below(2);
        switch (below(4)) {
        case 0:
            m_other->switchLayout();
            break;
        case 1:
            if (taken[place])
                m_other->ungrab(keys[place], XCB_MOD_MASK_CONTROL);
            taken[place] = !taken[place] && m_other->grab(keys[place], XCB_MOD_MASK_CONTROL);
            break;
        default:
            hotkeys[index]->setRegistered(!hotkeys[index]->isRegistered());
        }
        QTRY_VERIFY2(isConsistent(), qPrintable(QStringLiteral("seed %1, step %2").arg(seed).arg(step)));
    }
    hotkeys.clear();
    for (int place = 0; place < keys.size(); ++place)
        QCOMPARE(looker.heldByOthers(keys[place], XCB_MOD_MASK_CONTROL),
                 QVector<int>(taken[place] ? 1 : 0, 0));
}

void tst_qhotkey_x11::everyMessageIsPassedOn()
{
    QHotkey hotkey(Qt::Key_F10, Qt::ControlModifier, true);
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    const int key = m_other->keycode(XKB_KEY_F10);
    xcb_key_press_event_t ours = keyPress(key, XCB_MOD_MASK_CONTROL);
    xcb_key_press_event_t nobodys = keyPress(key, XCB_MOD_MASK_SHIFT);
    xcb_key_press_event_t release = keyPress(key, XCB_MOD_MASK_CONTROL);
    release.response_type = XCB_KEY_RELEASE;
    xcb_mapping_notify_event_t mapping{};
    mapping.response_type = XCB_MAPPING_NOTIFY;
    for (void *event : {static_cast<void *>(&ours), static_cast<void *>(&nobodys),
                        static_cast<void *>(&release), static_cast<void *>(&mapping)})
        QVERIFY(!filter(event));
    QVERIFY(!filter(&ours, QByteArrayLiteral("some_other_event")));
    QCoreApplication::processEvents();
    QCOMPARE(activated.count(), 1);
}

void tst_qhotkey_x11::madeUpEventsAreIgnored()
{
    QHotkey hotkey(Qt::Key_F10, Qt::ControlModifier, true);
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    xcb_key_press_event_t event = keyPress(m_other->keycode(XKB_KEY_F10), XCB_MOD_MASK_CONTROL);
    event.response_type |= 0x80; // sent by a client, not by the server
    filter(&event);
    QCoreApplication::processEvents();
    QCOMPARE(activated.count(), 0);
}

void tst_qhotkey_x11::heldKeysRepeat()
{
    QHotkey hotkey(Qt::Key_F10, Qt::ControlModifier, true);
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    xcb_key_press_event_t event =
        keyPress(m_other->keycode(XKB_KEY_F10), XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_LOCK);
    event.state |= XCB_KEY_BUT_MASK_BUTTON_1; // pointer buttons and the group of the layout do not matter
    event.state |= 0x2000;
    for (int repeat = 0; repeat < 3; ++repeat)
        filter(&event);
    QCoreApplication::processEvents();
    QCOMPARE(activated.count(), 3);
}

void tst_qhotkey_x11::manyChangesLeaveNothing()
{
    const LogCapture log;
    QHotkey hotkey;
    for (int change = 0; change < 10000; ++change) {
        const auto key = static_cast<Qt::Key>(Qt::Key_F5 + change % 8);
        QVERIFY(hotkey.setShortcut(key, Qt::ControlModifier | Qt::ShiftModifier, true));
    }
    QVERIFY(hotkey.resetShortcut());
    QCOMPARE(log.count(), 0);
    for (xcb_keysym_t keysym = XKB_KEY_F5; keysym <= XKB_KEY_F12; ++keysym)
        QCOMPARE(m_other->heldByOthers(m_other->keycode(keysym), kCtrlShift), kNothing);
}

void tst_qhotkey_x11::manySharersLeaveNothing()
{
    const xcb_keycode_t key = m_other->keycode(XKB_KEY_F10);
    std::vector<std::unique_ptr<QHotkey>> hotkeys;
    int activations = 0;
    for (int index = 0; index < 1000; ++index) {
        hotkeys.push_back(std::make_unique<QHotkey>(Qt::Key_F10, Qt::ControlModifier, true));
        connect(hotkeys.back().get(), &QHotkey::activated, this, [&] { ++activations; });
    }
    XPointer::key(QStringLiteral("ctrl+F10"));
    QTRY_COMPARE(activations, 1000);
    hotkeys.resize(1);
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kAllFourLocks);
    hotkeys.clear();
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kNothing);
}

void tst_qhotkey_x11::threadsShareTheServer()
{
    constexpr int kThreads = 4;
    constexpr int kRounds = 50;
    std::atomic<int> failures{0};
    std::atomic<int> activations{0};
    std::vector<std::future<void>> threads;
    threads.reserve(kThreads);
    for (int index = 0; index < kThreads; ++index) {
        threads.push_back(std::async(std::launch::async, [&, index] {
            QEventLoop loop;
            for (int round = 0; round < kRounds; ++round) {
                QHotkey shared(Qt::Key_F10, Qt::ControlModifier, true);
                QHotkey own(static_cast<Qt::Key>(Qt::Key_F5 + index), Qt::ControlModifier, true);
                QObject::connect(&shared, &QHotkey::activated, &shared, [&] { ++activations; });
                failures += shared.isRegistered() && own.isRegistered() ? 0 : 1;
                loop.processEvents();
                failures += own.resetShortcut() ? 0 : 1;
            }
        }));
    }
    xcb_key_press_event_t event = keyPress(m_other->keycode(XKB_KEY_F10), XCB_MOD_MASK_CONTROL);
    for (const std::future<void> &thread : threads) {
        while (thread.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
            filter(&event);
            QCoreApplication::processEvents();
        }
    }
    QCOMPARE(failures.load(), 0);
    QVERIFY(activations > 0);
    for (xcb_keysym_t keysym = XKB_KEY_F5; keysym <= XKB_KEY_F10; ++keysym)
        QCOMPARE(m_other->heldByOthers(m_other->keycode(keysym), XCB_MOD_MASK_CONTROL), kNothing);
}

void tst_qhotkey_x11::hotkeyDiesWhileTheLoopIsBusy()
{
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QCoreApplication::exec(); // the next one is not the first
    const xcb_keycode_t key = m_other->keycode(XKB_KEY_F10);
    std::atomic<bool> registered{false};
    std::atomic<bool> busy{false};
    std::future<void> thread;
    QTimer::singleShot(0, this, [&] {
        thread = std::async(std::launch::async, [&] {
            const QHotkey hotkey(Qt::Key_F10, Qt::ControlModifier, true);
            registered = hotkey.isRegistered();
            while (!busy)
                QThread::yieldCurrentThread();
        });
    });
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (!registered)
            return;
        busy = true;
        if (thread.wait_for(kLongerThanPatience) == std::future_status::ready)
            QCoreApplication::quit();
    });
    timer.start(10);
    QCoreApplication::exec();
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kNothing);
}

void tst_qhotkey_x11::hotkeyDiesWhileNobodyAnswers()
{
    std::atomic<bool> registered{false};
    std::atomic<bool> ended{false};
    const std::future<void> thread(std::async(std::launch::async, [&] {
        const QHotkey hotkey(Qt::Key_F10, Qt::ControlModifier, true);
        registered = hotkey.isRegistered();
        while (!ended)
            QThread::yieldCurrentThread();
    }));
    QTRY_VERIFY(registered);
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
    ended = true;
    thread.wait();

    const xcb_keycode_t key = m_other->keycode(XKB_KEY_F10);
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kAllFourLocks); // nobody could release it
    xcb_key_press_event_t event = keyPress(key, XCB_MOD_MASK_CONTROL);
    filter(&event); // reaches no dead hotkey, and its key is released
    QCoreApplication::processEvents();
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kNothing);
}

ORV_TEST_MAIN(tst_qhotkey_x11)
#include "tst_qhotkey_x11.moc"
