#pragma once

/// Sizes of quick access that several of its files share, in logical pixels.
namespace Quillstacks::QuickAccessMetrics {

inline constexpr int cardInset = 16; ///< room for the shadow
inline constexpr int cardRadius = 16;
inline constexpr int padding = 16; ///< of search row and footer
inline constexpr int listPadding = 8;
inline constexpr int rowGap = 4;
inline constexpr int fadeHeight = 28;

} // namespace Quillstacks::QuickAccessMetrics
