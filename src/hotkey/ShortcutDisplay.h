#pragma once

#include <QString>
#include <QtGlobal>

namespace Quillstacks {

/// The bits of a stored shortcut's modifiers. Command is the key Ctrl, control is Super, option is Alt.
namespace ModifierFlags {
inline constexpr quint64 shift = 0x20000;
inline constexpr quint64 control = 0x40000;
inline constexpr quint64 option = 0x80000;
inline constexpr quint64 command = 0x100000;
inline constexpr quint64 all = shift | control | option | command; ///< what the recorder keeps of an event
} // namespace ModifierFlags

/// The name of a virtual key code on screen; "?" for every key without one, the digits and punctuation among them.
///
///     0 → "A"    49 → "Space"    123 → "←"    18 → "?"    200 → "?"
[[nodiscard]] QString keyCodeDisplayName(qint64 keyCode);

/// A shortcut on screen: a glyph for each modifier in a fixed order, and the key's name.
///
///     0x120000, 49 → "⇧⌘Space"    0x1E0000, 40 → "⌃⌥⇧⌘K"    0x100000, 18 → "⌘?"
[[nodiscard]] QString shortcutDisplayString(quint64 modifiers, qint64 keyCode);

/// The same spelled out by what is printed on a PC keyboard, for tool tips and accessible names. Here every key that
/// can be grabbed has a name.
///
///     0x120000, 49 → "Ctrl+Shift+Space"    0x1E0000, 40 → "Super+Ctrl+Alt+Shift+K"    0x100000, 18 → "Ctrl+1"
[[nodiscard]] QString spelledShortcut(quint64 modifiers, qint64 keyCode);

} // namespace Quillstacks
