#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QVector>

#include <xcb/xcb.h>

/// Another program on the same X server: a connection of its own, with which the test holds keys, changes the
/// keyboard and looks what is left to others.
class XClient
{
public:
    /// Of the server of this environment, or of another one, and of one of its screens.
    explicit XClient(const QByteArray &display = QByteArray(), int screen = 0);
    ~XClient();
    XClient(const XClient &) = delete;
    XClient &operator=(const XClient &) = delete;

    /// Grabs this very combination; false when somebody else holds it.
    bool grab(xcb_keycode_t keycode, int modifiers);
    void ungrab(xcb_keycode_t keycode, int modifiers);
    /// Which combinations of these modifiers with any of the lock bits somebody else holds: tries them all.
    QVector<int> heldByOthers(xcb_keycode_t keycode, int modifiers);

    /// As setxkbmap does it. Of several layouts, separated by commas, the first is in effect.
    void setLayout(const QString &layout);
    /// Presses these keys and releases them, whatever the layout in effect. (xdotool presses its own in the first.)
    void pressKeys(const QVector<xcb_keycode_t> &keycodes);
    /// Presses the key by which the user goes from one of several layouts to the next.
    void switchLayout();
    /// Which of them is in effect.
    int layoutInEffect();
    /// Gives Scroll Lock, which has no modifier in the usual layouts, the third one; or takes it away.
    void setScrollLockModifier(bool on);
    /// What a key carries: without Shift, with Shift.
    void setKeysyms(xcb_keycode_t keycode, xcb_keysym_t plain, xcb_keysym_t shifted);
    /// All keys that carry the symbol without Shift in the first layout.
    QVector<xcb_keycode_t> keycodes(xcb_keysym_t keysym);
    /// The first of them, or 0.
    xcb_keycode_t keycode(xcb_keysym_t keysym);

    /// Shows a window of this client and gives it the keyboard focus; the keys pressed there since the last
    /// call.
    void focusWindow();
    QVector<int> pressedKeycodes();
    /// The modifiers that are down or locked at this moment.
    int modifierState();

private:
    bool succeeds(xcb_void_cookie_t request);
    void fakeInput(uint8_t type, xcb_keycode_t keycode);
    int keyboardState();
    void releaseLocks();

    xcb_connection_t *m_connection;
    xcb_window_t m_root = 0;
    xcb_window_t m_window = 0;
    QVector<int> m_pressedKeycodes;
    bool m_hasChangedKeyboard = false;
};
