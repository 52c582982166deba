#pragma once

#include "interface/ColorRole.h"

#include <QColor>

#include <array>
#include <optional>

namespace Quillstacks {

using ColorTable = std::array<QColor, static_cast<std::size_t>(ColorRole::count)>;

/// The value of every role in one scheme. An accent of the desktop's takes the place of our own, made darker or lighter
/// until white reads on its fill, and itself on sheets, at 4.5:1 (WCAG 2).
[[nodiscard]] ColorTable makeColorTable(bool dark, const std::optional<QColor>& desktopAccent);
/// The relative contrast of two opaque colours by WCAG 2, from 1 to 21.
[[nodiscard]] double contrast(const QColor& a, const QColor& b);

} // namespace Quillstacks
