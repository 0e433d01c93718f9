#include "x11keyboardmap.h"

#include "nativekeys.h"
#include "x11application.h"

#include <QtCore/QChar>
#include <QtCore/QMetaEnum>

#include <xkbcommon/xkbcommon.h>

#include <X11/extensions/XKBproto.h>
#include <X11/XKBlib.h>

#include <algorithm>
#include <limits>

namespace {

// Qt names most keys as the X server does. These are the others.
constexpr NativeKey kKeys[] = {
    {Qt::Key_Backtab, XKB_KEY_Tab},
    {Qt::Key_Enter, XKB_KEY_KP_Enter},
    {Qt::Key_PageUp, XKB_KEY_Prior},
    {Qt::Key_PageDown, XKB_KEY_Next},
    {Qt::Key_CapsLock, XKB_KEY_Caps_Lock},
    {Qt::Key_NumLock, XKB_KEY_Num_Lock},
    {Qt::Key_ScrollLock, XKB_KEY_Scroll_Lock},
    {Qt::Key_VolumeDown, XKB_KEY_XF86AudioLowerVolume},
    {Qt::Key_VolumeMute, XKB_KEY_XF86AudioMute},
    {Qt::Key_VolumeUp, XKB_KEY_XF86AudioRaiseVolume},
    {Qt::Key_MediaPlay, XKB_KEY_XF86AudioPlay},
    {Qt::Key_MediaPause, XKB_KEY_XF86AudioPause},
    {Qt::Key_MediaStop, XKB_KEY_XF86AudioStop},
    {Qt::Key_MediaPrevious, XKB_KEY_XF86AudioPrev},
    {Qt::Key_MediaNext, XKB_KEY_XF86AudioNext},
    {Qt::Key_MediaRecord, XKB_KEY_XF86AudioRecord},
    {Qt::Key_LaunchMail, XKB_KEY_XF86Mail},
    {Qt::Key_LaunchMedia, XKB_KEY_XF86AudioMedia},
    {Qt::Key_Launch0, XKB_KEY_XF86MyComputer},
    {Qt::Key_Launch1, XKB_KEY_XF86Calculator},
    {Qt::Key_Printer, XKB_KEY_Print},
};

constexpr int kFirstSpecialKey = 0x01000000; // smaller Qt keys are characters
// A character that has no keysym of its own is this plus its code.
constexpr xcb_keysym_t kUnicodeKeysyms = 0x01000000;
constexpr int kNamedModifiers = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_4;

constexpr int kNowhere = std::numeric_limits<int>::max();

// Layouts and clients may spell a character both ways.
xcb_keysym_t oneSpelling(xcb_keysym_t keysym)
{
    const bool isUnicode = keysym > kUnicodeKeysyms && keysym <= kUnicodeKeysyms + QChar::LastValidCodePoint;
    return isUnicode ? xkb_utf32_to_keysym(keysym - kUnicodeKeysyms) : keysym;
}

xcb_keysym_t namedKeysym(int qtKey)
{
    const QByteArray name =
        QByteArray(QMetaEnum::fromType<Qt::Key>().valueToKey(qtKey)).mid(sizeof("Key_") - 1);
    const xcb_keysym_t keysym = xkb_keysym_from_name(name.constData(), XKB_KEYSYM_CASE_INSENSITIVE);
    if (keysym != XKB_KEY_NoSymbol)
        return keysym;
    return xkb_keysym_from_name(("XF86" + name).constData(), XKB_KEYSYM_CASE_INSENSITIVE);
}

// Where on the key the symbol is, the best place being 0: the layout in effect comes first, and in each
// layout the place without a modifier.
int placeOf(xcb_keysym_t keysym, XkbDescPtr keyboard, int keycode, int groupInEffect)
{
    const int groups = XkbKeyNumGroups(keyboard, keycode);
    for (int layout = 0; layout <= groups && groups > 0; ++layout) {
        // A key of fewer layouts than the keyboard has them in turn.
        const int group = (layout == 0 ? groupInEffect : layout - 1) % groups;
        for (int level = 0; level < XkbKeyGroupWidth(keyboard, keycode, group); ++level) {
            if (oneSpelling(XkbKeySymEntry(keyboard, keycode, level, group)) == keysym)
                return layout * (XkbMaxShiftLevel + 1) + level;
        }
    }
    return kNowhere;
}

int modifierOf(XkbDescPtr keyboard, int keycode)
{
    return keyboard->map->modmap ? keyboard->map->modmap[keycode] : 0;
}

} // namespace

