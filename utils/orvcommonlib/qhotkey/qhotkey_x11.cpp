// Global hotkeys through passive key grabs on the root windows of the X server.

#include "nativekeys.h"
#include "orvqtcompat.h"
#include "qhotkey_p.h"
#include "x11application.h"
#include "x11keyboardmap.h"

#include <QtCore/QGlobalStatic>
#include <QtCore/QPair>
#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr quint32 kModifierBits = 0xff; // the other bits of a state: pointer buttons, layout group

constexpr NativeKey kModifiers[] = {
    {Qt::ShiftModifier, XCB_MOD_MASK_SHIFT},
    {Qt::ControlModifier, XCB_MOD_MASK_CONTROL},
    {Qt::AltModifier, XCB_MOD_MASK_1},
    {Qt::MetaModifier, XCB_MOD_MASK_4},
};

// A key of the keyboard and all the modifiers that are down with it, locks included.
using Chord = QPair<xcb_keycode_t, quint16>;
using Chords = QSet<Chord>;

Chords chordsOf(QHotkey::NativeShortcut shortcut, const X11KeyboardMap &map)
{
    Chords chords;
    const QVector<quint16> lockCombinations = map.lockCombinations();
    const auto modifiers = static_cast<quint16>(shortcut.modifier & ~quint32(lockCombinations.constLast()));
    const QVector<xcb_keycode_t> keycodes = map.keycodes(shortcut.key);
    for (const xcb_keycode_t keycode : keycodes) {
        for (const quint16 locks : lockCombinations)
            chords.insert({keycode, static_cast<quint16>(modifiers | locks)});
    }
    return chords;
}

QVector<xcb_window_t> rootWindows(xcb_connection_t *connection)
{
    QVector<xcb_window_t> roots;
    for (auto screen = xcb_setup_roots_iterator(xcb_get_setup(connection)); screen.rem > 0;
         xcb_screen_next(&screen))
        roots.append(screen.data->root);
    return roots;
}

