#include "logcapture.h"
#include "orvqtcompat.h"
#include "testmain.h"
#include "x11hotkeytest.h"
#include "xpointer.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QEventLoop>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include <xkbcommon/xkbcommon-keysyms.h>

#include <atomic>
#include <chrono>
#include <future>
#include <vector>

namespace {

constexpr int kCtrlShift = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT;
constexpr int kScrollLock =
    XCB_MOD_MASK_3; // has no modifier in the usual layouts: the tests give it this one
constexpr std::chrono::milliseconds kLongerThanPatience(1500); // of a caller who finds no event loop

// Delivers an event as if the platform plugin had just received it.
bool filter(void *event, const QByteArray &type = QByteArrayLiteral("xcb_generic_event_t"))
{
    orvqt::NativeResult result = 12345;
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
class tst_qhotkey_x11 : public X11HotkeyTest
{
    Q_OBJECT

private Q_SLOTS:
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

    void everyMessageIsPassedOn();
    void madeUpEventsAreIgnored();
    void heldKeysRepeat();
    void manyChangesLeaveNothing();
    void manySharersLeaveNothing();

    void threadsShareTheServer();
    void hotkeyDiesWhileTheLoopIsBusy();
    void hotkeyDiesWhileNobodyAnswers(); // last: the application's loop has ended then
};

void tst_qhotkey_x11::pressActivatesWhileAnotherProgramHasTheFocus()
{
    m_other->focusWindow();
    QHotkey hotkey(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A), true);
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
            QCoreApplication::exit();
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
#include "moc_x11hotkeytest.cpp"
#include "tst_qhotkey_x11.moc"
