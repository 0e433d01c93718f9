#include "logcapture.h"
#include "seed.h"
#include "testmain.h"
#include "x11hotkeytest.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <random>
#include <vector>

namespace {

constexpr xcb_keycode_t kSpareKeycode = 93;
constexpr xcb_keycode_t kControlKeycode = 37;

// Lets the hotkey of Ctrl+Z lose its key to the client, who takes the one that carries z in the German layout.
xcb_keycode_t loseTo(XClient *client)
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

} // namespace

/// Grabs while keyboard layouts change, and when another program holds a key of the new one.
class tst_qhotkey_x11_layouts : public X11HotkeyTest
{
    Q_OBJECT

private Q_SLOTS:
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
};

void tst_qhotkey_x11_layouts::grabsMoveWithTheLayout()
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

void tst_qhotkey_x11_layouts::grabsSwapWithTheLayout()
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

void tst_qhotkey_x11_layouts::grabsComeBackWithTheLayout()
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

void tst_qhotkey_x11_layouts::grabsFollowTheLockModifiers()
{
    const xcb_keycode_t key = m_other->keycode(XKB_KEY_F10);
    const QHotkey hotkey(Qt::Key_F10, Qt::ControlModifier, true);
    QCOMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL).size(), 4);
    m_other->setScrollLockModifier(true);
    QTRY_COMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL).size(), 8);
    m_other->setScrollLockModifier(false);
    QTRY_COMPARE(m_other->heldByOthers(key, XCB_MOD_MASK_CONTROL), kAllFourLocks);
}

void tst_qhotkey_x11_layouts::movedGrabMeetsAnotherClient()
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

void tst_qhotkey_x11_layouts::mappingFollowsTheLayoutAtOnce()
{
    QHotkey hotkey;
    QHotkey registered(Qt::Key_Z, Qt::ControlModifier, true);
    m_other->setLayout(QStringLiteral("de"));
    QTRY_VERIFY(hotkey.setShortcut(static_cast<Qt::Key>(0x00dc) /* U umlaut */, Qt::ControlModifier, true));
    // Whoever is registered already has moved along.
    QCOMPARE(m_other->heldByOthers(m_other->keycode(XKB_KEY_z), XCB_MOD_MASK_CONTROL), kAllFourLocks);
}

void tst_qhotkey_x11_layouts::grabsMoveWithASwitchOfLayout()
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
void tst_qhotkey_x11_layouts::symbolOfAnotherLayoutKeepsItsKey()
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

void tst_qhotkey_x11_layouts::everyKeyOfTheSymbolIsGrabbed_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<quint32>("keysym");
    QTest::addColumn<int>("keys");
    QTest::newRow("Print") << int(Qt::Key_Print) << quint32(XKB_KEY_Print) << 2;
    QTest::newRow("play") << int(Qt::Key_MediaPlay) << quint32(XKB_KEY_XF86AudioPlay) << 3;
}

void tst_qhotkey_x11_layouts::everyKeyOfTheSymbolIsGrabbed()
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

void tst_qhotkey_x11_layouts::allKeysOfTheSymbolOrNone()
{
    const QVector<xcb_keycode_t> keycodes = m_other->keycodes(XKB_KEY_XF86AudioPlay);
    XClient holder;
    QVERIFY(holder.grab(keycodes.constLast(), XCB_MOD_MASK_CONTROL));
    QHotkey hotkey;
    const LogCapture log;
    QVERIFY(!hotkey.setShortcut(Qt::Key_MediaPlay, Qt::ControlModifier, true));
    QCOMPARE(log.count(), 1);
    const QVector<xcb_keycode_t> others = keycodes.mid(0, keycodes.size() - 1);
    for (const xcb_keycode_t keycode : others)
        QCOMPARE(m_other->heldByOthers(keycode, XCB_MOD_MASK_CONTROL), kNothing);
}

void tst_qhotkey_x11_layouts::bothSpellingsAreOneKey()
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

void tst_qhotkey_x11_layouts::lostGrabIsTakenWithTheNextChange()
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

void tst_qhotkey_x11_layouts::lostGrabIsTakenByTheNextHotkey()
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

void tst_qhotkey_x11_layouts::lostGrabLeavesNothingBehind_data()
{
    QTest::addColumn<bool>("again");
    QTest::newRow("unregistered") << false;
    QTest::newRow("registered again, and unregistered") << true;
}

void tst_qhotkey_x11_layouts::lostGrabLeavesNothingBehind()
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
void tst_qhotkey_x11_layouts::noOrderLeavesAnything()
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

ORV_TEST_MAIN(tst_qhotkey_x11_layouts)

#include "moc_x11hotkeytest.cpp"
#include "tst_qhotkey_x11_layouts.moc"
