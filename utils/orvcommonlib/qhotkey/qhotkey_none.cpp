// Systems for which there is no backend: no key is known, no shortcut can be registered, and the log says so.

#include "orvqtcompat.h"
#include "qhotkey_p.h"

#include <QtCore/QGlobalStatic>
#include <QtGui/QGuiApplication>

/// The registry on a system without global hotkeys.
class QHotkeyPrivateNone : public QHotkeyPrivate
{
public:
    bool nativeEventFilter(const QByteArray &, void *, orvqt::NativeResult *) override { return false; }

protected:
    bool hasSystem() const override { return false; }
    quint32 nativeKeycode(Qt::Key /*keycode*/, bool &ok) override
    {
        ok = false;
        return 0;
    }
    quint32 nativeModifiers(Qt::KeyboardModifiers /*modifiers*/, bool &ok) override
    {
        ok = true;
        return 0;
    }
    bool registerShortcut(QHotkey::NativeShortcut /*shortcut*/) override
    {
        qCWarning(logQHotkey)
            << "Failed to register hotkey. Error: there are no global hotkeys on the platform"
            << QGuiApplication::platformName();
        return false;
    }
    bool unregisterShortcut(QHotkey::NativeShortcut /*shortcut*/) override { return false; }
};

Q_GLOBAL_STATIC(QHotkeyPrivateNone, registry)

QHotkeyPrivate *QHotkeyPrivate::instance()
{
    return registry;
}
