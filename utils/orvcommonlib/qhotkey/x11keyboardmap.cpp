#include "x11keyboardmap.h"

#include <QtCore/QChar>
#include <QtCore/Qt>

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace {

struct KeySymbol
{
    int key;
    xcb_keysym_t keysym;
};

constexpr KeySymbol kKeySymbols[] = {
    {Qt::Key_Escape, XKB_KEY_Escape},
    {Qt::Key_Tab, XKB_KEY_Tab},
    {Qt::Key_Backtab, XKB_KEY_Tab},
    {Qt::Key_Backspace, XKB_KEY_BackSpace},
    {Qt::Key_Return, XKB_KEY_Return},
    {Qt::Key_Enter, XKB_KEY_KP_Enter},
    {Qt::Key_Insert, XKB_KEY_Insert},
    {Qt::Key_Delete, XKB_KEY_Delete},
    {Qt::Key_Pause, XKB_KEY_Pause},
    {Qt::Key_Print, XKB_KEY_Print},
    {Qt::Key_Clear, XKB_KEY_Clear},
    {Qt::Key_Home, XKB_KEY_Home},
    {Qt::Key_End, XKB_KEY_End},
    {Qt::Key_Left, XKB_KEY_Left},
    {Qt::Key_Up, XKB_KEY_Up},
    {Qt::Key_Right, XKB_KEY_Right},
    {Qt::Key_Down, XKB_KEY_Down},
    {Qt::Key_PageUp, XKB_KEY_Prior},
    {Qt::Key_PageDown, XKB_KEY_Next},
    {Qt::Key_CapsLock, XKB_KEY_Caps_Lock},
    {Qt::Key_NumLock, XKB_KEY_Num_Lock},
    {Qt::Key_ScrollLock, XKB_KEY_Scroll_Lock},
    {Qt::Key_Menu, XKB_KEY_Menu},
    {Qt::Key_Help, XKB_KEY_Help},
    {Qt::Key_Back, XKB_KEY_XF86Back},
    {Qt::Key_Forward, XKB_KEY_XF86Forward},
    {Qt::Key_Stop, XKB_KEY_XF86Stop},
    {Qt::Key_Refresh, XKB_KEY_XF86Refresh},
    {Qt::Key_Reload, XKB_KEY_XF86Reload},
    {Qt::Key_VolumeDown, XKB_KEY_XF86AudioLowerVolume},
    {Qt::Key_VolumeMute, XKB_KEY_XF86AudioMute},
    {Qt::Key_VolumeUp, XKB_KEY_XF86AudioRaiseVolume},
    {Qt::Key_MediaPlay, XKB_KEY_XF86AudioPlay},
    {Qt::Key_MediaPause, XKB_KEY_XF86AudioPause},
    {Qt::Key_MediaStop, XKB_KEY_XF86AudioStop},
    {Qt::Key_MediaPrevious, XKB_KEY_XF86AudioPrev},
    {Qt::Key_MediaNext, XKB_KEY_XF86AudioNext},
    {Qt::Key_MediaRecord, XKB_KEY_XF86AudioRecord},
    {Qt::Key_HomePage, XKB_KEY_XF86HomePage},
    {Qt::Key_Favorites, XKB_KEY_XF86Favorites},
    {Qt::Key_Search, XKB_KEY_XF86Search},
    {Qt::Key_Standby, XKB_KEY_XF86Standby},
    {Qt::Key_LaunchMail, XKB_KEY_XF86Mail},
    {Qt::Key_LaunchMedia, XKB_KEY_XF86AudioMedia},
    {Qt::Key_Launch0, XKB_KEY_XF86MyComputer},
    {Qt::Key_Launch1, XKB_KEY_XF86Calculator},
    {Qt::Key_Touroku, XKB_KEY_Touroku},
    {Qt::Key_Massyo, XKB_KEY_Massyo},
    {Qt::Key_Mode_switch, XKB_KEY_Mode_switch},
    {Qt::Key_Select, XKB_KEY_Select},
    {Qt::Key_Cancel, XKB_KEY_Cancel},
    {Qt::Key_Printer, XKB_KEY_Print},
    {Qt::Key_Execute, XKB_KEY_Execute},
    {Qt::Key_Sleep, XKB_KEY_XF86Sleep},
};

constexpr int kFirstSpecialKey = 0x01000000; // smaller Qt keys are characters
constexpr xcb_keysym_t kUnicodeKeysyms =
    0x01000000; // a character that has no keysym of its own is this plus its code
constexpr quint16 kNamedModifiers =
    XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_4;

struct Freed
{
    void operator()(void *reply) const { std::free(reply); }
};
template<typename Reply>
using ReplyPointer = std::unique_ptr<Reply, Freed>;

// Layouts may spell a character both ways.
xcb_keysym_t oneSpelling(xcb_keysym_t keysym)
{
    const bool isUnicode = keysym > kUnicodeKeysyms && keysym <= kUnicodeKeysyms + QChar::LastValidCodePoint;
    return isUnicode ? xkb_utf32_to_keysym(keysym - kUnicodeKeysyms) : keysym;
}

} // namespace

