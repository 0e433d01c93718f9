#pragma once

#include "qhotkey.h"

#include <QtCore/QAbstractNativeEventFilter>
#include <QtCore/QHash>
#include <QtCore/QObject>

/// The registry behind every QHotkey of the process.
///
/// It translates Qt's shortcuts into the system's, registers each distinct one with the system once however
/// many hotkeys share it, and hands each press to all hotkeys under the pressed shortcut. What differs from
/// one system to the next are the operations that a backend implements, and its native event filter. Backends
/// are made in the library; clients have no reason to use this class.
///
/// Threads: the registry lives in the thread that first called instance(), which should be the GUI thread.
/// The public operations may be called from any thread; in another one they block until the registry's thread
/// has answered, as QHotkey describes it. The events of a second application object are watched from the
/// first operation on that follows.
///
/// \since 1.0
/// \sa QHotkey
/// \ingroup hotkeys
class ORVCOMMONLIB_EXPORT QHotkeyPrivate
    : public QObject
    , public QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    /// Warns when hotkeys are still registered; their registrations are left to the system. Calls of other
    /// threads that still wait fail.
    ~QHotkeyPrivate() override;
    Q_DISABLE_COPY(QHotkeyPrivate)

    /// The registry of this system, made by the first call.
    /// \return null once it was destroyed at the end of the process
    static QHotkeyPrivate *instance();

    /// The system's form of a shortcut.
    /// \param keycode,modifiers the shortcut in Qt's form
    /// \return an invalid shortcut, with a line in the log, when the system does not know the key
    QHotkey::NativeShortcut nativeShortcut(Qt::Key keycode, Qt::KeyboardModifiers modifiers);
    /// Registers a hotkey's native shortcut and emits its `registeredChanged(true)`.
    /// \param hotkey the hotkey, which stays the caller's
    /// \return false, without a signal, when it is registered already or null, or the system refuses
    bool addShortcut(QHotkey *hotkey);
    /// Removes a hotkey, which emits `registeredChanged(true)` and then `registeredChanged(false)`; see
    /// there.
    /// \param hotkey the hotkey, which stays the caller's
    /// \return false when it is null or not registered, or the system fails to release the shortcut
    bool removeShortcut(QHotkey *hotkey);

protected:
    /// Installs the registry as native event filter of the application.
    QHotkeyPrivate();

    /// Makes every hotkey under a shortcut emit `activated`, most recently added first, each through the
    /// event loop of its own thread: never inside the caller.
    /// \param shortcut what was pressed
    void activateShortcut(QHotkey::NativeShortcut shortcut);

    /// The system's code of a key.
    /// \param keycode the key
    /// \param ok set to whether there is one
    /// \return the code
    virtual quint32 nativeKeycode(Qt::Key keycode, bool &ok) = 0;
    /// The system's flags of modifiers.
    /// \param modifiers the modifiers
    /// \param ok set to whether there are any
    /// \return the flags
    virtual quint32 nativeModifiers(Qt::KeyboardModifiers modifiers, bool &ok) = 0;
    /// Registers with the system.
    /// \param shortcut what to register
    /// \return false, after a warning in logQHotkey, when the system refuses
    virtual bool registerShortcut(QHotkey::NativeShortcut shortcut) = 0;
    /// Releases the registration.
    /// \param shortcut what to release
    /// \return false, after a warning in logQHotkey, when the system refuses
    virtual bool unregisterShortcut(QHotkey::NativeShortcut shortcut) = 0;
    /// Whether there are global hotkeys at all; where there are none registerShortcut() says so, and does no
    /// more. Called from any thread.
    /// \return whether there are
    virtual bool hasSystem() const { return true; }
    /// Whether the system still keeps what was registered; where it has dropped it, the next hotkey registers
    /// anew.
    /// \param shortcut what was registered
    /// \return whether it does
    virtual bool systemHolds(QHotkey::NativeShortcut shortcut);

private:
    friend class QHotkey;

    Q_INVOKABLE bool addShortcutInvoked(QHotkey *hotkey);
    Q_INVOKABLE bool removeShortcutInvoked(QHotkey *hotkey);
    Q_INVOKABLE QHotkey::NativeShortcut nativeShortcutInvoked(Qt::Key keycode,
                                                              Qt::KeyboardModifiers modifiers);

    bool changeInOwnThread(bool (QHotkeyPrivate::*change)(QHotkey *), QHotkey *hotkey);
    void abandon(QHotkey *hotkey);
    void catchUp();

    QMultiHash<QHotkey::NativeShortcut, QHotkey *> m_shortcuts;
};