X11KeyboardMap X11KeyboardMap::current()
{
    X11KeyboardMap map;
    Display *display = x11application::display();
    XkbStateRec state;
    if (!display || xcb_connection_has_error(x11application::connection()) ||
        !XkbQueryExtension(display, nullptr, &map.m_extensionEvent, nullptr, nullptr, nullptr) ||
        XkbGetState(display, XkbUseCoreKbd, &state) != Success)
        return map;
    map.m_group = state.group;
    if (XkbDescPtr keyboard = XkbGetMap(display, XkbAllClientInfoMask, XkbUseCoreKbd)) {
        map.m_keyboard.reset(keyboard,
                             [](XkbDescPtr old) { XkbFreeKeyboard(old, XkbAllComponentsMask, True); });
        map.readLocks();
    }
    return map;
}

bool X11KeyboardMap::isOutdatedBy(const xcb_generic_event_t *event) const
{
    const int type = event->response_type & 0x7f;
    if (type == XCB_MAPPING_NOTIFY)
        return reinterpret_cast<const xcb_mapping_notify_event_t *>(event)->request != XCB_MAPPING_POINTER;
    if (type != m_extensionEvent)
        return false;
    // Clients that use the keyboard extension, as Qt does, hear of most changes through its own events.
    const auto *change = reinterpret_cast<const xkbStateNotify *>(event);
    return change->xkbType == XkbNewKeyboardNotify || change->xkbType == XkbMapNotify ||
           (change->xkbType == XkbStateNotify && change->group != m_group);
}

xcb_keysym_t X11KeyboardMap::keysym(int qtKey) const
{
    if (qtKey >= Qt::Key_Space && qtKey < kFirstSpecialKey) {
        const uint character = static_cast<uint>(qtKey);
        if (QChar::category(character) == QChar::Other_Control)
            return XKB_KEY_NoSymbol;
        // Qt names a letter by its capital, a key carries the small one without Shift.
        const xcb_keysym_t small = xkb_utf32_to_keysym(QChar::toLower(character));
        return keycodes(small).isEmpty() ? xkb_utf32_to_keysym(character) : small;
    }
    const xcb_keysym_t keysym = nativeCode(kKeys, qtKey);
    return keysym != XKB_KEY_NoSymbol ? keysym : namedKeysym(qtKey);
}

QVector<xcb_keycode_t> X11KeyboardMap::keycodes(xcb_keysym_t keysym) const
{
    if (!m_keyboard || keysym == XKB_KEY_NoSymbol)
        return {};
    keysym = oneSpelling(keysym);
    const auto known = m_found.constFind(keysym);
    return known != m_found.constEnd() ? *known : *m_found.insert(keysym, findKeycodes(keysym));
}

QVector<xcb_keycode_t> X11KeyboardMap::findKeycodes(xcb_keysym_t keysym) const
{
    QVector<xcb_keycode_t> found;
    auto *const keyboard = static_cast<XkbDescPtr>(m_keyboard.get());
    int best = kNowhere - 1;
    for (int keycode = keyboard->min_key_code; keycode <= keyboard->max_key_code; ++keycode) {
        const int place = placeOf(keysym, keyboard, keycode, m_group);
        if (place < best)
            found.clear();
        if (place <= best)
            found.append(static_cast<xcb_keycode_t>(keycode));
        best = std::min(best, place);
    }
    return found;
}

// Caps Lock has a modifier of its own. Those of the other two are found by their keys; where one shares the
// modifier of Shift, Ctrl, Alt or Meta it stays that modifier.
void X11KeyboardMap::readLocks()
{
    int locks = XCB_MOD_MASK_LOCK;
    for (const xcb_keysym_t lock : {XKB_KEY_Num_Lock, XKB_KEY_Scroll_Lock}) {
        const QVector<xcb_keycode_t> keys = keycodes(lock);
        for (const xcb_keycode_t key : keys)
            locks |= modifierOf(static_cast<XkbDescPtr>(m_keyboard.get()), key) & ~kNamedModifiers;
    }
    for (int modifiers = 1; modifiers <= locks; ++modifiers) {
        if ((modifiers & ~locks) == 0)
            m_lockCombinations.append(static_cast<quint16>(modifiers));
    }
}
