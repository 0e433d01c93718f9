#include "logcapture.h"
#include "orvqtcompat.h"
#include "qhotkey.h"
#include "testmain.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QProcess>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include <qt_windows.h>

#include <cstdio>
#include <memory>
#include <vector>

using NativeShortcut = QHotkey::NativeShortcut;

namespace {

constexpr char kHoldHotkey[] = "--hold-a-hotkey";
constexpr char kHaveFocus[] = "--have-the-focus";
const Qt::KeyboardModifiers kControl = Qt::ControlModifier;
const Qt::KeyboardModifiers kControlShift = Qt::ControlModifier | Qt::ShiftModifier;

QString systemText(DWORD error)
{
    wchar_t buffer[512];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        error, 0, buffer, sizeof(buffer) / sizeof(*buffer), nullptr);
    return QString::fromWCharArray(buffer, static_cast<int>(length));
}

int registeredIdentifier(NativeShortcut shortcut)
{
    return static_cast<int>(((shortcut.key ^ (shortcut.modifier << 8)) & 0x0FFF) | 0x7000);
}

int unregisteredIdentifier(NativeShortcut shortcut)
{
    return static_cast<int>(((shortcut.key & 0x0FFF) ^ ((shortcut.modifier << 8) & 0x0FFF)) | 0x7000);
}

LPARAM messageParameter(NativeShortcut shortcut)
{
    return MAKELPARAM(shortcut.modifier, shortcut.key);
}

// Posts what the system posts when the shortcut is pressed.
void postHotkey(NativeShortcut shortcut)
{
    PostThreadMessageW(GetCurrentThreadId(), WM_HOTKEY, static_cast<WPARAM>(registeredIdentifier(shortcut)),
                       messageParameter(shortcut));
}

// This program once more, in one of its other modes, until the object is destroyed.
class OtherProcess
{
public:
    explicit OtherProcess(const QStringList &arguments)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QCoreApplication::applicationFilePath(), arguments);
    }
    ~OtherProcess()
    {
        m_process.write("end\n");
        m_process.closeWriteChannel();
        if (!m_process.waitForFinished())
            m_process.kill();
    }
    OtherProcess(const OtherProcess &) = delete;
    OtherProcess &operator=(const OtherProcess &) = delete;

    /// Its next line, which says what it has achieved.
    QByteArray report()
    {
        while (!m_process.canReadLine() && m_process.waitForReadyRead()) {
        }
        return m_process.readLine().trimmed();
    }

private:
    QProcess m_process;
};

QStringList holding(NativeShortcut shortcut)
{
    return {QString::fromLatin1(kHoldHotkey), QString::number(shortcut.key),
            QString::number(shortcut.modifier)};
}

QByteArray triedByAnotherProcess(NativeShortcut shortcut)
{
    return OtherProcess(holding(shortcut)).report();
}

void pressKeys(const std::vector<WORD> &keys)
{
    std::vector<INPUT> inputs;
    const auto add = [&](WORD key, DWORD flags) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.dwFlags = flags;
        inputs.push_back(input);
    };
    for (auto key = keys.cbegin(); key != keys.cend(); ++key)
        add(*key, 0);
    for (auto key = keys.crbegin(); key != keys.crend(); ++key)
        add(*key, KEYEVENTF_KEYUP);
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

} // namespace

// The Windows backend with the real system and a second process; nothing is faked.
class tst_qhotkey_win : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mapsSpecialKeys_data();
    void mapsSpecialKeys();
    void mapsCharacters_data();
    void mapsCharacters();
    void otherKeysAreUnmappable_data();
    void otherKeysAreUnmappable();
    void mapsModifiers_data();
    void mapsModifiers();
    void registersUnderItsIdentifier_data();
    void registersUnderItsIdentifier();

    void registrationIsTheSystems();
    void heldByAnotherProcessIsRefused();
    void releasedByTheOtherProcessIsTaken();
    void failingReleaseIsReported();
    void systemsTextIsReadable_data();
    void systemsTextIsReadable();
    void destructionFreesTheCombination();
    void sharersRegisterOnce();

    void postedMessageReachesEverySharerOnce();
    void messageForNobodyIsIgnored();
    void everyMessageIsPassedOn();
    void pressActivatesWhileAnotherProcessHasTheFocus_data();
    void pressActivatesWhileAnotherProcessHasTheFocus();

    void manyChangesLeaveNothing();
    void manySharersLeaveNothing();
};

