#pragma once

#include "orvcommonlib_global.h"
#include "orvqtcompat.h"

#include <QtCore/QLoggingCategory>
#include <QtCore/QMetaType>
#include <QtCore/QObject>
#include <QtGui/QKeySequence>

class QHotkeyPrivate;

/// The category "QHotkey", in which everything about global hotkeys warns.
/// \return the category, which lives as long as the library
/// \relates QHotkey
ORVCOMMONLIB_EXPORT const QLoggingCategory &logQHotkey();

/// A keyboard shortcut of the whole desktop: it fires while any program has the focus.
///
/// \image html page-qhotkey.png
///
/// A hotkey holds one shortcut in two forms, Qt's (a key and modifiers) and the system's (a NativeShortcut),
/// and is either registered with the system or not. Several hotkeys may share one shortcut: all of them fire.
/// Nothing throws and nothing is shown to the user: a failure is a false result and a warning in the category
/// logQHotkey.
///
/// Threads: a hotkey may live in any thread and is used from that thread. The registry behind all hotkeys
/// lives in the thread that used a hotkey first, which should be the GUI thread; calls from other threads
/// wait until the event loop of that thread has answered them. They wait as long as a loop runs there, in
/// every `exec()` of the process and however busy it is, and before the first loop has begun; so do not wait,
/// from inside that loop, for a thread that may be in such a call. While no loop runs there they fail: after
/// a second, in which somebody may still process events, and then at once until events are processed again. A
/// hotkey that is destroyed meanwhile is released as soon as that happens.
///
/// A QCoreApplication must exist before the first hotkey is set up, and no hotkey may be used after the
/// static objects of the library are gone. A hotkey that stays registered while one application object
/// follows another is taken over by the next call to any hotkey.
///
/// On X11 a hotkey follows its symbol through changes of the keyboard and switches of the layout: it is all
/// the keys that carry the symbol in the layout in effect without a modifier. A symbol that is only found
/// with one ("!") is the key under it, and one that only another layout has is that layout's key. A key that
/// another program has grabbed is refused. One that is lost to another program in a change of layout is
/// warned of; it is tried again at every further change, and when another hotkey of the same shortcut is
/// registered. Hotkeys fire on all screens of the server. With Qt's other platform plugins there are no
/// hotkeys: every registration fails and warns.
///
/// \par When to use it
/// For a combination that works while another program has the focus. While it is enough that the application itself
/// has it, take a QShortcut or a QAction: they take nothing from other programs.
///
/// \par Example
/// \snippet hotkeys.cpp QHotkey
///
/// \since 1.0
/// \sa CustomKeySequenceEdit, QShortcut, \ref guide_hotkeys
/// \ingroup hotkeys
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
    /// On Windows `key` is a virtual-key code and `modifier` holds `MOD_` flags. On X11 `key` is a keysym, in
    /// either spelling of a character (Latin-1 or Unicode), and `modifier` holds the modifier bits of the
    /// core protocol (Alt is Mod1, Meta is Mod4).
    class ORVCOMMONLIB_EXPORT NativeShortcut
    {
    public:
        /// An invalid shortcut; both codes are 0.
        NativeShortcut();
        /// A valid shortcut.
        /// \param nativeKey,nativeModifier the system's code of the key and flags of the modifiers
        NativeShortcut(quint32 nativeKey, quint32 nativeModifier);
        // Declared, so that the library exports them: mingw-w64 exports nothing that a compiler adds by
        // itself.
        /// \cond the usual ones
        NativeShortcut(const NativeShortcut &other);
        NativeShortcut(NativeShortcut &&other) noexcept;
        NativeShortcut &operator=(const NativeShortcut &other);
        NativeShortcut &operator=(NativeShortcut &&other) noexcept;
        /// \endcond
        ~NativeShortcut();

        /// \return whether a key and a modifier were given
        bool isValid() const;

        /// Equal when both codes and the validity are equal; any two default-made shortcuts are.
        /// \param other the shortcut to compare with
        /// \return whether they are
        bool operator==(const NativeShortcut &other) const;
        /// The opposite of `==`.
        /// \param other the shortcut to compare with
        /// \return whether they differ
        bool operator!=(const NativeShortcut &other) const;

        quint32 key = 0;      ///< the system's code of the key
        quint32 modifier = 0; ///< the system's flags of the modifiers
        bool valid = false;   ///< what isValid() tells
    };

    /// A hotkey without a shortcut.
    /// \param parent the owner, or null
    explicit QHotkey(QObject *parent = nullptr);
    /// Calls setShortcut(), whose result is lost: look at isRegistered() and shortcut().
    /// \param shortcut,autoRegister as there
    /// \param parent the owner, or null
    explicit QHotkey(const QKeySequence &shortcut, bool autoRegister = false, QObject *parent = nullptr);
    /// Calls setShortcut(), whose result is lost: look at isRegistered() and shortcut().
    /// \param keyCode,modifiers,autoRegister as there
    /// \param parent the owner, or null
    explicit QHotkey(Qt::Key keyCode, Qt::KeyboardModifiers modifiers, bool autoRegister = false,
                     QObject *parent = nullptr);
    /// The same with a single modifier, which C++ would take for the bool of the overload with a sequence.
    /// \param keyCode,modifier,autoRegister,parent as there
    explicit QHotkey(Qt::Key keyCode, Qt::KeyboardModifier modifier, bool autoRegister = false,
                     QObject *parent = nullptr)
        : QHotkey(keyCode, Qt::KeyboardModifiers(modifier), autoRegister, parent)
    {
    }
    /// Calls setNativeShortcut(), whose result is lost: look at isRegistered().
    /// \param shortcut,autoRegister as there
    /// \param parent the owner, or null
    explicit QHotkey(const NativeShortcut &shortcut, bool autoRegister = false, QObject *parent = nullptr);
    /// A registered hotkey is unregistered first, with the signals of that.
    ~QHotkey() override;
    Q_DISABLE_COPY(QHotkey)

    /// \return whether the registry holds the hotkey
    bool isRegistered() const { return m_registered; }
    /// \return the shortcut; empty when the key is `Qt::Key_unknown`, as it is after setNativeShortcut()
    QKeySequence shortcut() const;
    /// \return the key; `Qt::Key_unknown` when there is no shortcut in Qt's form
    Qt::Key keyCode() const { return m_keyCode; }
    /// \return its modifiers; none when there is no shortcut in Qt's form
    Qt::KeyboardModifiers modifiers() const { return m_modifiers; }
    /// \return the shortcut in the system's form; invalid when there is none
    NativeShortcut currentNativeShortcut() const { return m_nativeShortcut; }

    /// The slot of this name, for a single modifier.
    /// \param keyCode,modifier,autoRegister as there
    /// \return as there
    bool setShortcut(Qt::Key keyCode, Qt::KeyboardModifier modifier, bool autoRegister = false)
    {
        return setShortcut(keyCode, Qt::KeyboardModifiers(modifier), autoRegister);
    }

