#include "interface/AppearanceMode.h"

namespace Quillstacks {

std::optional<AppearanceMode> RawValue<AppearanceMode>::fromRawValue(const QString& raw) {
    for (const AppearanceMode mode : {AppearanceMode::system, AppearanceMode::light, AppearanceMode::dark})
        if (raw == rawValue(mode))
            return mode;
    return std::nullopt;
}

QString RawValue<AppearanceMode>::rawValue(AppearanceMode mode) {
    switch (mode) {
    case AppearanceMode::system:
        return QStringLiteral("system");
    case AppearanceMode::light:
        return QStringLiteral("light");
    case AppearanceMode::dark:
        break;
    }
    return QStringLiteral("dark");
}

const StoredPreference<AppearanceMode>& appearanceModePreference() {
    static const StoredPreference<AppearanceMode> preference{QStringLiteral("appearanceMode"), AppearanceMode::dark};
    return preference;
}

} // namespace Quillstacks
