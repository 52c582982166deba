#include "platform/VirtualKeys.h"

#include <linux/input-event-codes.h>

#include <algorithm>
#include <array>

namespace Quillstacks::VirtualKeys {

namespace {

/// Stands where no key has the code, and where the key is a modifier: those are flags of a shortcut, never its key.
constexpr quint8 none = 0;

/// The evdev code of each virtual key code, sixteen to a block. An evdev code stands here at most once.
// clang-format off
constexpr std::array<quint8, 128> table = {
    // 0
    KEY_A, KEY_S, KEY_D, KEY_F, KEY_H, KEY_G, KEY_Z, KEY_X,
    KEY_C, KEY_V, KEY_102ND, KEY_B, KEY_Q, KEY_W, KEY_E, KEY_R,
    // 16
    KEY_Y, KEY_T, KEY_1, KEY_2, KEY_3, KEY_4, KEY_6, KEY_5,
    KEY_EQUAL, KEY_9, KEY_7, KEY_MINUS, KEY_8, KEY_0, KEY_RIGHTBRACE, KEY_O,
    // 32
    KEY_U, KEY_LEFTBRACE, KEY_I, KEY_P, KEY_ENTER, KEY_L, KEY_J, KEY_APOSTROPHE,
    KEY_K, KEY_SEMICOLON, KEY_BACKSLASH, KEY_COMMA, KEY_SLASH, KEY_N, KEY_M, KEY_DOT,
    // 48
    KEY_TAB, KEY_SPACE, KEY_GRAVE, KEY_BACKSPACE, none, KEY_ESC, none, none,
    none, none, none, none, none, none, none, none,
    // 64
    KEY_F17, KEY_KPDOT, none, KEY_KPASTERISK, none, KEY_KPPLUS, none, KEY_NUMLOCK,
    KEY_VOLUMEUP, KEY_VOLUMEDOWN, KEY_MUTE, KEY_KPSLASH, KEY_KPENTER, none, KEY_KPMINUS, KEY_F18,
    // 80
    KEY_F19, KEY_KPEQUAL, KEY_KP0, KEY_KP1, KEY_KP2, KEY_KP3, KEY_KP4, KEY_KP5,
    KEY_KP6, KEY_KP7, KEY_F20, KEY_KP8, KEY_KP9, KEY_YEN, KEY_RO, KEY_KPJPCOMMA,
    // 96
    KEY_F5, KEY_F6, KEY_F7, KEY_F3, KEY_F8, KEY_F9, KEY_HANJA, KEY_F11,
    KEY_HANGEUL, KEY_F13, KEY_F16, KEY_F14, none, KEY_F10, KEY_COMPOSE, KEY_F12,
    // 112
    none, KEY_F15, KEY_INSERT, KEY_HOME, KEY_PAGEUP, KEY_DELETE, KEY_F4, KEY_END,
    KEY_F2, KEY_PAGEDOWN, KEY_F1, KEY_LEFT, KEY_RIGHT, KEY_DOWN, KEY_UP, none,
};
// clang-format on

} // namespace

std::optional<quint32> evdevFromVirtual(quint32 keyCode) {
    if (keyCode >= table.size() || table.at(keyCode) == none)
        return std::nullopt;
    return table.at(keyCode);
}

std::optional<quint32> virtualFromEvdev(quint32 evdevCode) {
    if (evdevCode == none)
        return std::nullopt;
    const auto found = std::ranges::find(table, evdevCode);
    if (found == table.end())
        return std::nullopt;
    return static_cast<quint32>(found - table.begin());
}

} // namespace Quillstacks::VirtualKeys