void tst_qhotkey_win::mapsSpecialKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<quint32>("virtualKey");
    const auto row = [](int key, quint32 virtualKey) {
        QTest::newRow(qPrintable(QKeySequence(key).toString() + QStringLiteral(" %1").arg(key, 0, 16)))
            << key << virtualKey;
    };
    row(0x01000000, 0x1B); // Escape
    row(0x01000001, 0x09); // Tab
    row(0x01000002, 0x09); // Backtab
    row(0x01000003, 0x08); // Backspace
    row(0x01000004, 0x0D); // Return
    row(0x01000005, 0x0D); // Enter
    row(0x01000006, 0x2D); // Insert
    row(0x01000007, 0x2E); // Delete
    row(0x01000008, 0x13); // Pause
    row(0x01000009, 0x2A); // Print
    row(0x0100000B, 0x0C); // Clear
    row(0x01000010, 0x24); // Home
    row(0x01000011, 0x23); // End
    row(0x01000012, 0x25); // Left
    row(0x01000013, 0x26); // Up
    row(0x01000014, 0x27); // Right
    row(0x01000015, 0x28); // Down
    row(0x01000016, 0x21); // PageUp
    row(0x01000017, 0x22); // PageDown
    row(0x01000024, 0x14); // CapsLock
    row(0x01000025, 0x90); // NumLock
    row(0x01000026, 0x91); // ScrollLock
    for (int number = 0; number < 24; ++number)
        row(0x01000030 + number, 0x70 + static_cast<quint32>(number)); // F1 to F24
    row(0x01000055, 0x5D);                                             // Menu
    row(0x01000058, 0x2F);                                             // Help
    row(0x01000062, 0xA7);                                             // Forward
    row(0x01000063, 0xA9);                                             // Stop
    row(0x01000064, 0xA8);                                             // Refresh
    row(0x01000070, 0xAE);                                             // VolumeDown
    row(0x01000071, 0xAD);                                             // VolumeMute
    row(0x01000072, 0xAF);                                             // VolumeUp
    row(0x01000080, 0xB3);                                             // MediaPlay
    row(0x01000081, 0xB2);                                             // MediaStop
    row(0x01000082, 0xB1);                                             // MediaPrevious
    row(0x01000083, 0xB0);                                             // MediaNext
    row(0x01000090, 0xAC);                                             // HomePage
    row(0x01000091, 0xAB);                                             // Favorites
    row(0x01000092, 0xAA);                                             // Search
    row(0x010000A0, 0xB4);                                             // LaunchMail
    row(0x010000A1, 0xB5);                                             // LaunchMedia
    row(0x010000A2, 0xB6);                                             // Launch0
    row(0x010000A3, 0xB7);                                             // Launch1
    row(0x0100112B, 0x94);                                             // Touroku
    row(0x0100112C, 0x93);                                             // Massyo
    row(0x0100117E, 0x1F);                                             // Mode_switch
    row(0x01010000, 0x29);                                             // Select
    row(0x01020001, 0x03);                                             // Cancel
    row(0x01020002, 0x2A);                                             // Printer
    row(0x01020003, 0x2B);                                             // Execute
    row(0x01020004, 0x5F);                                             // Sleep
    row(0x01020005, 0xFA);                                             // Play
}

void tst_qhotkey_win::mapsSpecialKeys()
{
    QFETCH(int, key);
    QFETCH(quint32, virtualKey);
    QHotkey hotkey;
    QVERIFY(hotkey.setShortcut(static_cast<Qt::Key>(key), kControlShift, false));
    QVERIFY(hotkey.currentNativeShortcut() == NativeShortcut(virtualKey, 0x0006));
    QCOMPARE(hotkey.keyCode(), static_cast<Qt::Key>(key));
    QVERIFY(!hotkey.isRegistered());
}

void tst_qhotkey_win::mapsCharacters_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<quint32>("virtualKey");
    for (char letter = 'A'; letter <= 'Z'; ++letter)
        QTest::addRow("%c", letter) << int(letter) << quint32(letter);
    for (char digit = '0'; digit <= '9'; ++digit)
        QTest::addRow("%c", digit) << int(digit) << quint32(digit);
    QTest::newRow("space") << int(Qt::Key_Space) << quint32(VK_SPACE);
    // Where the layout has the character it says where; the decimal key stands in for a full stop that it has
    // not.
    for (const char character : {'.', ',', '!', '+', '-', '/', ';', '[', '@', '~'}) {
        const SHORT code = VkKeyScanW(static_cast<WCHAR>(character));
        if (code >= 0)
            QTest::addRow("%c", character) << int(character) << quint32(LOBYTE(code));
        else if (character == '.')
            QTest::newRow("full stop on a layout without it") << int(character) << quint32(VK_DECIMAL);
    }
}