X11KeyboardMap::X11KeyboardMap(xcb_connection_t *connection)
{
    if (!connection || xcb_connection_has_error(connection))
        return;
    const xcb_setup_t *setup = xcb_get_setup(connection);
    m_firstKeycode = setup->min_keycode;
    const int keys = setup->max_keycode - setup->min_keycode + 1;

    const xcb_get_keyboard_mapping_cookie_t keysyms =
        xcb_get_keyboard_mapping(connection, m_firstKeycode, static_cast<uint8_t>(keys));
    const xcb_get_modifier_mapping_cookie_t modifiers = xcb_get_modifier_mapping(connection);
    readKeysyms(xcb_get_keyboard_mapping_reply(connection, keysyms, nullptr));
    readLocks(xcb_get_modifier_mapping_reply(connection, modifiers, nullptr));
}

void X11KeyboardMap::readKeysyms(xcb_get_keyboard_mapping_reply_t *reply)
{
    const ReplyPointer<xcb_get_keyboard_mapping_reply_t> owner(reply);
    if (!reply)
        return;
    m_columns = reply->keysyms_per_keycode;
    const xcb_keysym_t *begin = xcb_get_keyboard_mapping_keysyms(reply);
    const xcb_keysym_t *end = begin + xcb_get_keyboard_mapping_keysyms_length(reply);
    m_keysyms.resize(static_cast<int>(end - begin));
    std::transform(begin, end, m_keysyms.begin(), &oneSpelling);
}

// Caps Lock has a modifier of its own. Those of the other two are found by their keys; where one shares the
// modifier of Shift, Ctrl, Alt or Meta it stays that modifier.
void X11KeyboardMap::readLocks(xcb_get_modifier_mapping_reply_t *reply)
{
    const ReplyPointer<xcb_get_modifier_mapping_reply_t> owner(reply);
    m_locks = XCB_MOD_MASK_LOCK;
    if (!reply)
        return;
    const xcb_keycode_t *keycodes = xcb_get_modifier_mapping_keycodes(reply);
    const int length = xcb_get_modifier_mapping_keycodes_length(reply);
    for (int index = 0; index < length; ++index) {
        const int row = keycodes[index] - m_firstKeycode;
        if (row < 0)
            continue;
        const auto isLock = [](xcb_keysym_t symbol) {
            return symbol == XKB_KEY_Num_Lock || symbol == XKB_KEY_Scroll_Lock;
        };
        const QVector<xcb_keysym_t> symbols = m_keysyms.mid(row * m_columns, m_columns);
        if (std::any_of(symbols.cbegin(), symbols.cend(), isLock))
            m_locks |= 1U << (index / reply->keycodes_per_modifier);
    }
    m_locks &= ~kNamedModifiers;
}

bool X11KeyboardMap::operator==(const X11KeyboardMap &other) const
{
    return m_firstKeycode == other.m_firstKeycode && m_columns == other.m_columns &&
           m_keysyms == other.m_keysyms && m_locks == other.m_locks;
}

xcb_keysym_t X11KeyboardMap::keysym(int qtKey) const
{
    if (qtKey >= Qt::Key_Space && qtKey < kFirstSpecialKey) {
        const uint character = static_cast<uint>(qtKey);
        if (QChar::category(character) == QChar::Other_Control)
            return XKB_KEY_NoSymbol;
        // Qt names a letter by its capital, a key carries the small one without Shift.
        const xcb_keysym_t small = xkb_utf32_to_keysym(QChar::toLower(character));
        return keycode(small) ? small : xkb_utf32_to_keysym(character);
    }
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F35)
        return XKB_KEY_F1 + static_cast<xcb_keysym_t>(qtKey - Qt::Key_F1);
    const auto *entry = std::find_if(std::begin(kKeySymbols), std::end(kKeySymbols),
                                     [&](const KeySymbol &symbol) { return symbol.key == qtKey; });
    return entry == std::end(kKeySymbols) ? XKB_KEY_NoSymbol : entry->keysym;
}

xcb_keycode_t X11KeyboardMap::keycode(xcb_keysym_t keysym) const
{
    if (keysym == XKB_KEY_NoSymbol)
        return 0;

    // The columns are: first layout, the same with Shift, second layout, the same with Shift, rarer levels.
    static constexpr int kUnshiftedColumns[] = {0, 2};
    for (int column : kUnshiftedColumns) {
        if (const xcb_keycode_t found = keycodeInColumn(keysym, column))
            return found;
    }
    for (int column = 0; column < m_columns; ++column) {
        if (const xcb_keycode_t found = keycodeInColumn(keysym, column))
            return found;
    }
    return 0;
}

xcb_keycode_t X11KeyboardMap::keycodeInColumn(xcb_keysym_t keysym, int column) const
{
    if (column >= m_columns)
        return 0;
    for (int index = column; index < m_keysyms.size(); index += m_columns) {
        if (m_keysyms.at(index) == keysym)
            return static_cast<xcb_keycode_t>(m_firstKeycode + index / m_columns);
    }
    return 0;
}

QVector<quint16> X11KeyboardMap::lockCombinations() const
{
    QVector<quint16> combinations{0};
    for (quint16 bit = 1; bit <= XCB_MOD_MASK_5; bit <<= 1) {
        if (!(m_locks & bit))
            continue;
        for (int index = combinations.size() - 1; index >= 0; --index)
            combinations.append(combinations.at(index) | bit);
    }
    return combinations;
}
