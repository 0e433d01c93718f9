#pragma once

#include <QtCore/QHash>
#include <QtCore/QVector>

#include <xcb/xcb.h>

#include <memory>

/// What the X server says about its keyboard: which key carries which symbol, and which modifiers are locks.
class X11KeyboardMap
{
public:
    /// Knows no key.
    X11KeyboardMap() = default;
    /// Asks the server, and waits for its answer. Without the keyboard extension it knows no key.
    static X11KeyboardMap current();

    /// The keysym of a Qt key; 0 when it has none. Whether the keyboard has a key for it is another question.
    xcb_keysym_t keysym(int qtKey) const;
    /// Every key that carries this symbol in the layout in effect without a modifier. Where there is none:
    /// with the first modifiers that lead to one; and only then in the other layouts, in the same order.
    QVector<xcb_keycode_t> keycodes(xcb_keysym_t keysym) const;

    /// Every combination of Caps Lock, Num Lock and Scroll Lock, as modifier bits; none of them included.
    QVector<quint16> lockCombinations() const { return m_lockCombinations; }

    /// Whether this event of the server says that the keyboard, or its layout in effect, has become another
    /// one.
    bool isOutdatedBy(const xcb_generic_event_t *event) const;

private:
    QVector<xcb_keycode_t> findKeycodes(xcb_keysym_t keysym) const;
    void readLocks();

    std::shared_ptr<void> m_keyboard; // an XkbDescRec of Xlib's, whose headers define too many macros
    mutable QHash<xcb_keysym_t, QVector<xcb_keycode_t>> m_found; // every key has to be looked at for a symbol
    QVector<quint16> m_lockCombinations{0};
    int m_group = 0; // the layout in effect
    int m_extensionEvent = -1;
};
