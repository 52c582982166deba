#include "hotkey/PermissionManager.h"

#include "foundation/Log.h"
#include "foundation/MainQueue.h"
#include "hotkey/HotkeyManager.h"
#include "platform/Accessibility.h"

#include <QGuiApplication>

namespace Quillstacks {

namespace {

// In seconds
constexpr double launchDelay = 1.0;
constexpr double checkDelay = 0.5;
constexpr double settingsDelay = 0.3;
constexpr double pollInterval = 1.0;

} // namespace

PermissionManager& PermissionManager::shared() {
    // Never destroyed, like the hot key that it serves.
    static auto* const instance = new PermissionManager;
    return *instance;
}

PermissionManager::PermissionManager() {
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive)
            checkPermission();
    });
}

void PermissionManager::checkOnLaunch() {
    if (hasCheckedOnLaunch)
        return;
    hasCheckedOnLaunch = true;
    MainQueue::after(launchDelay, this, [this] {
        if (!refreshPermission())
            setAlertShown(true, Springs::banner);
    });
}

void PermissionManager::checkPermission() {
    const bool had = hasPermission;
    const bool has = refreshPermission();
    Log::logPermission(QStringLiteral("Accessibility"), has);
    if (!has) {
        Log::permissions.standard(QStringLiteral("Permission not granted yet"));
        return;
    }
    Log::permissions.info(QStringLiteral("Permission granted, hiding banner"));
    setAlertShown(false, Springs::banner);
    if (!had)
        HotkeyManager::shared().registerIfPermitted();
}

void PermissionManager::requestPermission() {
    Log::permissions.info(QStringLiteral("User initiated accessibility permission request"));
    HotkeyManager::shared().requestPermissionAndRegister();
    MainQueue::after(checkDelay, this, [this] { checkPermission(); });
}

bool PermissionManager::refreshPermission() {
    const bool has = Accessibility::isProcessTrusted(false);
    if (has != hasPermission) {
        hasPermission = has;
        Q_EMIT hasAccessibilityPermissionChanged(has);
    }
    return has;
}

void PermissionManager::openSystemSettings() {
    requestPermission();
    MainQueue::after(settingsDelay, this, [this] {
        Accessibility::openSettings();
        poll();
    });
}

void PermissionManager::poll() {
    MainQueue::after(pollInterval, this, [this] {
        checkPermission();
        if (!hasPermission)
            poll();
    });
}

void PermissionManager::dismissAlert() {
    setAlertShown(false, Springs::toastIn);
}

void PermissionManager::setAlertShown(bool shown, const Spring& animation) {
    if (shown == alertShown)
        return;
    alertShown = shown;
    Q_EMIT showPermissionAlertChanged(shown, animation);
}

} // namespace Quillstacks
