#include "platform/DesktopSettings.h"

#include "DesktopSettingsSource.h"

#include <QGuiApplication>
#include <QPalette>

namespace Quillstacks {

DesktopSettings::DesktopSettings() = default;

DesktopSettings& DesktopSettings::shared() {
    // Lives as long as the process; the bus connection that its source listens on outlives static objects.
    static auto* const instance = [] {
        auto* settings = new DesktopSettings;
        new DesktopSettingsSource(settings);
        return settings;
    }();
    return *instance;
}

} // namespace Quillstacks
