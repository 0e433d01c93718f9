#pragma once

#include <QtCore/QVector>

#include <xcb/xcb.h>

/// What the X server says about its keyboard: which key carries which symbol, and which modifiers are locks.
class X11KeyboardMap
{
public:
    X11KeyboardMap() = default;
    /// Asks the server, and waits for its answer.
    explicit X11KeyboardMap(xcb_connection_t *connection);

    bool operator==(const X11KeyboardMap &other) const;
    bool operator!=(const X11KeyboardMap &other) const { return !(*this == other); }

    /// The keysym of a Qt key; 0 when it has none. Whether the keyboard has a key for it is another question.
    xcb_keysym_t keysym(int qtKey) const;
    /// The key that carries this symbol, preferably without Shift; 0, which is no key, when there is none.
    xcb_keycode_t keycode(xcb_keysym_t keysym) const;

    /// The modifier bits of Caps Lock, Num Lock and Scroll Lock.
    quint16 locks() const { return m_locks; }
    /// Every combination of these bits, none of them included.
    QVector<quint16> lockCombinations() const;

private:
    xcb_keycode_t keycodeInColumn(xcb_keysym_t keysym, int column) const;
    void readKeysyms(xcb_get_keyboard_mapping_reply_t *reply);
    void readLocks(xcb_get_modifier_mapping_reply_t *reply);

    xcb_keycode_t m_firstKeycode = 0;
    int m_columns = 0;
    QVector<xcb_keysym_t> m_keysyms; // a row for each key
    quint16 m_locks = 0;
};