void tst_qhotkey_win::mapsCharacters()
{
    QFETCH(int, key);
    QFETCH(quint32, virtualKey);
    const QHotkey hotkey(static_cast<Qt::Key>(key), kControl);
    QVERIFY(hotkey.currentNativeShortcut() ==
            NativeShortcut(virtualKey, 0x0002)); // no Shift of the layout's own
}

void tst_qhotkey_win::otherKeysAreUnmappable_data()
{
    QTest::addColumn<int>("key");
    for (const Qt::Key key :
         {Qt::Key_SysReq, Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_Meta, Qt::Key_AltGr,
          Qt::Key_F25, Qt::Key_F35, Qt::Key_Back, Qt::Key_MediaPause, Qt::Key_MediaRecord, Qt::Key_Standby,
          Qt::Key_Launch2, Qt::Key_Dead_Grave, Qt::Key_Hangul, Qt::Key_Camera})
        QTest::addRow("%x", static_cast<unsigned>(key)) << int(key);
    QTest::newRow("a character of no layout") << 0xE000;
}

void tst_qhotkey_win::otherKeysAreUnmappable()
{
    QFETCH(int, key);
    const LogCapture log;
    QHotkey hotkey;
    QVERIFY(!hotkey.setShortcut(static_cast<Qt::Key>(key), kControl, true));
    QVERIFY(!hotkey.currentNativeShortcut().isValid());
    QVERIFY(!hotkey.isRegistered());
    QCOMPARE(log.count(), 2);
    QCOMPARE(log.texts().constFirst(),
             QStringLiteral("QHotkeyPrivate::nativeShortcutInvoked -- nativeKeycode return: "
                            "false --nativeModifiers return: true"));
}

void tst_qhotkey_win::mapsModifiers_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<quint32>("native");
    QTest::newRow("none") << int(Qt::NoModifier) << 0U;
    QTest::newRow("Alt") << int(Qt::AltModifier) << 0x0001U;
    QTest::newRow("Ctrl") << int(Qt::ControlModifier) << 0x0002U;
    QTest::newRow("Shift") << int(Qt::ShiftModifier) << 0x0004U;
    QTest::newRow("Meta") << int(Qt::MetaModifier) << 0x0008U;
    QTest::newRow("keypad") << int(Qt::KeypadModifier) << 0U;
    QTest::newRow("group switch") << int(Qt::GroupSwitchModifier) << 0U;
    QTest::newRow("Ctrl and Shift") << int(kControlShift) << 0x0006U;
    QTest::newRow("all") << int(Qt::KeyboardModifierMask) << 0x000FU; // never MOD_NOREPEAT
}

void tst_qhotkey_win::mapsModifiers()
{
    QFETCH(int, modifiers);
    QFETCH(quint32, native);
    const QHotkey hotkey(Qt::Key_F4, Qt::KeyboardModifiers(modifiers));
    QVERIFY(hotkey.currentNativeShortcut() == NativeShortcut(0x73, native));
}

void tst_qhotkey_win::registersUnderItsIdentifier_data()
{
    QTest::addColumn<quint32>("key");
    QTest::addColumn<quint32>("modifier");
    QTest::newRow("Ctrl+F9") << quint32(VK_F9) << quint32(MOD_CONTROL);
    QTest::newRow("Ctrl+Shift+Alt+F10") << quint32(VK_F10) << quint32(MOD_CONTROL | MOD_SHIFT | MOD_ALT);
    QTest::newRow("F11") << quint32(VK_F11) << 0U;
    QTest::newRow("Win+Shift+L") << quint32('L') << quint32(MOD_WIN | MOD_SHIFT);
    QTest::newRow("Ctrl+Play") << quint32(VK_PLAY) << quint32(MOD_CONTROL);
}

