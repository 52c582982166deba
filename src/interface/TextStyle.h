#pragma once

#include <QFont>

namespace Quillstacks {

/// The text styles, as factors of the desktop's font size. 1 point = 1 logical pixel.
enum class TextStyle {
    largeTitle,
    title,
    title2,
    title3,
    headline,
    body,
    callout,
    subheadline,
    caption,
    caption2,
    monoBody,
    monoCaption,
    monoSubheadline
};

/// The font of a style in its usual weight, or in `weight` (a QFont::Weight). Cheap: fonts are kept.
[[nodiscard]] QFont textFont(TextStyle style, int weight = 0);
/// The height of one line of a style, in whole logical pixels.
[[nodiscard]] int textLineHeight(TextStyle style);
/// The desktop's family at a fixed size in logical pixels.
[[nodiscard]] QFont absoluteFont(qreal points, int weight = QFont::Normal);
/// The desktop's fixed-width family at a fixed size.
[[nodiscard]] QFont absoluteMonospacedFont(qreal points, int weight = QFont::Normal);
/// A font that has the glyphs of keys (⌃ ⌥ ⇧ ⌘ ↩ ↑ ↓), 6 % larger than `points` and spaced by 7 %.
[[nodiscard]] QFont keyGlyphFont(qreal points);
/// The size of a font in logical pixels, whichever way it was set.
[[nodiscard]] qreal pixelSize(const QFont& font);
/// Forgets the fonts that are kept; Theme calls it when the desktop's font changes.
void resetTextFonts();

} // namespace Quillstacks
