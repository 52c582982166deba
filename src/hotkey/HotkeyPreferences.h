#pragma once

#include "foundation/StoredPreference.h"

namespace Quillstacks {

/// "globalHotkeyKeyCode", 49 (the space bar) by default: a virtual key code, which names a position on an ANSI
/// keyboard whatever the layout. Written by the recorder only.
[[nodiscard]] const StoredPreference<qint64>& globalHotkeyKeyCodePreference();
/// "globalHotkeyModifiers", 1179648 (command and shift) by default: ModifierFlags. Written by the recorder only.
[[nodiscard]] const StoredPreference<qint64>& globalHotkeyModifiersPreference();

/// Both as a recorder shows them. A stored number that can't be one ends the process.
[[nodiscard]] quint16 shownHotkeyKeyCode();
[[nodiscard]] quint64 shownHotkeyModifiers();

} // namespace Quillstacks
