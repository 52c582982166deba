#pragma once

#include <QList>
#include <QString>
#include <QStringView>

namespace Quillstacks {

/// One line of two texts that are shown as one; a line end follows each.
struct DiffLine {
    enum class Kind { plain, inserted, deleted };
    QString text;
    Kind kind = Kind::plain;

    bool operator==(const DiffLine&) const = default;
};

/// The lines between the characters U+000A to U+000D, U+0085, U+2028 and U+2029, each a break on its own: CR LF has an
/// empty line in between. An empty text is one empty line.
[[nodiscard]] QList<QStringView> splitLines(QStringView text);

/// The way from the old text to the new one, line by line: what stayed, what went and what came. Whole lines only.
[[nodiscard]] QList<DiffLine> textDiff(const QString& oldText, const QString& newText);

} // namespace Quillstacks
