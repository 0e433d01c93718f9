// Global hotkeys through RegisterHotKey().

#include "nativekeys.h"
#include "orvqtcompat.h"
#include "qhotkey_p.h"

#include <QtCore/QGlobalStatic>

#include <qt_windows.h>

namespace {

constexpr NativeKey kKeys[] = {
    {Qt::Key_Escape, VK_ESCAPE},
    {Qt::Key_Tab, VK_TAB},
    {Qt::Key_Backtab, VK_TAB},
    {Qt::Key_Backspace, VK_BACK},
    {Qt::Key_Return, VK_RETURN},
    {Qt::Key_Enter, VK_RETURN},
    {Qt::Key_Insert, VK_INSERT},
    {Qt::Key_Delete, VK_DELETE},
    {Qt::Key_Pause, VK_PAUSE},
    {Qt::Key_Print, VK_PRINT},
    {Qt::Key_Clear, VK_CLEAR},
    {Qt::Key_Home, VK_HOME},
    {Qt::Key_End, VK_END},
    {Qt::Key_Left, VK_LEFT},
    {Qt::Key_Up, VK_UP},
    {Qt::Key_Right, VK_RIGHT},
    {Qt::Key_Down, VK_DOWN},
    {Qt::Key_PageUp, VK_PRIOR},
    {Qt::Key_PageDown, VK_NEXT},
    {Qt::Key_CapsLock, VK_CAPITAL},
    {Qt::Key_NumLock, VK_NUMLOCK},
    {Qt::Key_ScrollLock, VK_SCROLL},
    {Qt::Key_Menu, VK_APPS},
    {Qt::Key_Help, VK_HELP},
    {Qt::Key_Forward, VK_BROWSER_FORWARD},
    {Qt::Key_Stop, VK_BROWSER_STOP},
    {Qt::Key_Refresh, VK_BROWSER_REFRESH},
    {Qt::Key_VolumeDown, VK_VOLUME_DOWN},
    {Qt::Key_VolumeMute, VK_VOLUME_MUTE},
    {Qt::Key_VolumeUp, VK_VOLUME_UP},
    {Qt::Key_MediaPlay, VK_MEDIA_PLAY_PAUSE},
    {Qt::Key_MediaStop, VK_MEDIA_STOP},
    {Qt::Key_MediaPrevious, VK_MEDIA_PREV_TRACK},
    {Qt::Key_MediaNext, VK_MEDIA_NEXT_TRACK},
    {Qt::Key_HomePage, VK_BROWSER_HOME},
    {Qt::Key_Favorites, VK_BROWSER_FAVORITES},
    {Qt::Key_Search, VK_BROWSER_SEARCH},
    {Qt::Key_LaunchMail, VK_LAUNCH_MAIL},
    {Qt::Key_LaunchMedia, VK_LAUNCH_MEDIA_SELECT},
    {Qt::Key_Launch0, VK_LAUNCH_APP1},
    {Qt::Key_Launch1, VK_LAUNCH_APP2},
    {Qt::Key_Touroku, VK_OEM_FJ_TOUROKU},
    {Qt::Key_Massyo, VK_OEM_FJ_MASSHOU},
    {Qt::Key_Mode_switch, VK_MODECHANGE},
    {Qt::Key_Select, VK_SELECT},
    {Qt::Key_Cancel, VK_CANCEL},
    {Qt::Key_Printer, VK_PRINT},
    {Qt::Key_Execute, VK_EXECUTE},
    {Qt::Key_Sleep, VK_SLEEP},
    {Qt::Key_Play, VK_PLAY},
    {Qt::Key_Period, VK_DECIMAL} // for a keyboard layout without a full stop
};

constexpr NativeKey kModifiers[] = {
    {Qt::ShiftModifier, MOD_SHIFT},
    {Qt::ControlModifier, MOD_CONTROL},
    {Qt::AltModifier, MOD_ALT},
    {Qt::MetaModifier, MOD_WIN},
};

constexpr int kFirstSpecialKey = 0x10000; // smaller Qt keys are characters

// Two shortcuts may share an identifier; the system then refuses the second one. RegisterHotKey() leaves the
// numbers below 0xC000 to programs.
int identifier(QHotkey::NativeShortcut shortcut)
{
    return static_cast<int>(((shortcut.key ^ (shortcut.modifier << 8)) & 0x0FFF) | 0x7000);
}

// What the text says in the local 8-bit encoding, in the encoding that QDebug reads.
QByteArray systemText(DWORD error)
{
    wchar_t *buffer = nullptr;
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM, nullptr,
                                        error, 0, reinterpret_cast<wchar_t *>(&buffer), 0, nullptr);
    if (!buffer)
        return {};
    const QString text = QString::fromWCharArray(buffer, static_cast<int>(length));
    LocalFree(buffer);
    return QString::fromLocal8Bit(text.toLocal8Bit()).toUtf8();
}

} // namespace

