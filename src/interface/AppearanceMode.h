#pragma once

#include "foundation/StoredPreference.h"

namespace Quillstacks {

/// Which colour scheme the program shows: the desktop's, or always the same one.
enum class AppearanceMode { system, light, dark };

/// "system", "light", "dark".
template <>
struct RawValue<AppearanceMode> {
    static std::optional<AppearanceMode> fromRawValue(const QString& raw);
    static QString rawValue(AppearanceMode mode);
};

/// Key "appearanceMode", dark by default.
const StoredPreference<AppearanceMode>& appearanceModePreference();

} // namespace Quillstacks