void ungrab(const Chords &chords)
{
    xcb_connection_t *connection = x11application::connection();
    if (!connection || chords.isEmpty())
        return;
    const QVector<xcb_window_t> roots = rootWindows(connection);
    for (const Chord &chord : chords) {
        for (const xcb_window_t root : roots)
            xcb_ungrab_key(connection, chord.first, root, chord.second);
    }
    // Any answer will do: another client can grab the keys as soon as this returns.
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

// Grabs all of them or none; what went wrong, or an empty text.
QByteArray grab(const Chords &chords)
{
    xcb_connection_t *connection = x11application::connection();
    const QVector<xcb_window_t> roots = rootWindows(connection);
    QVector<xcb_void_cookie_t> requests;
    for (const Chord &chord : chords) {
        for (const xcb_window_t root : roots)
            requests.append(xcb_grab_key_checked(connection, false, root, chord.second, chord.first,
                                                 XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    int errorCode = 0;
    for (const xcb_void_cookie_t request : qAsConst(requests)) {
        xcb_generic_error_t *error = xcb_request_check(connection, request);
        errorCode = std::max(errorCode, error ? int(error->error_code) : 0);
        std::free(error);
    }
    if (errorCode == 0)
        return {};

    ungrab(chords);
    if (errorCode == XCB_ACCESS)
        return QByteArrayLiteral("another program has grabbed this key combination");
    return QByteArrayLiteral("the X server refuses with error ") + QByteArray::number(errorCode);
}

} // namespace

/// The registry on an X server; with Qt's other platform plugins it knows no key and registers nothing.
///
/// A native shortcut names a symbol, not a key: when the keyboard layout changes, its grabs move to the keys
/// that now carry the symbol. Two shortcuts may thus mean one key ("1" and "!"): both fire.
class QHotkeyPrivateX11 : public QHotkeyPrivate
{
public:
    bool nativeEventFilter(const QByteArray &eventType, void *message, orvqt::NativeResult *result) override;

protected:
    quint32 nativeKeycode(Qt::Key keycode, bool &ok) override;
    quint32 nativeModifiers(Qt::KeyboardModifiers modifiers, bool &ok) override;
    bool registerShortcut(QHotkey::NativeShortcut shortcut) override;
    bool unregisterShortcut(QHotkey::NativeShortcut shortcut) override;
    bool hasSystem() const override { return x11application::connection() != nullptr; }
    bool systemHolds(QHotkey::NativeShortcut shortcut) override;

private:
    QByteArray take(QHotkey::NativeShortcut shortcut);
    void releaseUnused();
    void pressKey(const xcb_key_press_event_t *event);
    void noteKeyboardChange();
    void followKeyboard();

    QHash<QHotkey::NativeShortcut, Chords>
        m_registered; // without chords: lost to another client, or to the layout
    Chords m_held;    // all of the above, and nothing else, whenever nothing is being changed
    X11KeyboardMap m_map;
    bool m_mapIsCurrent = false;
    QPointer<QCoreApplication> m_application; // whose connection to the server has the grabs
};

Q_GLOBAL_STATIC(QHotkeyPrivateX11, registry)

QHotkeyPrivate *QHotkeyPrivate::instance()
{
    return registry;
}

bool QHotkeyPrivateX11::systemHolds(QHotkey::NativeShortcut shortcut)
{
    followKeyboard();
    return !m_registered.value(shortcut).isEmpty();
}

quint32 QHotkeyPrivateX11::nativeKeycode(Qt::Key keycode, bool &ok)
{
    followKeyboard();
    const xcb_keysym_t keysym = m_map.keysym(keycode);
    ok = !m_map.keycodes(keysym).isEmpty();
    return ok ? keysym : 0;
}

quint32 QHotkeyPrivateX11::nativeModifiers(Qt::KeyboardModifiers modifiers, bool &ok)
{
    ok = true;
    return nativeFlags(kModifiers, modifiers);
}

bool QHotkeyPrivateX11::registerShortcut(QHotkey::NativeShortcut shortcut)
{
    followKeyboard();
    const QByteArray error = take(shortcut);
    if (error.isEmpty())
        return true;
    qCWarning(logQHotkey) << "Failed to register hotkey. Error:" << error.constData();
    return false;
}

bool QHotkeyPrivateX11::unregisterShortcut(QHotkey::NativeShortcut shortcut)
{
    if (m_registered.remove(shortcut) == 0) {
        qCWarning(logQHotkey) << "Failed to unregister hotkey. Error: it is not registered";
        return false;
    }
    followKeyboard();
    releaseUnused();
    return true;
}

// Registers the shortcut, or grabs its keys anew; what went wrong, or an empty text.
QByteArray QHotkeyPrivateX11::take(QHotkey::NativeShortcut shortcut)
{
    if (!hasSystem())
        return "there are no global hotkeys on the platform \"" + QGuiApplication::platformName().toUtf8() +
               '"';
    if (shortcut.modifier & ~kModifierBits)
        return "not a set of modifiers: " + QByteArray::number(shortcut.modifier);

    const Chords chords = chordsOf(shortcut, m_map);
    if (chords.isEmpty())
        return QByteArrayLiteral("no key of the keyboard layout carries this symbol");
    QByteArray error = grab(chords - m_held);
    if (error.isEmpty()) {
        m_held += chords;
        m_registered.insert(shortcut, chords);
    }
    return error;
}

void QHotkeyPrivateX11::releaseUnused()
{
    Chords used;
    for (const Chords &chords : qAsConst(m_registered))
        used += chords;
    ungrab(m_held - used);
    m_held = used;
}

bool QHotkeyPrivateX11::nativeEventFilter(const QByteArray &eventType, void *message,
                                          orvqt::NativeResult * /*result*/)
{
    static const QByteArray xcbEvent = QByteArrayLiteral("xcb_generic_event_t");
    if (eventType != xcbEvent)
        return false;
    const auto *event = static_cast<xcb_generic_event_t *>(message);
    if (event->response_type == XCB_KEY_PRESS) // with another bit set it was made up by another client
        pressKey(static_cast<xcb_key_press_event_t *>(message));
    else if (m_map.isOutdatedBy(event))
        noteKeyboardChange();
    return false;
}

void QHotkeyPrivateX11::pressKey(const xcb_key_press_event_t *event)
{
    const Chord chord(event->detail, static_cast<quint16>(event->state & kModifierBits));
    const QHash<QHotkey::NativeShortcut, Chords> registered = m_registered; // which a press may change
    for (auto entry = registered.cbegin(); entry != registered.cend(); ++entry) {
        if (entry->contains(chord))
            activateShortcut(entry.key());
    }
}

// One change makes many events: the keyboard is read once, when all of them have come.
void QHotkeyPrivateX11::noteKeyboardChange()
{
    if (m_mapIsCurrent && !m_registered.isEmpty())
        QMetaObject::invokeMethod(this, &QHotkeyPrivateX11::followKeyboard, Qt::QueuedConnection);
    m_mapIsCurrent = false;
}

// Brings the map up to date, and the grabs with it. What means the same key as before stays grabbed without a
// break; what had been lost is tried again.
void QHotkeyPrivateX11::followKeyboard()
{
    QCoreApplication *application = QCoreApplication::instance();
    if (application && m_application != application) {
        m_application = application;
        m_held.clear(); // went with the connection
        m_mapIsCurrent = false;
    }
    if (m_mapIsCurrent || !application)
        return;
    m_mapIsCurrent = true;
    m_map = hasSystem() ? X11KeyboardMap::current() : X11KeyboardMap();
    const QList<QHotkey::NativeShortcut> shortcuts = m_registered.keys();
    for (const QHotkey::NativeShortcut &shortcut : shortcuts) {
        const QByteArray error = take(shortcut);
        if (error.isEmpty())
            continue;
        if (!m_registered.value(shortcut).isEmpty()) {
            qCWarning(logQHotkey) << "Failed to register hotkey in the new keyboard layout. Error:"
                                  << error.constData();
        }
        m_registered.insert(shortcut, {});
    }
    releaseUnused();
}
