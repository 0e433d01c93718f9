#include "logcapture.h"
#include "qhotkey.h"
#include "testmain.h"
#include "xclient.h"
#include "xpointer.h"

#include <QtCore/QCoreApplication>
#include <QtTest/QTest>

#include <xkbcommon/xkbcommon-keysyms.h>

#include <memory>

using NativeShortcut = QHotkey::NativeShortcut;

namespace {

constexpr xcb_keycode_t kSpareKeycode = 93;
constexpr xcb_keycode_t kLowSpareKeycode = 8;

} // namespace

// Which symbol and which key of the server a Qt key means.
class tst_x11keyboardmap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void mapsKeys_data();
    void mapsKeys();
    void mapsModifiers_data();
    void mapsModifiers();
    void keyWithoutKeycodeIsUnmappable();
    void unshiftedKeyIsMeant();
    void shiftedSymbolTakesItsKey();
    void bothSpellingsOfACharacterAreFound();

private:
    std::unique_ptr<XClient> m_other;
};

void tst_x11keyboardmap::initTestCase()
{
    XClient().setLayout(QStringLiteral("us"));
    XPointer::key(QStringLiteral("F12")); // the server tells of the keyboard that xdotool presses
}

void tst_x11keyboardmap::init()
{
    m_other = std::make_unique<XClient>();
    QCOMPARE(m_other->modifierState(), 0);
}

void tst_x11keyboardmap::cleanup()
{
    m_other.reset();
    QCoreApplication::processEvents();
}