void tst_qhotkey_win::registersUnderItsIdentifier()
{
    QFETCH(quint32, key);
    QFETCH(quint32, modifier);
    const NativeShortcut shortcut(key, modifier);
    QHotkey hotkey(shortcut, true);
    QVERIFY(hotkey.isRegistered());
    QVERIFY(!UnregisterHotKey(nullptr, registeredIdentifier(shortcut) ^ 1));
    QVERIFY(UnregisterHotKey(nullptr, registeredIdentifier(shortcut)));

    QVERIFY(RegisterHotKey(nullptr, unregisteredIdentifier(shortcut), modifier, key));
    QVERIFY(hotkey.setRegistered(false)); // releases what stands under its identifier
    QVERIFY(!UnregisterHotKey(nullptr, registeredIdentifier(shortcut)));
}

void tst_qhotkey_win::registrationIsTheSystems()
{
    QHotkey hotkey(Qt::Key_F9, kControlShift);
    const NativeShortcut shortcut = hotkey.currentNativeShortcut();
    QCOMPARE(triedByAnotherProcess(shortcut), QByteArray("held"));
    QVERIFY(hotkey.setRegistered(true));
    QCOMPARE(triedByAnotherProcess(shortcut), QByteArray("refused"));
    QVERIFY(hotkey.setRegistered(false));
    QCOMPARE(triedByAnotherProcess(shortcut), QByteArray("held"));
}

void tst_qhotkey_win::heldByAnotherProcessIsRefused()
{
    QHotkey hotkey(Qt::Key_F9, kControlShift);
    OtherProcess holder(holding(hotkey.currentNativeShortcut()));
    QCOMPARE(holder.report(), QByteArray("held"));

    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);
    const LogCapture log;
    QVERIFY(!hotkey.setRegistered(true));
    QVERIFY(!hotkey.isRegistered());
    QCOMPARE(changed.count(), 0);
    QCOMPARE(log.count(), 1);
    const LogLine line = log.lines().constFirst();
    QCOMPARE(line.type, QtWarningMsg);
    QCOMPARE(line.category, QStringLiteral("QHotkey"));
    QCOMPARE(line.text, QStringLiteral("Failed to register hotkey. Error: ") +
                            systemText(ERROR_HOTKEY_ALREADY_REGISTERED));
    QVERIFY(line.text.endsWith(QLatin1String("\r\n")));
    QVERIFY(line.function.contains(QLatin1String("QHotkeyPrivateWin::registerShortcut(")));

    // The next one is refused as well: nothing of the first one was left in the table.
    QVERIFY(!QHotkey(hotkey.currentNativeShortcut(), true).isRegistered());
}

void tst_qhotkey_win::releasedByTheOtherProcessIsTaken()
{
    QHotkey hotkey(Qt::Key_F9, kControlShift);
    {
        OtherProcess holder(holding(hotkey.currentNativeShortcut()));
        QCOMPARE(holder.report(), QByteArray("held"));
        const LogCapture log;
        QVERIFY(!hotkey.setRegistered(true));
    }
    QVERIFY(hotkey.setRegistered(true));
}

void tst_qhotkey_win::failingReleaseIsReported()
{
    QHotkey hotkey(Qt::Key_F9, kControlShift, true);
    QVERIFY(UnregisterHotKey(nullptr, registeredIdentifier(hotkey.currentNativeShortcut())));
    const QSignalSpy changed(&hotkey, &QHotkey::registeredChanged);
    const LogCapture log;
    QVERIFY(!hotkey.setRegistered(false));
    QVERIFY(!hotkey.isRegistered());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toBool(), true);
    QCOMPARE(log.count(), 1);
    const LogLine line = log.lines().constFirst();
    QCOMPARE(line.type, QtWarningMsg);
    QCOMPARE(line.category, QStringLiteral("QHotkey"));
    QCOMPARE(line.text, QStringLiteral("Failed to unregister hotkey. Error: ") +
                            systemText(ERROR_HOTKEY_NOT_REGISTERED));
    QVERIFY(line.function.contains(QLatin1String("QHotkeyPrivateWin::unregisterShortcut(")));
    QVERIFY(hotkey.setRegistered(true)); // it has left the table
}

void tst_qhotkey_win::systemsTextIsReadable_data()
{
    QTest::addColumn<int>("language");
    QTest::newRow("ASCII alone") << int(LANG_ENGLISH);
    QTest::newRow("with accents") << int(LANG_PORTUGUESE);
    QTest::newRow("of another script") << int(LANG_CHINESE);
}