public Q_SLOTS:
    /// Registers or unregisters. A hotkey without a shortcut cannot be registered.
    /// \param registered what the hotkey is to be; asking for what it is already does nothing
    /// \return whether the hotkey is afterwards as asked
    bool setRegistered(bool registered);

    /// Takes the first key combination of a sequence, as the overload with a key and modifiers.
    /// \param shortcut the sequence; an empty one is resetShortcut(), and of more than one combination it
    /// warns
    /// \param autoRegister as there
    /// \return as there
    bool setShortcut(const QKeySequence &shortcut, bool autoRegister = false);
    /// Takes a new shortcut.
    ///
    /// A registered hotkey is never silently unregistered: without `autoRegister` it stays as it is and the
    /// result is false; with it, it is unregistered first, and the result is false when that fails.
    /// \param keyCode the key; `Qt::Key_unknown` clears the shortcut, and so does, with a warning and the
    /// result false, a key that the system does not know
    /// \param modifiers its modifiers
    /// \param autoRegister whether to register the shortcut; should that fail the hotkey keeps it all the
    /// same
    /// \return whether all of it was done
    bool setShortcut(Qt::Key keyCode, Qt::KeyboardModifiers modifiers, bool autoRegister = false);
    /// Unregisters where needed and clears the shortcut.
    /// \return false, and nothing is cleared, when unregistering fails
    bool resetShortcut();

    /// Takes a shortcut in the system's form, under the same rule for registered hotkeys. keyCode() and
    /// shortcut() are empty afterwards.
    /// \param nativeShortcut the shortcut; an invalid one clears the hotkey
    /// \param autoRegister whether to register it
    /// \return whether all of it was done
    bool setNativeShortcut(QHotkey::NativeShortcut nativeShortcut, bool autoRegister = false);

Q_SIGNALS:
    /// The shortcut was pressed; holding the keys down repeats it. Always arrives through the event loop of
    /// the hotkey's own thread. Only the registry emits it.
    void activated(QPrivateSignal);
    /// The registry has added (true) or removed (false) this hotkey.
    ///
    /// A removal deliberately emits twice: first `true`, when the hotkey has left the registry
    /// (isRegistered() is false by then) but the system may not have released the shortcut yet; then `false`,
    /// when all is done. When the system refuses to release the shortcut the second one is missing. Clients
    /// rely on both.
    ///
    /// The `true` of an addition and the `false` of a removal are emitted in the caller's thread, the `true`
    /// of a removal in the registry's. For a hotkey of the GUI thread that is one and the same. A hotkey of
    /// another thread that is removed there emits its `true` in the GUI thread while the caller waits: a
    /// receiver in the hotkey's own thread that is not connected directly gets it through its event loop, and
    /// thus *after* the `false`; a receiver in the GUI thread gets the `true` at once, and the `false`
    /// through its event loop.
    /// \param registered what has happened
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
/// \param key the shortcut
/// \return the hash
/// \relates QHotkey::NativeShortcut
ORVCOMMONLIB_EXPORT uint qHash(const QHotkey::NativeShortcut &key);
/// The same for every seed: the seed cancels itself out, deliberately.
/// \param key the shortcut
/// \param seed of no effect
/// \return the hash
/// \relates QHotkey::NativeShortcut
ORVCOMMONLIB_EXPORT uint qHash(const QHotkey::NativeShortcut &key, orvqt::HashSeed seed);
