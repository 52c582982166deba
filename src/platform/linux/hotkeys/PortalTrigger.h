#pragma once

#include <QString>

#include <optional>

namespace Quillstacks {

/// A hot key as the portal writes it: the modifiers, and the name of the symbol that the user's layout has at the key's
/// position. Empty for a key code that names no key.
///
///     49, command and shift → "CTRL+SHIFT+space"    6, option → "ALT+z", on a German layout "ALT+y"
[[nodiscard]] std::optional<QString> portalTrigger(quint32 keyCode, quint32 modifiers);

} // namespace Quillstacks
