#pragma once

#include <QStringView>

namespace Quillstacks {

/// Searches for short texts of ASCII that compare whole user-perceived characters: a brace with a combining mark behind
/// it is another character than a brace, and CR LF is one that is no LF. Unicode Standard Annex 29, extended grapheme
/// clusters. Positions count UTF-16 units; -1 for none.
namespace Graphemes {

[[nodiscard]] qsizetype first(QStringView text, QStringView wanted, qsizetype from = 0);
[[nodiscard]] qsizetype last(QStringView text, QStringView wanted);
[[nodiscard]] bool beginsWith(QStringView text, QStringView wanted);
[[nodiscard]] bool endsWith(QStringView text, QStringView wanted);
[[nodiscard]] QString removed(QStringView text, QStringView wanted);

} // namespace Graphemes
} // namespace Quillstacks
