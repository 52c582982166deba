#pragma once

#include <QString>
#include <QStringView>

namespace Quillstacks {

/// Operations on text by the rules of Unicode, over ICU. Positions and lengths count UTF-16 units.
namespace Text {

/// Without white space and line ends at both ends: Unicode general category Zs, U+0009 to U+000D, U+0085, U+2028,
/// U+2029.
[[nodiscard]] QStringView trimmed(QStringView text);
/// True when trimmed() would leave nothing.
[[nodiscard]] bool isBlank(QStringView text);
/// The full lower-case mapping of the root locale (Unicode chapter 3.13), the final sigma included.
[[nodiscard]] QString lowercased(QStringView text);
/// The localized standard comparison: collation of the user's locale, digits by value ("Item 9" before "Item 10").
/// Below, at, above zero.
[[nodiscard]] int localizedStandardCompare(QStringView a, QStringView b);

} // namespace Text
} // namespace Quillstacks
