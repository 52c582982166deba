#pragma once

#include <QString>
#include <QStringList>

namespace Quillstacks::TagPalette {

inline constexpr int columns = 8;

/// The colours that a tag is offered, row by row, as hexadecimal digits.
[[nodiscard]] const QStringList& colors();
/// What a new tag begins with.
[[nodiscard]] QString firstColor();
/// A colour's name for who can't see it; the digits themselves for one that is not in the palette.
[[nodiscard]] QString nameOf(const QString& colorHex);

} // namespace Quillstacks::TagPalette
