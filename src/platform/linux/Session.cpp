#include "Session.h"

#include <QByteArray>

namespace Quillstacks::Session {

bool isWayland() {
    return qgetenv("XDG_SESSION_TYPE") == "wayland" || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

} // namespace Quillstacks::Session
