#include "instance/StartupToken.h"

#include "Session.h"

#include <QByteArray>

namespace Quillstacks::StartupToken {

namespace {

// Read before main(), since the application object's making removes them.
const QByteArray idAtStart = qgetenv("DESKTOP_STARTUP_ID");
const QByteArray tokenAtStart = qgetenv("XDG_ACTIVATION_TOKEN");

} // namespace

QString startupId() {
    return QString::fromUtf8(idAtStart);
}

QString activationToken() {
    return QString::fromUtf8(tokenAtStart);
}

void useForNextActivation(const QString& token) {
    // The toolkit's Wayland side reads it there when a window is activated. Children must not inherit it on X11.
    if (Session::isWayland() && !token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

} // namespace Quillstacks::StartupToken
