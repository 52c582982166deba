#pragma once

#include <QString>

#include <array>

namespace Quillstacks {

/// The tabs of the settings, in their order.
enum class SettingsTab { general, advanced };

inline constexpr std::array allSettingsTabs = {SettingsTab::general, SettingsTab::advanced};

[[nodiscard]] QString label(SettingsTab tab);

} // namespace Quillstacks
