#pragma once

#include "platform/HotKeys.h"

#include <QObject>

#include <functional>
#include <optional>
#include <string_view>

namespace Quillstacks {

/// Owns the program's one system-wide shortcut: registers what the preferences hold, and hands each press to the main
/// loop as a plain callback. Never writes the preferences. Main thread only.
class HotkeyManager final : public QObject {
    Q_OBJECT
public:
    /// The one that the program uses; it lives as long as the process.
    static HotkeyManager& shared();
    HotkeyManager();
    ~HotkeyManager() override;

    /// Registers a virtual key code with modifiers in the hot key service's bits; what is empty comes from the
    /// preferences. Drops what was registered before. A refusal goes to the log and nowhere else.
    /// A stored modifiers value below zero, or a stored key code below zero or above 32 bits, ends the process.
    void registerHotkey(std::optional<quint32> keyCode = std::nullopt, std::optional<quint32> modifiers = std::nullopt);
    /// Drops the registration and the handler. Harmless when there is none.
    void unregister();
    /// Registers the stored shortcut if the process may watch keys already; otherwise leaves all as it is.
    void registerIfPermitted();
    /// Lets the desktop ask its user for that permission, and registers at once if it is there.
    void requestPermissionAndRegister();

    /// What a press does; called from the main loop.
    std::function<void()> onHotkeyPressed;

    std::optional<HotKeys::HandlerRef> eventHandler; ///< empty while nothing is installed
    std::optional<HotKeys::HotKeyRef> hotKeyRef;     ///< empty while nothing is registered, or not yet
    const HotKeys::EventHotKeyID hotKeyID;           ///< "QSTK", 1

    /// What the hot key service calls; `userData` is the manager, nullptr when it is gone. Public for those who play
    /// the service.
    [[nodiscard]] static HotKeys::Status handleEvent(HotkeyManager* userData, const HotKeys::Event& event);

private:
    void registrationAnswered(quint32 keyCode, quint32 modifiers, HotKeys::Status status);

    /// What the hot key service knows of, also before it has answered and after it has refused: a desktop that asks its
    /// user may give it yet.
    std::optional<HotKeys::HotKeyRef> requestedRef;
};

/// Stored modifier flags (ModifierFlags) as the hot key service's bits; every other bit falls away.
///
///     0x120000 → 0x300    0x1E0000 → 0x1B00    0x10000 → 0
[[nodiscard]] quint32 carbonModifiers(quint32 from);

/// Four ASCII characters in 32 bits, the first in the most significant byte. What is beyond the fourth is dropped; a
/// shorter text leaves the low bytes zero.
[[nodiscard]] quint32 fourCharCode(std::string_view text);

} // namespace Quillstacks
