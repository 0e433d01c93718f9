// Systems for which there is no backend: no key is known, no shortcut can be registered, and the log says so.

#include "qhotkey_p.h"

#include <QtCore/QGlobalStatic>

/// The registry on a system without global hotkeys.
class QHotkeyPrivateNone : public QHotkeyPrivate
{
public:
    bool nativeEventFilter(const QByteArray & /*eventType*/, void * /*message*/, long * /*result*/) override
    {
        return false;
    }

protected:
    quint32 nativeKeycode(Qt::Key keycode, bool &ok) override;
    quint32 nativeModifiers(Qt::KeyboardModifiers modifiers, bool &ok) override;
    bool registerShortcut(QHotkey::NativeShortcut shortcut) override;
    bool unregisterShortcut(QHotkey::NativeShortcut shortcut) override;
};

Q_GLOBAL_STATIC(QHotkeyPrivateNone, registry)

QHotkeyPrivate *QHotkeyPrivate::instance()
{
    return registry;
}

quint32 QHotkeyPrivateNone::nativeKeycode(Qt::Key /*keycode*/, bool &ok)
{
    ok = false;
    return 0;
}

quint32 QHotkeyPrivateNone::nativeModifiers(Qt::KeyboardModifiers /*modifiers*/, bool &ok)
{
    ok = true;
    return 0;
}

bool QHotkeyPrivateNone::registerShortcut(QHotkey::NativeShortcut /*shortcut*/)
{
    qCWarning(logQHotkey) << "Failed to register hotkey. Error: this system offers no global hotkeys";
    return false;
}

bool QHotkeyPrivateNone::unregisterShortcut(QHotkey::NativeShortcut /*shortcut*/)
{
    qCWarning(logQHotkey) << "Failed to unregister hotkey. Error: this system offers no global hotkeys";
    return false;
}
