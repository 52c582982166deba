#pragma once

#include <QtGlobal>

#include <functional>
#include <optional>

class QKeyEvent;

namespace Quillstacks {

/// Sees the keys that go to the program's own windows, before any of these does.
namespace KeyMonitor {

/// A key that went down and is no modifier.
struct KeyDown {
    quint64 modifiers = 0;          ///< ModifierFlags; no others
    std::optional<quint16> keyCode; ///< virtual; empty for a key that no code names
};

struct Handler {
    /// Asked first. While false, keys pass on, and none reaches keyDown.
    std::function<bool()> isListening;
    /// True when the key goes no further, neither to a window nor to a handler that was added later.
    std::function<bool(const KeyDown&)> keyDown;
};

/// Adds a handler. It stays as long as the process.
void add(Handler handler);

/// What a key event of the toolkit is; empty for the modifier keys themselves.
[[nodiscard]] std::optional<KeyDown> keyDown(const QKeyEvent& event);

} // namespace KeyMonitor
} // namespace Quillstacks
