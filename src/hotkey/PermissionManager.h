#pragma once

#include "interface/Spring.h"

#include <QObject>

namespace Quillstacks {

/// Whether the desktop lets this process have a global shortcut, and whether the banner that asks for it is on screen.
/// Registers the hot key as soon as the permission comes. Main thread only.
class PermissionManager final : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool showPermissionAlert READ showPermissionAlert NOTIFY showPermissionAlertChanged)
    Q_PROPERTY(bool hasAccessibilityPermission READ hasAccessibilityPermission NOTIFY hasAccessibilityPermissionChanged)
public:
    /// The one that the program uses; needs the application object, and lives as long as the process.
    static PermissionManager& shared();
    PermissionManager();

    [[nodiscard]] bool showPermissionAlert() const { return alertShown; }
    [[nodiscard]] bool hasAccessibilityPermission() const { return hasPermission; }

    /// Looks one second later, once in the life of the process, and shows the banner where the permission is missing.
    void checkOnLaunch();
    /// Looks now. Hides the banner where the permission is there, and never shows it.
    void checkPermission();
    /// Asks the desktop's user, and looks half a second later.
    void requestPermission();
    /// The answer of the desktop at this moment, which is kept. Nothing else follows from it.
    bool refreshPermission();

    /// The banner's buttons.
    /// Asks, then opens the desktop's settings, and looks once a second until the permission is there. A second call
    /// makes a second such watch.
    void openSystemSettings();
    void dismissAlert();

    bool hasCheckedOnLaunch = false;

Q_SIGNALS:
    /// With the spring that the change is to be shown by.
    void showPermissionAlertChanged(bool isShown, const Quillstacks::Spring& animation);
    void hasAccessibilityPermissionChanged(bool hasPermission);

private:
    void setAlertShown(bool shown, const Spring& animation);
    void poll();

    bool alertShown = false;
    bool hasPermission = false;
};

} // namespace Quillstacks