// The local encoding need not have the characters of the language: then question marks stand for them.
void tst_qhotkey_win::systemsTextIsReadable()
{
    QFETCH(int, language);
    const LCID locale = GetThreadLocale();
    QVERIFY(SetThreadLocale(MAKELCID(MAKELANGID(language, SUBLANG_DEFAULT), SORT_DEFAULT)));
    const QString text = systemText(ERROR_HOTKEY_NOT_REGISTERED);
    QHotkey hotkey(Qt::Key_F9, kControlShift, true);
    UnregisterHotKey(nullptr, registeredIdentifier(hotkey.currentNativeShortcut()));
    const LogCapture log;
    QVERIFY(!hotkey.setRegistered(false));
    SetThreadLocale(locale);
    QCOMPARE(log.texts(), QStringList(QStringLiteral("Failed to unregister hotkey. Error: ") +
                                      QString::fromLocal8Bit(text.toLocal8Bit())));
    QVERIFY(!log.texts().constFirst().contains(QChar::ReplacementCharacter));
}

void tst_qhotkey_win::destructionFreesTheCombination()
{
    NativeShortcut shortcut;
    {
        const QHotkey hotkey(Qt::Key_F9, kControlShift, true);
        QVERIFY(hotkey.isRegistered());
        shortcut = hotkey.currentNativeShortcut();
    }
    QCOMPARE(triedByAnotherProcess(shortcut), QByteArray("held"));
}

void tst_qhotkey_win::sharersRegisterOnce()
{
    QHotkey first(Qt::Key_F9, kControlShift, true);
    QHotkey second(Qt::Key_F9, kControlShift, true);
    QVERIFY(first.isRegistered() && second.isRegistered());
    QVERIFY(first.setRegistered(false));
    QCOMPARE(triedByAnotherProcess(second.currentNativeShortcut()), QByteArray("refused"));
    QVERIFY(second.setRegistered(false));
    QCOMPARE(triedByAnotherProcess(second.currentNativeShortcut()), QByteArray("held"));
}

void tst_qhotkey_win::postedMessageReachesEverySharerOnce()
{
    QHotkey first(Qt::Key_F9, kControlShift, true);
    QHotkey second(Qt::Key_F9, kControlShift, true);
    QHotkey other(Qt::Key_F10, kControlShift, true);
    const QSignalSpy firstActivated(&first, &QHotkey::activated);
    const QSignalSpy secondActivated(&second, &QHotkey::activated);
    const QSignalSpy otherActivated(&other, &QHotkey::activated);
    postHotkey(first.currentNativeShortcut());
    QTRY_COMPARE(firstActivated.count(), 1);
    QTRY_COMPARE(secondActivated.count(), 1);
    postHotkey(other.currentNativeShortcut());
    QTRY_COMPARE(otherActivated.count(), 1);
    QCOMPARE(firstActivated.count(), 1);
    QCOMPARE(secondActivated.count(), 1);
}

void tst_qhotkey_win::messageForNobodyIsIgnored()
{
    QHotkey hotkey(Qt::Key_F9, kControlShift, true);
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    const NativeShortcut shortcut = hotkey.currentNativeShortcut();
    postHotkey(NativeShortcut(shortcut.key, shortcut.modifier | MOD_ALT));
    postHotkey(NativeShortcut(shortcut.key + 1, shortcut.modifier));
    PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, messageParameter(shortcut));
    postHotkey(shortcut); // the last of them, so that all have been seen
    QTRY_COMPARE(activated.count(), 1);
}

void tst_qhotkey_win::everyMessageIsPassedOn()
{
    QHotkey hotkey(Qt::Key_F9, kControlShift, true);
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    MSG message{};
    message.message = WM_HOTKEY;
    message.lParam = messageParameter(hotkey.currentNativeShortcut());
    orvqt::NativeResult result = 12345;
    QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    for (const char *type : {"windows_generic_MSG", "windows_dispatcher_MSG", "anything", ""})
        QVERIFY(!dispatcher->filterNativeEvent(QByteArray(type), &message, &result));
    message.message = WM_KEYDOWN;
    QVERIFY(!dispatcher->filterNativeEvent(QByteArrayLiteral("windows_generic_MSG"), &message, &result));
    QCOMPARE(result, 12345L);
    QCOMPARE(activated.count(), 0); // later, not inside the filter
    QCoreApplication::processEvents();
    QCOMPARE(activated.count(), 4);
}

void tst_qhotkey_win::pressActivatesWhileAnotherProcessHasTheFocus_data()
{
    QTest::addColumn<bool>("oldFunction");
    QTest::newRow("SendInput") << false;
    QTest::newRow("keybd_event") << true;
}

