#include "platform/Accessibility.h"

#include "Session.h"

namespace Quillstacks::Accessibility {

bool isProcessTrusted(bool /*prompt*/) {
    // X11 lets every client grab keys. On Wayland only the desktop's portal can, and nothing here asks it yet.
    return !Session::isWayland();
}

} // namespace Quillstacks::Accessibility
