#pragma once

#include <QtGlobal>

#include <optional>
#include <vector>
#include <xcb/xcb.h>

namespace Quillstacks {

/// Which of the X server's eight modifier bits the keys that we speak of are on. Only Shift, Lock and Control are
/// fixed; the others are where the user's modifier map puts them.
struct ModifierMap final {
    quint16 locks = XCB_MOD_MASK_LOCK; ///< caps lock, and num and scroll lock where they have a bit
    quint16 alt = 0;                   ///< 0: no key has it
    quint16 super = 0;

    /// Asks the server.
    [[nodiscard]] static ModifierMap read(xcb_connection_t* connection);
    /// The X bits of a hot key's modifiers (HotKeys::commandBit and so on); empty when one of them is on no key.
    [[nodiscard]] std::optional<quint16> xModifiers(quint32 hotKeyModifiers) const;
    /// Every combination of the lock bits, none included, but for bits that the hot key itself asks for.
    [[nodiscard]] std::vector<quint16> lockCombinations(quint16 modifiers) const;
    friend bool operator==(const ModifierMap&, const ModifierMap&) = default;
};

} // namespace Quillstacks
