#include "hotkeysystem.h"

#include "orvqtcompat.h"

#include <QtCore/QAbstractEventDispatcher>

#include <qt_windows.h>

namespace {

constexpr int kIdentifier = 1;

} // namespace

void HotkeySystem::registerAndRelease(QHotkey::NativeShortcut shortcut)
{
    RegisterHotKey(nullptr, kIdentifier, shortcut.modifier, shortcut.key);
    UnregisterHotKey(nullptr, kIdentifier);
}

void HotkeySystem::press(QHotkey::NativeShortcut shortcut)
{
    MSG message{};
    message.message = WM_HOTKEY;
    message.lParam = MAKELPARAM(shortcut.modifier, shortcut.key);
    orvqt::NativeResult result = 0;
    QAbstractEventDispatcher::instance()->filterNativeEvent(QByteArrayLiteral("windows_generic_MSG"),
                                                            &message, &result);
}
