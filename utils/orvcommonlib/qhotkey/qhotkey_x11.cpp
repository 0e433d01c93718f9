// Global hotkeys through passive key grabs on the root window of the X server.

#include "qhotkey_p.h"
#include "x11keyboardmap.h"

#include <QtCore/QGlobalStatic>
#include <QtCore/QSet>
#include <QtCore/QVarLengthArray>
#include <QtGui/QGuiApplication>
#include <QtX11Extras/QX11Info>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr quint32 kModifierBits = 0xff; // the other bits of a state: pointer buttons, layout group
constexpr int kXkbNewKeyboardNotify = 0;
constexpr int kXkbMapNotify = 1;

// A key of the keyboard with modifiers, locks left out.
struct Chord
{
    xcb_keycode_t keycode = 0; // 0: the keyboard has no such key (to the server it would mean every key)
    quint16 modifiers = 0;

    bool operator==(const Chord &other) const
    {
        return keycode == other.keycode && modifiers == other.modifiers;
    }
};

// A registered shortcut and the key that it stands for at the moment.
struct Grab
{
    QHotkey::NativeShortcut shortcut;
    Chord chord;
};

uint qHash(const Chord &chord, uint seed = 0)
{
    return ::qHash((uint(chord.modifiers) << 8) | chord.keycode, seed);
}

Chord chordOf(QHotkey::NativeShortcut shortcut, const X11KeyboardMap &map)
{
    const quint32 modifiers = shortcut.modifier & kModifierBits & ~quint32(map.locks());
    return {map.keycode(shortcut.key), static_cast<quint16>(modifiers)};
}

QSet<Chord> distinctChords(const QVector<Grab> &grabs)
{
    QSet<Chord> chords;
    for (const Grab &grab : grabs)
        chords.insert(grab.chord);
    return chords;
}

// What the server said to a checked request; 0 when it agreed.
int errorCode(xcb_connection_t *connection, xcb_void_cookie_t request)
{
    xcb_generic_error_t *error = xcb_request_check(connection, request);
    const int code = error ? error->error_code : 0;
    std::free(error);
    return code;
}

// Takes every combination of the locks away from the chord.
void ungrab(Chord chord, const X11KeyboardMap &map)
{
    xcb_connection_t *connection = QX11Info::connection();
    if (!connection || chord.keycode == 0)
        return;
    const QVector<quint16> combinations = map.lockCombinations();
    for (const quint16 locks : combinations)
        xcb_ungrab_key(connection, chord.keycode, QX11Info::appRootWindow(), chord.modifiers | locks);
    // Any answer will do: another client can grab the key as soon as this returns.
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

// Grabs the chord with every combination of the locks, or nothing of it; what went wrong, or an empty text.
QByteArray grab(Chord chord, const X11KeyboardMap &map)
{
    if (chord.keycode == 0)
        return QByteArrayLiteral("no key of the keyboard layout carries this symbol");

    xcb_connection_t *connection = QX11Info::connection();
    const QVector<quint16> combinations = map.lockCombinations();
    QVector<xcb_void_cookie_t> requests;
    for (const quint16 locks : combinations)
        requests.append(xcb_grab_key_checked(connection, false, QX11Info::appRootWindow(),
                                             chord.modifiers | locks, chord.keycode, XCB_GRAB_MODE_ASYNC,
                                             XCB_GRAB_MODE_ASYNC));
    int error = 0;
    for (const xcb_void_cookie_t request : qAsConst(requests))
        error = std::max(error, errorCode(connection, request));
    if (error == 0)
        return {};

    ungrab(chord, map);
    if (error == XCB_ACCESS)
        return QByteArrayLiteral("another program has grabbed this key combination");
    return QByteArrayLiteral("the X server refuses with error ") + QByteArray::number(error);
}

// The event type in which the keyboard extension tells of its changes, or -1.
int keyboardExtensionEvent(xcb_connection_t *connection)
{
    constexpr char kName[] = "XKEYBOARD";
    const xcb_query_extension_cookie_t request = xcb_query_extension(connection, sizeof(kName) - 1, kName);
    xcb_query_extension_reply_t *reply = xcb_query_extension_reply(connection, request, nullptr);
    const int event = reply && reply->present ? reply->first_event : -1;
    std::free(reply);
    return event;
}

} // namespace

