#pragma once

#include <QtCore/QString>
#include <QtCore/QVector>

#include <xcb/xcb.h>

/// Another program on the same X server: a connection of its own, with which the test holds keys, changes the
/// keyboard and looks what is left to others.
class XClient
{
public:
    XClient();
    ~XClient();
    XClient(const XClient &) = delete;
    XClient &operator=(const XClient &) = delete;

    /// Grabs this very combination; false when somebody else holds it.
    bool grab(xcb_keycode_t keycode, int modifiers);
    void ungrab(xcb_keycode_t keycode, int modifiers);
    /// Which combinations of these modifiers with any of the lock bits somebody else holds: tries them all.
    QVector<int> heldByOthers(xcb_keycode_t keycode, int modifiers);

    /// As setxkbmap does it.
    void setLayout(const QString &layout);
    /// Gives Scroll Lock, which has no modifier in the usual layouts, the third one; or takes it away.
    void setScrollLockModifier(bool on);
    /// What a key carries: without Shift, with Shift.
    void setKeysyms(xcb_keycode_t keycode, xcb_keysym_t plain, xcb_keysym_t shifted);
    /// The first key that carries the symbol without Shift, or 0.
    xcb_keycode_t keycode(xcb_keysym_t keysym);

    /// Shows a window of this client and gives it the keyboard focus; the keys pressed there since the last
    /// call.
    void focusWindow();
    QVector<int> pressedKeycodes();
    /// The modifiers that are down or locked at this moment.
    int modifierState();

private:
    bool succeeds(xcb_void_cookie_t request);
    void releaseLocks();

    xcb_connection_t *m_connection;
    xcb_window_t m_root;
    xcb_window_t m_window = 0;
    QVector<int> m_pressedKeycodes;
    bool m_hasChangedKeyboard = false;
};
