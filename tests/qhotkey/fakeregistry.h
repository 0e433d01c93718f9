#pragma once

#include "orvqtcompat.h"
#include "qhotkey_p.h"

#include <QtCore/QStringList>

/// A registry over a system that exists only in the test: it agrees or refuses as told, and writes down every
/// call.
class FakeRegistry : public QHotkeyPrivate
{
public:
    bool agrees = true;   ///< to what is registered
    bool releases = true; ///< what was registered
    bool knowsKeys = true;
    bool knowsModifiers = true;
    QStringList calls;

    /// As if the keys were pressed.
    void press(QHotkey::NativeShortcut shortcut) { activateShortcut(shortcut); }

    bool nativeEventFilter(const QByteArray & /*eventType*/, void * /*message*/,
                           orvqt::NativeResult * /*result*/) override
    {
        return false;
    }

protected:
    quint32 nativeKeycode(Qt::Key keycode, bool &ok) override
    {
        calls << QStringLiteral("key");
        ok = knowsKeys;
        return static_cast<quint32>(keycode) + 1;
    }
    quint32 nativeModifiers(Qt::KeyboardModifiers modifiers, bool &ok) override
    {
        calls << QStringLiteral("modifiers");
        ok = knowsModifiers;
        return static_cast<quint32>(modifiers) + 2;
    }
    bool registerShortcut(QHotkey::NativeShortcut shortcut) override
    {
        calls << QStringLiteral("register %1").arg(shortcut.key);
        return agrees;
    }
    bool unregisterShortcut(QHotkey::NativeShortcut shortcut) override
    {
        calls << QStringLiteral("unregister %1").arg(shortcut.key);
        return releases;
    }
};