/// The registry on Windows.
class QHotkeyPrivateWin : public QHotkeyPrivate
{
public:
    bool nativeEventFilter(const QByteArray &eventType, void *message, orvqt::NativeResult *result) override;

protected:
    quint32 nativeKeycode(Qt::Key keycode, bool &ok) override;
    quint32 nativeModifiers(Qt::KeyboardModifiers modifiers, bool &ok) override;
    bool registerShortcut(QHotkey::NativeShortcut shortcut) override;
    bool unregisterShortcut(QHotkey::NativeShortcut shortcut) override;
};

Q_GLOBAL_STATIC(QHotkeyPrivateWin, registry)

QHotkeyPrivate *QHotkeyPrivate::instance()
{
    return registry;
}

// The system posts WM_HOTKEY to the thread that has registered, and everybody else may see it too.
bool QHotkeyPrivateWin::nativeEventFilter(const QByteArray & /*eventType*/, void *message,
                                          orvqt::NativeResult * /*result*/)
{
    const MSG *const msg = static_cast<MSG *>(message);
    if (msg->message == WM_HOTKEY)
        activateShortcut({HIWORD(msg->lParam), LOWORD(msg->lParam)});
    return false;
}

quint32 QHotkeyPrivateWin::nativeKeycode(Qt::Key keycode, bool &ok)
{
    ok = true;
    if (keycode < kFirstSpecialKey) {
        const SHORT code = VkKeyScanW(static_cast<WCHAR>(keycode));
        if (code >= 0)
            return LOBYTE(
                code); // the high byte is of Shift, Ctrl and Alt: the client names its own modifiers
    }
    if (keycode >= Qt::Key_F1 && keycode <= Qt::Key_F24)
        return static_cast<quint32>(VK_F1 + (keycode - Qt::Key_F1));
    const quint32 code = nativeCode(kKeys, keycode);
    ok = code != 0;
    return code;
}

// Without MOD_NOREPEAT: holding the keys down repeats the hotkey.
quint32 QHotkeyPrivateWin::nativeModifiers(Qt::KeyboardModifiers modifiers, bool &ok)
{
    ok = true;
    return nativeFlags(kModifiers, modifiers);
}

bool QHotkeyPrivateWin::registerShortcut(QHotkey::NativeShortcut shortcut)
{
    if (RegisterHotKey(nullptr, identifier(shortcut), shortcut.modifier, shortcut.key))
        return true;
    const DWORD error = GetLastError();
    qCWarning(logQHotkey) << "Failed to register hotkey. Error:" << systemText(error).constData();
    return false;
}

bool QHotkeyPrivateWin::unregisterShortcut(QHotkey::NativeShortcut shortcut)
{
    if (UnregisterHotKey(nullptr, identifier(shortcut)))
        return true;
    const DWORD error = GetLastError();
    qCWarning(logQHotkey) << "Failed to unregister hotkey. Error:" << systemText(error).constData();
    return false;
}