void tst_x11keyboardmap::mapsKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<quint32>("keysym");
    const auto row = [](const char *name, int key, quint32 keysym) {
        QTest::newRow(name) << key << keysym;
    };

    row("letter", Qt::Key_A, XKB_KEY_a);
    row("digit", Qt::Key_0, XKB_KEY_0);
    row("space", Qt::Key_Space, XKB_KEY_space);
    row("full stop", Qt::Key_Period, XKB_KEY_period);
    row("Escape", Qt::Key_Escape, XKB_KEY_Escape);
    row("Tab", Qt::Key_Tab, XKB_KEY_Tab);
    row("Backtab", Qt::Key_Backtab, XKB_KEY_Tab);
    row("Backspace", Qt::Key_Backspace, XKB_KEY_BackSpace);
    row("Return", Qt::Key_Return, XKB_KEY_Return);
    row("Enter", Qt::Key_Enter, XKB_KEY_KP_Enter);
    row("Insert", Qt::Key_Insert, XKB_KEY_Insert);
    row("Delete", Qt::Key_Delete, XKB_KEY_Delete);
    row("Pause", Qt::Key_Pause, XKB_KEY_Pause);
    row("Print", Qt::Key_Print, XKB_KEY_Print);
    row("Clear", Qt::Key_Clear, XKB_KEY_Clear);
    row("Home", Qt::Key_Home, XKB_KEY_Home);
    row("End", Qt::Key_End, XKB_KEY_End);
    row("Left", Qt::Key_Left, XKB_KEY_Left);
    row("Up", Qt::Key_Up, XKB_KEY_Up);
    row("Right", Qt::Key_Right, XKB_KEY_Right);
    row("Down", Qt::Key_Down, XKB_KEY_Down);
    row("PageUp", Qt::Key_PageUp, XKB_KEY_Prior);
    row("PageDown", Qt::Key_PageDown, XKB_KEY_Next);
    row("CapsLock", Qt::Key_CapsLock, XKB_KEY_Caps_Lock);
    row("NumLock", Qt::Key_NumLock, XKB_KEY_Num_Lock);
    row("ScrollLock", Qt::Key_ScrollLock, XKB_KEY_Scroll_Lock);
    row("F1", Qt::Key_F1, XKB_KEY_F1);
    row("F12", Qt::Key_F12, XKB_KEY_F12);
    row("F35", Qt::Key_F35, XKB_KEY_F35);
    row("Menu", Qt::Key_Menu, XKB_KEY_Menu);
    row("Help", Qt::Key_Help, XKB_KEY_Help);
    row("Back", Qt::Key_Back, XKB_KEY_XF86Back);
    row("Forward", Qt::Key_Forward, XKB_KEY_XF86Forward);
    row("Stop", Qt::Key_Stop, XKB_KEY_XF86Stop);
    row("Refresh", Qt::Key_Refresh, XKB_KEY_XF86Refresh);
    row("Reload", Qt::Key_Reload, XKB_KEY_XF86Reload);
    row("VolumeDown", Qt::Key_VolumeDown, XKB_KEY_XF86AudioLowerVolume);
    row("VolumeMute", Qt::Key_VolumeMute, XKB_KEY_XF86AudioMute);
    row("VolumeUp", Qt::Key_VolumeUp, XKB_KEY_XF86AudioRaiseVolume);
    row("MediaPlay", Qt::Key_MediaPlay, XKB_KEY_XF86AudioPlay);
    row("MediaPause", Qt::Key_MediaPause, XKB_KEY_XF86AudioPause);
    row("MediaStop", Qt::Key_MediaStop, XKB_KEY_XF86AudioStop);
    row("MediaPrevious", Qt::Key_MediaPrevious, XKB_KEY_XF86AudioPrev);
    row("MediaNext", Qt::Key_MediaNext, XKB_KEY_XF86AudioNext);
    row("MediaRecord", Qt::Key_MediaRecord, XKB_KEY_XF86AudioRecord);
    row("HomePage", Qt::Key_HomePage, XKB_KEY_XF86HomePage);
    row("Favorites", Qt::Key_Favorites, XKB_KEY_XF86Favorites);
    row("Search", Qt::Key_Search, XKB_KEY_XF86Search);
    row("Standby", Qt::Key_Standby, XKB_KEY_XF86Standby);
    row("LaunchMail", Qt::Key_LaunchMail, XKB_KEY_XF86Mail);
    row("LaunchMedia", Qt::Key_LaunchMedia, XKB_KEY_XF86AudioMedia);
    row("Launch0", Qt::Key_Launch0, XKB_KEY_XF86MyComputer);
    row("Launch1", Qt::Key_Launch1, XKB_KEY_XF86Calculator);
    row("Touroku", Qt::Key_Touroku, XKB_KEY_Touroku);
    row("Massyo", Qt::Key_Massyo, XKB_KEY_Massyo);
    row("Mode_switch", Qt::Key_Mode_switch, XKB_KEY_Mode_switch);
    row("Select", Qt::Key_Select, XKB_KEY_Select);
    row("Cancel", Qt::Key_Cancel, XKB_KEY_Cancel);
    row("Printer", Qt::Key_Printer, XKB_KEY_Print);
    row("Execute", Qt::Key_Execute, XKB_KEY_Execute);
    row("Sleep", Qt::Key_Sleep, XKB_KEY_XF86Sleep);
}

void tst_x11keyboardmap::mapsKeys()
{
    QFETCH(int, key);
    QFETCH(quint32, keysym);
    if (!m_other->keycode(keysym))
        m_other->setKeysyms(kSpareKeycode, keysym, keysym);

    QHotkey hotkey;
    QTRY_VERIFY(hotkey.setShortcut(static_cast<Qt::Key>(key), Qt::KeyboardModifiers(Qt::ControlModifier)));
    QCOMPARE(hotkey.currentNativeShortcut().key, keysym);
    QCOMPARE(hotkey.shortcut(), QKeySequence(Qt::CTRL | key));
    QCOMPARE(hotkey.keyCode(), static_cast<Qt::Key>(key));
    QVERIFY(!hotkey.isRegistered());
}

