#include "hotkey/ShortcutDisplay.h"

#include <array>

namespace Quillstacks {

namespace {

/// Names by key code; nullptr where there is none.
using Names = std::array<const char*, 128>;

// clang-format off
constexpr Names onScreen = {
    // 0
    "A", "S", "D", "F", "H", "G", "Z", "X", "C", "V", nullptr, "B", "Q", "W", "E", "R",
    // 16
    "Y", "T", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
    nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, "O",
    // 32
    "U", nullptr, "I", "P", "Return", "L", "J", nullptr, "K", nullptr, nullptr, nullptr, nullptr, "N", "M", nullptr,
    // 48
    "Tab", "Space", nullptr, "Delete", nullptr, "Escape", nullptr, nullptr,
    nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
    // 64
    nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
    nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
    // 80
    nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
    nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
    // 96
    "F5", "F6", "F7", "F3", "F8", "F9", nullptr, "F11",
    nullptr, nullptr, nullptr, nullptr, nullptr, "F10", nullptr, "F12",
    // 112
    nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, "F4", nullptr,
    "F2", nullptr, "F1", "←", "→", "↓", "↑", nullptr,
};

/// Where a PC keyboard says more than the screen, or something else.
constexpr Names onPcKeyboard = {
    // 0
    nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
    nullptr, nullptr, "<", nullptr, nullptr, nullptr, nullptr, nullptr,
    // 16
    nullptr, nullptr, "1", "2", "3", "4", "6", "5", "=", "9", "7", "-", "8", "0", "]", nullptr,
    // 32
    nullptr, "[", nullptr, nullptr, "Enter", nullptr, nullptr, "'", nullptr, ";", "\\", ",", "/", nullptr, nullptr, ".",
    // 48
    nullptr, nullptr, "`", "Backspace", nullptr, "Esc", nullptr, nullptr,
    nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
    // 64
    "F17", "Keypad .", nullptr, "Keypad *", nullptr, "Keypad +", nullptr, "Num Lock",
    "Volume Up", "Volume Down", "Mute", "Keypad /", "Keypad Enter", nullptr, "Keypad -", "F18",
    // 80
    "F19", "Keypad =", "Keypad 0", "Keypad 1", "Keypad 2", "Keypad 3", "Keypad 4", "Keypad 5",
    "Keypad 6", "Keypad 7", "F20", "Keypad 8", "Keypad 9", "¥", "_", "Keypad ,",
    // 96
    nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, "Eisu", nullptr,
    "Kana", "F13", "F16", "F14", nullptr, nullptr, "Menu", nullptr,
    // 112
    nullptr, "F15", "Insert", "Home", "Page Up", "Delete", nullptr, "End",
    nullptr, "Page Down", nullptr, "Left", "Right", "Down", "Up", nullptr,
};
// clang-format on

const char* nameIn(const Names& names, qint64 keyCode) {
    return keyCode >= 0 && keyCode < static_cast<qint64>(names.size()) ? names.at(static_cast<size_t>(keyCode))
                                                                       : nullptr;
}

struct ModifierName {
    quint64 flag;
    const char* name;
};

QString joined(const std::array<ModifierName, 4>& names, quint64 modifiers) {
    QString text;
    for (const auto& [flag, name] : names)
        if ((modifiers & flag) != 0)
            text += QString::fromUtf8(name);
    return text;
}

} // namespace

QString keyCodeDisplayName(qint64 keyCode) {
    const char* name = nameIn(onScreen, keyCode);
    return QString::fromUtf8(name ? name : "?");
}

QString shortcutDisplayString(quint64 modifiers, qint64 keyCode) {
    static constexpr std::array<ModifierName, 4> glyphs = {{
        {ModifierFlags::control, "⌃"},
        {ModifierFlags::option, "⌥"},
        {ModifierFlags::shift, "⇧"},
        {ModifierFlags::command, "⌘"},
    }};
    return joined(glyphs, modifiers) + keyCodeDisplayName(keyCode);
}

QString spelledShortcut(quint64 modifiers, qint64 keyCode) {
    // In the order in which desktops on PCs write them.
    static constexpr std::array<ModifierName, 4> words = {{
        {ModifierFlags::control, "Super+"},
        {ModifierFlags::command, "Ctrl+"},
        {ModifierFlags::option, "Alt+"},
        {ModifierFlags::shift, "Shift+"},
    }};
    const char* printed = nameIn(onPcKeyboard, keyCode);
    return joined(words, modifiers) + (printed ? QString::fromUtf8(printed) : keyCodeDisplayName(keyCode));
}

} // namespace Quillstacks