/// The registry on an X server; with Qt's other platform plugins it knows no key and registers nothing.
///
/// A native shortcut names a symbol, not a key: when the keyboard layout changes, its grab moves to the key
/// that now carries the symbol. Two shortcuts may thus mean one key ("1" and "!"): the key is grabbed once,
/// and both fire.
class QHotkeyPrivateX11 : public QHotkeyPrivate
{
public:
    bool nativeEventFilter(const QByteArray &eventType, void *message, long *result) override;

protected:
    quint32 nativeKeycode(Qt::Key keycode, bool &ok) override;
    quint32 nativeModifiers(Qt::KeyboardModifiers modifiers, bool &ok) override;
    bool registerShortcut(QHotkey::NativeShortcut shortcut) override;
    bool unregisterShortcut(QHotkey::NativeShortcut shortcut) override;

private:
    void pressKey(const xcb_key_press_event_t *event);
    bool isKeyboardChange(const xcb_generic_event_t *event) const;
    void noteKeyboardChange();
    void updateKeyboardMap();
    void moveGrabs(const X11KeyboardMap &map);
    int indexOf(QHotkey::NativeShortcut shortcut) const;
    bool isGrabbed(Chord chord) const;

    QVector<Grab> m_grabs; // few, and read at every key press
    X11KeyboardMap m_map;
    bool m_mapIsCurrent = false;
    int m_keyboardExtensionEvent = -1;
};

Q_GLOBAL_STATIC(QHotkeyPrivateX11, registry)

QHotkeyPrivate *QHotkeyPrivate::instance()
{
    return registry;
}

quint32 QHotkeyPrivateX11::nativeKeycode(Qt::Key keycode, bool &ok)
{
    ok = false;
    if (!QX11Info::isPlatformX11())
        return 0;
    updateKeyboardMap();
    const xcb_keysym_t keysym = m_map.keysym(keycode);
    ok = m_map.keycode(keysym) != 0;
    return ok ? keysym : 0;
}

quint32 QHotkeyPrivateX11::nativeModifiers(Qt::KeyboardModifiers modifiers, bool &ok)
{
    ok = true;
    quint32 mask = 0;
    if (modifiers & Qt::ShiftModifier)
        mask |= XCB_MOD_MASK_SHIFT;
    if (modifiers & Qt::ControlModifier)
        mask |= XCB_MOD_MASK_CONTROL;
    if (modifiers & Qt::AltModifier)
        mask |= XCB_MOD_MASK_1;
    if (modifiers & Qt::MetaModifier)
        mask |= XCB_MOD_MASK_4;
    return mask;
}

bool QHotkeyPrivateX11::registerShortcut(QHotkey::NativeShortcut shortcut)
{
    if (!QX11Info::isPlatformX11()) {
        qCWarning(logQHotkey)
            << "Failed to register hotkey. Error: there are no global hotkeys on the platform"
            << QGuiApplication::platformName();
        return false;
    }
    if (shortcut.modifier & ~kModifierBits) {
        qCWarning(logQHotkey) << "Failed to register hotkey. Error: not a set of modifiers:"
                              << shortcut.modifier;
        return false;
    }

    updateKeyboardMap();
    const Chord chord = chordOf(shortcut, m_map);
    const QByteArray error = isGrabbed(chord) ? QByteArray() : grab(chord, m_map);
    if (!error.isEmpty()) {
        qCWarning(logQHotkey) << "Failed to register hotkey. Error:" << error.constData();
        return false;
    }
    if (indexOf(shortcut) < 0)
        m_grabs.append({shortcut, chord});
    return true;
}

bool QHotkeyPrivateX11::unregisterShortcut(QHotkey::NativeShortcut shortcut)
{
    const int index = indexOf(shortcut);
    if (index < 0) {
        qCWarning(logQHotkey) << "Failed to unregister hotkey. Error: it is not registered";
        return false;
    }
    const Chord chord = m_grabs.takeAt(index).chord;
    if (!isGrabbed(chord))
        ungrab(chord, m_map);
    return true;
}