void tst_x11keyboardmap::mapsModifiers_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<quint32>("native");
    QTest::newRow("none") << int(Qt::NoModifier) << 0U;
    QTest::newRow("Shift") << int(Qt::ShiftModifier) << 0x01U;
    QTest::newRow("Ctrl") << int(Qt::ControlModifier) << 0x04U;
    QTest::newRow("Alt is Mod1") << int(Qt::AltModifier) << 0x08U;
    QTest::newRow("Meta is Mod4") << int(Qt::MetaModifier) << 0x40U;
    QTest::newRow("all") << int(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)
                         << 0x4dU;
    QTest::newRow("keypad") << int(Qt::KeypadModifier) << 0U;
    QTest::newRow("group switch") << int(Qt::GroupSwitchModifier) << 0U;
    QTest::newRow("keypad and Alt") << int(Qt::KeypadModifier | Qt::AltModifier) << 0x08U;
}

void tst_x11keyboardmap::mapsModifiers()
{
    QFETCH(int, modifiers);
    QFETCH(quint32, native);
    const QHotkey hotkey(Qt::Key_F9, Qt::KeyboardModifiers(modifiers));
    QVERIFY(hotkey.currentNativeShortcut() == NativeShortcut(XKB_KEY_F9, native));
    QCOMPARE(hotkey.modifiers(), Qt::KeyboardModifiers(modifiers));
}

void tst_x11keyboardmap::keyWithoutKeycodeIsUnmappable()
{
    QHotkey hotkey;
    const LogCapture log;
    for (const int key : {0x0436 /* Cyrillic */, 0x4e2d /* Chinese */, 0x1f600 /* smiley */, 0x07, 0x7f, 0,
                          int(Qt::Key_Shift), int(Qt::Key_SysReq), int(Qt::Key_Dead_Grave), 0x01ffff00}) {
        QVERIFY(!hotkey.setShortcut(static_cast<Qt::Key>(key), Qt::ControlModifier, true));
        QVERIFY(!hotkey.currentNativeShortcut().isValid());
    }
    QCOMPARE(log.count(), 2 * 10);
}

void tst_x11keyboardmap::unshiftedKeyIsMeant()
{
    m_other->setKeysyms(kLowSpareKeycode, XKB_KEY_F34, XKB_KEY_q); // comes before the real Q key
    QHotkey hotkey;
    QTRY_VERIFY(hotkey.setShortcut(Qt::Key_F34, Qt::ControlModifier, false)); // the change has arrived
    QVERIFY(hotkey.setShortcut(Qt::Key_Q, Qt::ControlModifier, true));
    QVERIFY(m_other->heldByOthers(kLowSpareKeycode, XCB_MOD_MASK_CONTROL).isEmpty());
    QCOMPARE(m_other->heldByOthers(m_other->keycode(XKB_KEY_q), XCB_MOD_MASK_CONTROL).size(), 4);
}

void tst_x11keyboardmap::shiftedSymbolTakesItsKey()
{
    const QHotkey hotkey(Qt::Key_Exclam, Qt::ControlModifier, true);
    QVERIFY(hotkey.isRegistered());
    QCOMPARE(m_other->heldByOthers(m_other->keycode(XKB_KEY_1), XCB_MOD_MASK_CONTROL).size(), 4);
}

void tst_x11keyboardmap::bothSpellingsOfACharacterAreFound()
{
    constexpr int kCyrillicZhe = 0x0416;
    QHotkey hotkey;
    m_other->setKeysyms(kSpareKeycode, 0x01000000 + 0x0436, XKB_KEY_NoSymbol);
    QTRY_VERIFY(hotkey.setShortcut(static_cast<Qt::Key>(kCyrillicZhe), Qt::ControlModifier, false));
    const NativeShortcut first = hotkey.currentNativeShortcut();
    QCOMPARE(first.key, quint32(XKB_KEY_Cyrillic_zhe));

    m_other->setKeysyms(kSpareKeycode, XKB_KEY_Cyrillic_zhe, XKB_KEY_NoSymbol);
    QTRY_VERIFY(hotkey.setShortcut(static_cast<Qt::Key>(kCyrillicZhe), Qt::ControlModifier, false));
    QVERIFY(hotkey.currentNativeShortcut() == first);
}

ORV_TEST_MAIN(tst_x11keyboardmap)
#include "tst_x11keyboardmap.moc"
