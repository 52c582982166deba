#pragma once

#include <QtGlobal>

#include <optional>

/// The one table between virtual key codes (positions on an ANSI keyboard) and evdev key codes.
namespace Quillstacks::VirtualKeys {

[[nodiscard]] std::optional<quint32> evdevFromVirtual(quint32 keyCode);
[[nodiscard]] std::optional<quint32> virtualFromEvdev(quint32 evdevCode);

} // namespace Quillstacks::VirtualKeys
