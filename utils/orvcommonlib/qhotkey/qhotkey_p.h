#pragma once

#include "qhotkey.h"

#include <QtCore/QAbstractNativeEventFilter>
#include <QtCore/QHash>
#include <QtCore/QObject>

/// The registry behind every QHotkey of the process.
///
/// It translates Qt's shortcuts into the system's, registers each distinct one with the system once however
/// many hotkeys share it, and hands each press to all hotkeys under the pressed shortcut. What differs from
/// one system to the next are the four operations that a backend implements, and its native event filter.
///
/// Threads: the registry lives in the thread that first called instance(), which should be the GUI thread.
/// The public operations may be called from any thread; in another thread they block until the registry's
/// event loop has answered. From the moment that this loop has ended (QCoreApplication::aboutToQuit(), the
/// end of the registry's QThread, or the end of the application object) they are answered only while events
/// are processed all the same, and otherwise fail after a second. Do not wait in the registry's thread for
/// a thread that may be inside such a call.
///
/// Backends are made in the library; clients have no reason to use this class.
class ORVCOMMONLIB_EXPORT QHotkeyPrivate
    : public QObject
    , public QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    /// Warns when hotkeys are still registered; their registrations are left to the system.
    ~QHotkeyPrivate() override;
    Q_DISABLE_COPY(QHotkeyPrivate)

    /// The registry of this system, made by the first call; null once it was destroyed at the end of the
    /// process.
    static QHotkeyPrivate *instance();

    /// The system's form of a shortcut; invalid, with a line in the log, when the system does not know the
    /// key.
    QHotkey::NativeShortcut nativeShortcut(Qt::Key keycode, Qt::KeyboardModifiers modifiers);
    /// Registers the hotkey's native shortcut and emits its `registeredChanged(true)`. False, without a
    /// signal, when the hotkey is registered already or null, or the system refuses.
    bool addShortcut(QHotkey *hotkey);
    /// Removes the hotkey, which emits `registeredChanged(true)` and then `registeredChanged(false)`; see
    /// there. False when the hotkey is null, not registered, or the system fails to release the shortcut.
    bool removeShortcut(QHotkey *hotkey);

protected:
    /// Installs the registry as native event filter of the application.
    QHotkeyPrivate();

    /// Makes every hotkey under this shortcut emit `activated`, most recently added first, each through the
    /// event loop of its own thread: never inside the caller.
    void activateShortcut(QHotkey::NativeShortcut shortcut);

    /// The system's code of a key; `ok` tells whether there is one.
    virtual quint32 nativeKeycode(Qt::Key keycode, bool &ok) = 0;
    /// The system's modifier flags; `ok` tells whether there are any.
    virtual quint32 nativeModifiers(Qt::KeyboardModifiers modifiers, bool &ok) = 0;
    /// Registers with the system. A failure is warned of in logQHotkey.
    virtual bool registerShortcut(QHotkey::NativeShortcut shortcut) = 0;
    /// Releases the registration. A failure is warned of in logQHotkey.
    virtual bool unregisterShortcut(QHotkey::NativeShortcut shortcut) = 0;

private:
    friend class QHotkey;

    Q_INVOKABLE bool addShortcutInvoked(QHotkey *hotkey);
    Q_INVOKABLE bool removeShortcutInvoked(QHotkey *hotkey);
    Q_INVOKABLE QHotkey::NativeShortcut nativeShortcutInvoked(Qt::Key keycode,
                                                              Qt::KeyboardModifiers modifiers);

    bool invokeInOwnThread(const char *method, QHotkey *hotkey);
    void abandon(QHotkey *hotkey);

    QMultiHash<QHotkey::NativeShortcut, QHotkey *> m_shortcuts;
};
