#include "xclient.h"

#include "xpointer.h"

#include <QtCore/QProcess>

#include <xcb/xcbext.h>

#include <cstdlib>

namespace {

const QString kUsualLayout = QStringLiteral("us");

constexpr int kLockBits[] = {XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2, XCB_MOD_MASK_3};
constexpr int kModifierBits = 0xff;
constexpr int kLayoutShift = 13;
constexpr int kMaximalLayouts = 4;
constexpr xcb_keycode_t kToggleKeycode = 135; // the Menu key, with the option that setLayout() sets

} // namespace

XClient::XClient(const QByteArray &display, int screen)
    : m_connection(xcb_connect(display.isEmpty() ? nullptr : display.constData(), nullptr))
{
    auto each = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (; screen > 0; --screen)
        xcb_screen_next(&each);
    m_root = each.data->root;
}

XClient::~XClient()
{
    releaseLocks();
    for (int layout = 1; layout < kMaximalLayouts && layoutInEffect() != 0; ++layout)
        switchLayout();
    if (m_hasChangedKeyboard)
        setLayout(kUsualLayout);
    xcb_disconnect(m_connection);
}

bool XClient::succeeds(xcb_void_cookie_t request)
{
    xcb_generic_error_t *error = xcb_request_check(m_connection, request);
    const bool success = !error;
    std::free(error);
    return success;
}

bool XClient::grab(xcb_keycode_t keycode, int modifiers)
{
    return succeeds(xcb_grab_key_checked(m_connection, false, m_root, static_cast<uint16_t>(modifiers),
                                         keycode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
}

void XClient::ungrab(xcb_keycode_t keycode, int modifiers)
{
    succeeds(xcb_ungrab_key_checked(m_connection, keycode, m_root, static_cast<uint16_t>(modifiers)));
}

QVector<int> XClient::heldByOthers(xcb_keycode_t keycode, int modifiers)
{
    QVector<int> held;
    for (int subset = 0; subset < 8; ++subset) {
        int combination = modifiers;
        for (int index = 0; index < 3; ++index)
            combination |= subset & (1 << index) ? kLockBits[index] : 0;
        if (grab(keycode, combination))
            ungrab(keycode, combination);
        else
            held << (combination & ~modifiers);
    }
    return held;
}

void XClient::setLayout(const QString &layout)
{
    m_hasChangedKeyboard = true;
    QStringList arguments{QStringLiteral("-option"), QString()}; // those of before do not stay
    if (layout.contains(QLatin1Char(',')))
        arguments << QStringLiteral("-option") << QStringLiteral("grp:menu_toggle");
    QProcess::execute(QStringLiteral("setxkbmap"), arguments << layout);
}

void XClient::pressKeys(const QVector<xcb_keycode_t> &keycodes)
{
    for (const xcb_keycode_t keycode : keycodes)
        fakeInput(XCB_KEY_PRESS, keycode);
    for (auto key = keycodes.crbegin(); key != keycodes.crend(); ++key)
        fakeInput(XCB_KEY_RELEASE, *key);
    modifierState(); // a round trip: it has happened
}

// What libxcb-xtest would do.
void XClient::fakeInput(uint8_t type, xcb_keycode_t keycode)
{
    static xcb_extension_t xtest = {"XTEST", 0};
    constexpr uint8_t kFakeInput = 2;
    static const xcb_protocol_request_t request = {1, &xtest, kFakeInput, 1};
    struct
    {
        uint8_t majorOpcode = 0;
        uint8_t minorOpcode = 0;
        uint16_t length = 0;
        uint8_t eventType = 0;
        uint8_t detail = 0;
        uint8_t unused[30] = {};
    } body;
    body.eventType = type;
    body.detail = keycode;
    iovec parts[3] = {{}, {}, {&body, sizeof(body)}}; // the first two are libxcb's own
    xcb_send_request(m_connection, 0, parts + 2, &request);
    xcb_flush(m_connection);
}

void XClient::switchLayout()
{
    pressKeys({kToggleKeycode});
}

int XClient::layoutInEffect()
{
    return (keyboardState() >> kLayoutShift) & (kMaximalLayouts - 1);
}

void XClient::setScrollLockModifier(bool on)
{
    m_hasChangedKeyboard = true;
    const QString change = on ? QStringLiteral("add mod3 = Scroll_Lock") : QStringLiteral("clear mod3");
    QProcess::execute(QStringLiteral("xmodmap"), {QStringLiteral("-e"), change});
}

void XClient::setKeysyms(xcb_keycode_t keycode, xcb_keysym_t plain, xcb_keysym_t shifted)
{
    m_hasChangedKeyboard = true;
    const xcb_keysym_t symbols[] = {plain, shifted};
    succeeds(xcb_change_keyboard_mapping_checked(m_connection, 1, keycode, 2, symbols));
}

QVector<xcb_keycode_t> XClient::keycodes(xcb_keysym_t keysym)
{
    const xcb_setup_t *setup = xcb_get_setup(m_connection);
    const int keys = setup->max_keycode - setup->min_keycode + 1;
    xcb_get_keyboard_mapping_reply_t *reply = xcb_get_keyboard_mapping_reply(
        m_connection, xcb_get_keyboard_mapping(m_connection, setup->min_keycode, static_cast<uint8_t>(keys)),
        nullptr);
    const xcb_keysym_t *symbols = xcb_get_keyboard_mapping_keysyms(reply);
    QVector<xcb_keycode_t> found;
    for (int key = 0; key < keys; ++key) {
        if (symbols[qptrdiff(key) * reply->keysyms_per_keycode] == keysym)
            found << static_cast<xcb_keycode_t>(setup->min_keycode + key);
    }
    std::free(reply);
    return found;
}

xcb_keycode_t XClient::keycode(xcb_keysym_t keysym)
{
    return keycodes(keysym).value(0);
}

void XClient::focusWindow()
{
    if (!m_window) {
        m_window = xcb_generate_id(m_connection);
        const uint32_t values[] = {1,
                                   XCB_EVENT_MASK_KEY_PRESS}; // no window manager between us and the server
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, m_root, 0, 0, 50, 50, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
        xcb_map_window(m_connection, m_window);
    }
    succeeds(
        xcb_set_input_focus_checked(m_connection, XCB_INPUT_FOCUS_POINTER_ROOT, m_window, XCB_CURRENT_TIME));
}

QVector<int> XClient::pressedKeycodes()
{
    modifierState(); // a round trip: the events that come before its answer are here then
    while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
        if (event->response_type == XCB_KEY_PRESS)
            m_pressedKeycodes << reinterpret_cast<xcb_key_press_event_t *>(event)->detail;
        std::free(event);
    }
    return m_pressedKeycodes;
}

int XClient::modifierState()
{
    return keyboardState() & kModifierBits;
}

int XClient::keyboardState()
{
    xcb_query_pointer_reply_t *reply =
        xcb_query_pointer_reply(m_connection, xcb_query_pointer(m_connection, m_root), nullptr);
    const int state = reply->mask;
    std::free(reply);
    return state;
}

void XClient::releaseLocks()
{
    const int locked = modifierState();
    if (locked & XCB_MOD_MASK_LOCK)
        XPointer::key(QStringLiteral("Caps_Lock"));
    if (locked & XCB_MOD_MASK_2)
        XPointer::key(QStringLiteral("Num_Lock"));
    if (locked & XCB_MOD_MASK_3)
        XPointer::key(QStringLiteral("Scroll_Lock"));
}
