#include "platform/Accessibility.h"

#include "hotkeys/PortalHotKeys.h"

#include <tuple>

namespace Quillstacks::Accessibility {

bool isProcessTrusted(bool prompt) {
    auto* portal = PortalHotKeys::shared();
    if (!portal)
        return true; // X11 lets every client grab keys
    const bool isTrusted = portal->isTrusted();
    if (prompt && !isTrusted)
        portal->askAgain();
    return isTrusted;
}

void openSettings() {
    // The portal's own question to its user is the only place that all desktops with one have.
    std::ignore = isProcessTrusted(true);
}

} // namespace Quillstacks::Accessibility