bool QHotkeyPrivateX11::nativeEventFilter(const QByteArray &eventType, void *message, long *result)
{
    Q_UNUSED(result)
    static const QByteArray xcbEvent = QByteArrayLiteral("xcb_generic_event_t");
    if (eventType != xcbEvent)
        return false;
    const auto *event = static_cast<xcb_generic_event_t *>(message);
    if (event->response_type == XCB_KEY_PRESS) // with another bit set it was made up by another client
        pressKey(static_cast<xcb_key_press_event_t *>(message));
    else if (isKeyboardChange(event))
        noteKeyboardChange();
    return false;
}

void QHotkeyPrivateX11::pressKey(const xcb_key_press_event_t *event)
{
    const quint32 modifiers = event->state & kModifierBits & ~quint32(m_map.locks());
    const Chord chord{event->detail, static_cast<quint16>(modifiers)};
    QVarLengthArray<QHotkey::NativeShortcut, 4> pressed;
    for (const Grab &grab : qAsConst(m_grabs)) {
        if (grab.chord == chord)
            pressed.append(grab.shortcut);
    }
    for (const QHotkey::NativeShortcut &shortcut : pressed)
        activateShortcut(shortcut);
}

// Clients that use the keyboard extension, as Qt does, hear of most changes through its own events.
bool QHotkeyPrivateX11::isKeyboardChange(const xcb_generic_event_t *event) const
{
    const int type = event->response_type & 0x7f;
    if (type == XCB_MAPPING_NOTIFY)
        return reinterpret_cast<const xcb_mapping_notify_event_t *>(event)->request != XCB_MAPPING_POINTER;
    return type == m_keyboardExtensionEvent &&
           (event->pad0 == kXkbNewKeyboardNotify || event->pad0 == kXkbMapNotify);
}

// One change makes many events: the keyboard is read once, when all of them have come.
void QHotkeyPrivateX11::noteKeyboardChange()
{
    if (m_mapIsCurrent && !m_grabs.isEmpty())
        QMetaObject::invokeMethod(
            this, [this] { updateKeyboardMap(); }, Qt::QueuedConnection);
    m_mapIsCurrent = false;
}

void QHotkeyPrivateX11::updateKeyboardMap()
{
    if (m_mapIsCurrent)
        return;
    m_mapIsCurrent = true;
    m_keyboardExtensionEvent = keyboardExtensionEvent(QX11Info::connection());
    const X11KeyboardMap map(QX11Info::connection());
    if (map != m_map)
        moveGrabs(map);
}

// What means the same key in both maps stays grabbed without a break.
void QHotkeyPrivateX11::moveGrabs(const X11KeyboardMap &map)
{
    QVector<Grab> moved = m_grabs;
    for (Grab &grab : moved)
        grab.chord = chordOf(grab.shortcut, map);
    const QSet<Chord> before = distinctChords(m_grabs);
    const QSet<Chord> after = distinctChords(moved);
    const QSet<Chord> kept = map.locks() == m_map.locks() ? before & after : QSet<Chord>();

    const QSet<Chord> gone = before - kept;
    for (const Chord chord : gone)
        ungrab(chord, m_map);
    const QSet<Chord> added = after - kept;
    for (const Chord chord : added) {
        const QByteArray error = grab(chord, map);
        if (error.isEmpty())
            continue;
        qCWarning(logQHotkey) << "Failed to register hotkey in the new keyboard layout. Error:"
                              << error.constData();
        for (Grab &grab : moved)
            grab.chord = grab.chord == chord ? Chord() : grab.chord;
    }
    m_map = map;
    m_grabs = moved;
}

int QHotkeyPrivateX11::indexOf(QHotkey::NativeShortcut shortcut) const
{
    const auto *const found = std::find_if(m_grabs.cbegin(), m_grabs.cend(),
                                           [&](const Grab &grab) { return grab.shortcut == shortcut; });
    return found == m_grabs.cend() ? -1 : static_cast<int>(found - m_grabs.cbegin());
}

bool QHotkeyPrivateX11::isGrabbed(Chord chord) const
{
    return chord.keycode != 0 && std::any_of(m_grabs.cbegin(), m_grabs.cend(),
                                             [&](const Grab &grab) { return grab.chord == chord; });
}