void tst_qhotkey_win::pressActivatesWhileAnotherProcessHasTheFocus()
{
    QFETCH(bool, oldFunction);
    OtherProcess other({QString::fromLatin1(kHaveFocus)});
    QCOMPARE(other.report(), QByteArray("active"));
    DWORD owner = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &owner);
    QVERIFY(owner != 0 && owner != GetCurrentProcessId());

    QHotkey hotkey(Qt::Key_F9, kControlShift, true);
    const QSignalSpy activated(&hotkey, &QHotkey::activated);
    if (oldFunction) {
        for (const BYTE key : {VK_CONTROL, VK_SHIFT, VK_F9})
            keybd_event(key, 0, 0, 0);
        for (const BYTE key : {VK_F9, VK_SHIFT, VK_CONTROL})
            keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
    } else {
        pressKeys({VK_CONTROL, VK_SHIFT, VK_F9});
    }
    QTRY_COMPARE(activated.count(), 1);

    QVERIFY(hotkey.setRegistered(false));
    pressKeys({VK_CONTROL, VK_SHIFT, VK_F9});
    QVERIFY(hotkey.setRegistered(true));
    pressKeys({VK_CONTROL, VK_SHIFT, VK_F9});
    QTRY_COMPARE(activated.count(), 2);
}

void tst_qhotkey_win::manyChangesLeaveNothing()
{
    const LogCapture log;
    QHotkey hotkey;
    for (int change = 0; change < 10000; ++change)
        QVERIFY(hotkey.setShortcut(static_cast<Qt::Key>(Qt::Key_F1 + change % 11), kControlShift, true));
    QVERIFY(hotkey.resetShortcut());
    QCOMPARE(log.count(), 0);
    for (quint32 key = VK_F1; key <= VK_F11; ++key) {
        const int identifier = registeredIdentifier(NativeShortcut(key, MOD_CONTROL | MOD_SHIFT));
        QVERIFY(!UnregisterHotKey(nullptr, identifier));
        QVERIFY(RegisterHotKey(nullptr, identifier, MOD_CONTROL | MOD_SHIFT, key));
        QVERIFY(UnregisterHotKey(nullptr, identifier));
    }
}

void tst_qhotkey_win::manySharersLeaveNothing()
{
    std::vector<std::unique_ptr<QHotkey>> hotkeys;
    int activations = 0;
    for (int index = 0; index < 1000; ++index) {
        hotkeys.push_back(std::make_unique<QHotkey>(Qt::Key_F9, kControlShift, true));
        connect(hotkeys.back().get(), &QHotkey::activated, this, [&] { ++activations; });
    }
    const NativeShortcut shortcut = hotkeys.front()->currentNativeShortcut();
    postHotkey(shortcut);
    QTRY_COMPARE(activations, 1000);
    hotkeys.resize(1);
    QVERIFY(hotkeys.front()->isRegistered());
    hotkeys.clear();
    QVERIFY(!UnregisterHotKey(nullptr, registeredIdentifier(shortcut)));
}

// The other modes of this program. Each says what it has achieved and stays until its standard input ends.
static void say(const char *line)
{
    std::puts(line);
    std::fflush(stdout);
}

static void waitForEnd()
{
    char buffer[16];
    while (std::fgets(buffer, sizeof(buffer), stdin)) {
    }
}

static int holdHotkey(UINT key, UINT modifiers)
{
    say(RegisterHotKey(nullptr, 1, modifiers, key) ? "held" : "refused");
    waitForEnd();
    return 0;
}

static int haveFocus(int argc, char **argv)
{
    QApplication application(argc, argv);
    QLineEdit edit;
    edit.show();
    edit.activateWindow();
    SetForegroundWindow(reinterpret_cast<HWND>(edit.winId()));
    const bool active = QTest::qWaitForWindowActive(&edit);
    say(active ? "active" : "not active");
    waitForEnd();
    return 0;
}

int main(int argc, char **argv)
{
    const QByteArray mode(argc > 1 ? argv[1] : "");
    if (mode == kHoldHotkey)
        return holdHotkey(QByteArray(argv[2]).toUInt(), QByteArray(argv[3]).toUInt());
    if (mode == kHaveFocus)
        return haveFocus(argc, argv);
    QApplication application(argc, argv);
    tst_qhotkey_win test;
    return TestMain::run(&test, argc, argv);
}

#include "tst_qhotkey_win.moc"
