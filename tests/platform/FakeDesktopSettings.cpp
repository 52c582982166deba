#include "platform/DesktopSettings.h"

#include "platform/FakeDesktop.h"

namespace Quillstacks {

/// The friend through which the settings are filled.
class DesktopSettingsSource final {
public:
    template <typename Value>
    static void change(Value DesktopSettings::*field, const Value& value) {
        DesktopSettings& settings = DesktopSettings::shared();
        if (settings.*field == value)
            return;
        settings.*field = value;
        Q_EMIT settings.changed();
    }
    static constexpr auto scheme() { return &DesktopSettings::scheme; }
    static constexpr auto accent() { return &DesktopSettings::accent; }
    static constexpr auto lessMotion() { return &DesktopSettings::lessMotion; }
};

DesktopSettings::DesktopSettings() = default;

DesktopSettings& DesktopSettings::shared() {
    static DesktopSettings settings;
    return settings;
}

void FakeDesktop::setColorScheme(ColorScheme scheme) {
    DesktopSettingsSource::change(DesktopSettingsSource::scheme(), scheme);
}

void FakeDesktop::setAccentColor(std::optional<QColor> color) {
    DesktopSettingsSource::change(DesktopSettingsSource::accent(), color);
}

void FakeDesktop::setReducedMotion(bool reduced) {
    DesktopSettingsSource::change(DesktopSettingsSource::lessMotion(), reduced);
}

} // namespace Quillstacks
