#include "hotkeysystem.h"

#include "orvqtcompat.h"
#include "x11application.h"

#include <QtCore/QAbstractEventDispatcher>

#include <xcb/xcb.h>

#include <cstdlib>

namespace {

constexpr int kLocks[] = {0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2, XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};

xcb_keycode_t keycode(xcb_keysym_t keysym)
{
    xcb_connection_t *connection = x11application::connection();
    const int first = xcb_get_setup(connection)->min_keycode;
    const int keys = xcb_get_setup(connection)->max_keycode - first + 1;
    xcb_get_keyboard_mapping_reply_t *reply = xcb_get_keyboard_mapping_reply(
        connection,
        xcb_get_keyboard_mapping(connection, static_cast<xcb_keycode_t>(first), static_cast<uint8_t>(keys)),
        nullptr);
    const xcb_keysym_t *symbols = xcb_get_keyboard_mapping_keysyms(reply);
    int key = 0;
    while (key < keys && *symbols != keysym) {
        symbols += reply->keysyms_per_keycode;
        ++key;
    }
    std::free(reply);
    return static_cast<xcb_keycode_t>(first + key);
}

template<typename Request>
void forEveryLock(Request request)
{
    xcb_void_cookie_t cookies[4];
    for (int index = 0; index < 4; ++index)
        cookies[index] = request(kLocks[index]);
    for (const xcb_void_cookie_t cookie : cookies)
        std::free(xcb_request_check(x11application::connection(), cookie));
}

} // namespace

void HotkeySystem::registerAndRelease(QHotkey::NativeShortcut shortcut)
{
    static const xcb_keycode_t key = keycode(shortcut.key);
    xcb_connection_t *connection = x11application::connection();
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    forEveryLock([&](int locks) {
        return xcb_grab_key_checked(connection, false, root, static_cast<uint16_t>(shortcut.modifier | locks),
                                    key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    });
    forEveryLock([&](int locks) {
        return xcb_ungrab_key_checked(connection, key, root,
                                      static_cast<uint16_t>(shortcut.modifier | locks));
    });
}

void HotkeySystem::press(QHotkey::NativeShortcut shortcut)
{
    static const xcb_keycode_t key = keycode(shortcut.key);
    xcb_key_press_event_t event{};
    event.response_type = XCB_KEY_PRESS;
    event.detail = key;
    event.state = static_cast<uint16_t>(shortcut.modifier);
    orvqt::NativeResult result = 0;
    QAbstractEventDispatcher::instance()->filterNativeEvent(QByteArrayLiteral("xcb_generic_event_t"), &event,
                                                            &result);
}
