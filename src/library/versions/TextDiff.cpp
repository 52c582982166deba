#include "TextDiff.h"

#include "Differ/Diff.h"

#include <QHash>

namespace Quillstacks {
namespace {

using Lines = QList<QStringView>;

bool endsLine(QChar character) {
    const char16_t unit = character.unicode();
    return (unit >= u'\n' && unit <= u'\r') || unit == u'\u0085' || unit == u'\u2028' || unit == u'\u2029';
}

/// Walks both texts side by side along a diff.
class Walk final {
public:
    Walk(const Lines& oldLines, const Lines& newLines) : olds(oldLines), news(newLines) {}

    void insertAt(qsizetype position) {
        for (; newPosition < position; ++newPosition)
            if (oldPosition < olds.size())
                copyOld();
        newPosition = position;
        append(news[position], DiffLine::Kind::inserted);
        ++newPosition;
    }
    void deleteAt(qsizetype position) {
        for (; oldPosition < position; ++newPosition)
            copyOld();
        append(olds[position], DiffLine::Kind::deleted);
        ++oldPosition;
    }
    [[nodiscard]] QList<DiffLine> finish() {
        while (oldPosition < olds.size())
            copyOld();
        return std::move(result);
    }

private:
    void copyOld() { append(olds[oldPosition++], DiffLine::Kind::plain); }
    void append(QStringView line, DiffLine::Kind kind) { result.append({line.toString(), kind}); }

    const Lines& olds;
    const Lines& news;
    qsizetype oldPosition = 0;
    qsizetype newPosition = 0;
    QList<DiffLine> result;
};

} // namespace

QList<QStringView> splitLines(QStringView text) {
    Lines lines;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!endsLine(text[i]))
            continue;
        lines.append(text.sliced(start, i - start));
        start = i + 1;
    }
    lines.append(text.sliced(start));
    return lines;
}

QList<DiffLine> textDiff(const QString& oldText, const QString& newText) {
    const Lines oldLines = splitLines(oldText);
    const Lines newLines = splitLines(newText);
    const Differ::Diff difference = Differ::diff(oldLines, newLines);
    Walk walk(oldLines, newLines);
    for (const auto& element : difference.elements) {
        if (element.isInsertion())
            walk.insertAt(element.at());
        else
            walk.deleteAt(element.at());
    }
    return walk.finish();
}

} // namespace Quillstacks
