#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QLoggingCategory>
#include <QtCore/QMetaType>
#include <QtCore/QObject>
#include <QtGui/QKeySequence>

class QHotkeyPrivate;

/// The category "QHotkey", in which everything about global hotkeys warns.
ORVCOMMONLIB_EXPORT const QLoggingCategory &logQHotkey();

/// A keyboard shortcut of the whole desktop: it fires while any program has the focus.
///
/// A hotkey holds one shortcut in two forms, Qt's (a key and modifiers) and the system's (a
/// NativeShortcut), and is either registered with the system or not. Several hotkeys may share one
/// shortcut: all of them fire. Nothing throws and nothing is shown to the user: a failure is a false
/// result and a warning in the category logQHotkey.
///
/// Threads: a hotkey may live in any thread and is used from that thread. The registry behind all hotkeys
/// lives in the thread that used a hotkey first, which should be the GUI thread; calls from other threads
/// wait until that thread's event loop has answered them. Once that loop has ended they fail after a
/// short wait instead of waiting for ever. A QCoreApplication must exist before the first hotkey is set
/// up, and no hotkey may be used after the static objects of the library are gone.
class ORVCOMMONLIB_EXPORT QHotkey : public QObject
{
    Q_OBJECT
    /// Whether the system knows the hotkey.
    Q_PROPERTY(bool registered READ isRegistered WRITE setRegistered NOTIFY registeredChanged)
    /// The shortcut in Qt's form; empty when there is none, or when it was given in the system's form.
    Q_PROPERTY(QKeySequence shortcut READ shortcut WRITE setShortcut RESET resetShortcut)

public:
    /// A shortcut in the system's own terms.
    ///
    /// On Windows `key` is a virtual-key code and `modifier` holds `MOD_` flags. On X11 `key` is a keysym, so
    /// that a hotkey follows its symbol when the keyboard layout changes, and `modifier` holds the modifier
    /// bits of the core protocol (Alt is Mod1, Meta is Mod4).
    class ORVCOMMONLIB_EXPORT NativeShortcut
    {
    public:
        /// An invalid shortcut; both codes are 0.
        NativeShortcut();
        /// A valid shortcut.
        NativeShortcut(quint32 nativeKey, quint32 nativeModifier);
        // Declared, so that the library exports them: mingw-w64 exports nothing that a compiler adds by
        // itself.
        NativeShortcut(const NativeShortcut &other);
        NativeShortcut(NativeShortcut &&other) noexcept;
        NativeShortcut &operator=(const NativeShortcut &other);
        NativeShortcut &operator=(NativeShortcut &&other) noexcept;
        ~NativeShortcut();

        /// Whether a key and a modifier were given.
        bool isValid() const;

        /// Equal when both codes and the validity are equal; any two default-made shortcuts are.
        bool operator==(const NativeShortcut &other) const;
        bool operator!=(const NativeShortcut &other) const;

        quint32 key = 0;
        quint32 modifier = 0;
        bool valid = false;
    };

    /// A hotkey without a shortcut.
    explicit QHotkey(QObject *parent = nullptr);
    /// As setShortcut() with these arguments; its result is lost, so look at isRegistered() and shortcut().
    explicit QHotkey(const QKeySequence &shortcut, bool autoRegister = false, QObject *parent = nullptr);
    /// As setShortcut() with these arguments; its result is lost, so look at isRegistered() and shortcut().
    explicit QHotkey(Qt::Key keyCode, Qt::KeyboardModifiers modifiers, bool autoRegister = false,
                     QObject *parent = nullptr);
    /// As setNativeShortcut() with these arguments; its result is lost, so look at isRegistered().
    explicit QHotkey(const NativeShortcut &shortcut, bool autoRegister = false, QObject *parent = nullptr);
    /// A registered hotkey is unregistered first, with the signals of that.
    ~QHotkey() override;
    Q_DISABLE_COPY(QHotkey)

    bool isRegistered() const;
    /// Empty when the key is `Qt::Key_unknown`, as it is after setNativeShortcut().
    QKeySequence shortcut() const;
    Qt::Key keyCode() const;
    Qt::KeyboardModifiers modifiers() const;
    NativeShortcut currentNativeShortcut() const;

public Q_SLOTS:
    /// Registers or unregisters. True when the hotkey is afterwards as asked; asking for what it already is
    /// does nothing. A hotkey without a shortcut cannot be registered.
    bool setRegistered(bool registered);

    /// Takes the first key combination of the sequence; more than one is warned of. An empty sequence is
    /// resetShortcut(). Otherwise as the overload with a key and modifiers.
    bool setShortcut(const QKeySequence &shortcut, bool autoRegister = false);
    /// Takes a new shortcut and, with `autoRegister`, registers it.
    ///
    /// A registered hotkey is never silently unregistered: without `autoRegister` it stays as it is and the
    /// result is false; with it, it is unregistered first, and the result is false when that fails.
    /// `Qt::Key_unknown` clears the shortcut. A key that the system does not know clears the shortcut too,
    /// warns, and returns false. (With one bare `Qt::KeyboardModifier` and nothing after it the call is
    /// ambiguous in C++: write `Qt::KeyboardModifiers`, or say `false`.)
    bool setShortcut(Qt::Key keyCode, Qt::KeyboardModifiers modifiers, bool autoRegister = false);
    /// Unregisters where needed and clears the shortcut. False, and nothing changed, when unregistering
    /// fails.
    bool resetShortcut();

    /// Takes a shortcut in the system's form, under the same rule for registered hotkeys. keyCode() and
    /// shortcut() are empty afterwards. An invalid shortcut clears the hotkey and returns true.
    bool setNativeShortcut(QHotkey::NativeShortcut nativeShortcut, bool autoRegister = false);

Q_SIGNALS:
    /// The shortcut was pressed; holding the keys down repeats it. Always arrives through the event loop of
    /// the hotkey's own thread. Only the registry emits it.
    void activated(QPrivateSignal);
    /// The registry has added (true) or removed (false) this hotkey.
    ///
    /// A removal deliberately emits twice: first `true`, when the hotkey has left the registry
    /// (isRegistered() is false by then) but the system may not have released the shortcut yet, emitted in
    /// the registry's thread; then `false`, when all is done, emitted in the caller's thread. When the system
    /// refuses to release the shortcut the second one is missing. Clients rely on both.
    void registeredChanged(bool registered);

private:
    friend class QHotkeyPrivate;

    bool releaseForChange(bool allowed);
    bool addToRegistry();
    bool removeFromRegistry();
    void clearShortcut();

    Qt::Key m_keyCode = Qt::Key_unknown;
    Qt::KeyboardModifiers m_modifiers = Qt::NoModifier;
    NativeShortcut m_nativeShortcut;
    bool m_registered = false;
};

Q_DECLARE_METATYPE(QHotkey::NativeShortcut)

/// The key XOR the modifier.
ORVCOMMONLIB_EXPORT uint qHash(const QHotkey::NativeShortcut &key);
/// The same for every seed: the seed cancels itself out, deliberately.
ORVCOMMONLIB_EXPORT uint qHash(const QHotkey::NativeShortcut &key, uint seed);
