#include "platform/VirtualKeys.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <limits>
#include <map>
#include <set>

namespace Quillstacks {

namespace {

/// Every key of the table, written down a second time by groups of the keyboard rather than by code.
const std::map<quint32, quint32> expected = {
    // The letters, row by row
    {12, KEY_Q},
    {13, KEY_W},
    {14, KEY_E},
    {15, KEY_R},
    {17, KEY_T},
    {16, KEY_Y},
    {32, KEY_U},
    {34, KEY_I},
    {31, KEY_O},
    {35, KEY_P},
    {0, KEY_A},
    {1, KEY_S},
    {2, KEY_D},
    {3, KEY_F},
    {5, KEY_G},
    {4, KEY_H},
    {38, KEY_J},
    {40, KEY_K},
    {37, KEY_L},
    {6, KEY_Z},
    {7, KEY_X},
    {8, KEY_C},
    {9, KEY_V},
    {11, KEY_B},
    {45, KEY_N},
    {46, KEY_M},
    // The digit row
    {50, KEY_GRAVE},
    {18, KEY_1},
    {19, KEY_2},
    {20, KEY_3},
    {21, KEY_4},
    {23, KEY_5},
    {22, KEY_6},
    {26, KEY_7},
    {28, KEY_8},
    {25, KEY_9},
    {29, KEY_0},
    {27, KEY_MINUS},
    {24, KEY_EQUAL},
    // Punctuation
    {33, KEY_LEFTBRACE},
    {30, KEY_RIGHTBRACE},
    {42, KEY_BACKSLASH},
    {41, KEY_SEMICOLON},
    {39, KEY_APOSTROPHE},
    {43, KEY_COMMA},
    {47, KEY_DOT},
    {44, KEY_SLASH},
    {10, KEY_102ND},
    // Around them
    {36, KEY_ENTER},
    {48, KEY_TAB},
    {49, KEY_SPACE},
    {51, KEY_BACKSPACE},
    {53, KEY_ESC},
    {114, KEY_INSERT},
    {117, KEY_DELETE},
    {115, KEY_HOME},
    {119, KEY_END},
    {116, KEY_PAGEUP},
    {121, KEY_PAGEDOWN},
    {123, KEY_LEFT},
    {124, KEY_RIGHT},
    {125, KEY_DOWN},
    {126, KEY_UP},
    {110, KEY_COMPOSE},
    // The function keys
    {122, KEY_F1},
    {120, KEY_F2},
    {99, KEY_F3},
    {118, KEY_F4},
    {96, KEY_F5},
    {97, KEY_F6},
    {98, KEY_F7},
    {100, KEY_F8},
    {101, KEY_F9},
    {109, KEY_F10},
    {103, KEY_F11},
    {111, KEY_F12},
    {105, KEY_F13},
    {107, KEY_F14},
    {113, KEY_F15},
    {106, KEY_F16},
    {64, KEY_F17},
    {79, KEY_F18},
    {80, KEY_F19},
    {90, KEY_F20},
    // The keypad
    {82, KEY_KP0},
    {83, KEY_KP1},
    {84, KEY_KP2},
    {85, KEY_KP3},
    {86, KEY_KP4},
    {87, KEY_KP5},
    {88, KEY_KP6},
    {89, KEY_KP7},
    {91, KEY_KP8},
    {92, KEY_KP9},
    {65, KEY_KPDOT},
    {67, KEY_KPASTERISK},
    {69, KEY_KPPLUS},
    {71, KEY_NUMLOCK},
    {75, KEY_KPSLASH},
    {76, KEY_KPENTER},
    {78, KEY_KPMINUS},
    {81, KEY_KPEQUAL},
    // Sound, and the keys of Japanese keyboards
    {72, KEY_VOLUMEUP},
    {73, KEY_VOLUMEDOWN},
    {74, KEY_MUTE},
    {93, KEY_YEN},
    {94, KEY_RO},
    {95, KEY_KPJPCOMMA},
    {102, KEY_HANJA},
    {104, KEY_HANGEUL},
};

TEST(VirtualKeys, everyCodeFrom0To127IsTheKeyAtItsPosition) {
    for (quint32 code = 0; code < 128; ++code) {
        const auto found = expected.find(code);
        const auto want = found == expected.end() ? std::nullopt : std::optional(found->second);
        EXPECT_EQ(VirtualKeys::evdevFromVirtual(code), want) << code;
    }
}

TEST(VirtualKeys, everyKeyGoesThereAndBack) {
    for (const auto& [code, evdev] : expected)
        EXPECT_EQ(VirtualKeys::virtualFromEvdev(evdev), std::optional(code)) << evdev;
}

TEST(VirtualKeys, everyEvdevCodeOutsideTheTableHasNone) {
    std::set<quint32> known;
    for (const auto& [code, evdev] : expected)
        known.insert(evdev);
    ASSERT_EQ(known.size(), expected.size());
    for (quint32 evdev = 0; evdev <= KEY_MAX; ++evdev)
        EXPECT_EQ(VirtualKeys::virtualFromEvdev(evdev).has_value(), known.contains(evdev)) << evdev;
}

TEST(VirtualKeys, modifierKeysAreNoKeysOfAShortcut) {
    for (quint32 evdev : {KEY_LEFTCTRL, KEY_RIGHTCTRL, KEY_LEFTSHIFT, KEY_RIGHTSHIFT, KEY_LEFTALT, KEY_RIGHTALT,
                          KEY_LEFTMETA, KEY_RIGHTMETA, KEY_CAPSLOCK})
        EXPECT_EQ(VirtualKeys::virtualFromEvdev(evdev), std::nullopt) << evdev;
}

TEST(VirtualKeys, codesBeyondTheTableHaveNone) {
    EXPECT_EQ(VirtualKeys::evdevFromVirtual(128), std::nullopt);
    EXPECT_EQ(VirtualKeys::evdevFromVirtual(65535), std::nullopt);
    EXPECT_EQ(VirtualKeys::evdevFromVirtual(std::numeric_limits<quint32>::max()), std::nullopt);
    EXPECT_EQ(VirtualKeys::virtualFromEvdev(std::numeric_limits<quint32>::max()), std::nullopt);
}

TEST(VirtualKeys, everyKeyHasAnXKeyCode) {
    for (const auto& [code, evdev] : expected)
        EXPECT_LE(evdev + 8, 255U) << code;
}

} // namespace
} // namespace Quillstacks
