#include "analysis/answer/JsonCleanUp.h"

#include "Graphemes.h"

namespace Quillstacks {
namespace {

/// Unicode's space separators, LF to CR, and NEL. A tab is none of them.
bool isTrimmed(QChar character) {
    const char16_t unit = character.unicode();
    return character.category() == QChar::Separator_Space || (unit >= u'\n' && unit <= u'\r') || unit == u'\u0085';
}

QString trimmed(QStringView text) {
    while (!text.isEmpty() && isTrimmed(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isTrimmed(text.back()))
        text.chop(1);
    return text.toString();
}

/// The text behind the opening fence, which it begins with. A fence takes its whole line, whatever language that names.
QString withoutOpeningFence(const QString& text, const QString& fence) {
    const qsizetype lineEnd = Graphemes::first(text, u"\n");
    if (lineEnd >= 0)
        return text.sliced(lineEnd + 1);
    return Graphemes::removed(Graphemes::removed(text, fence + QStringLiteral("json")), fence);
}

/// The text before the closing fence, so that a commentary behind it goes too.
QString withoutClosingFence(const QString& text, const QString& fence) {
    if (Graphemes::endsWith(text, fence))
        return text.chopped(fence.size());
    const qsizetype at = Graphemes::last(text, fence);
    return at < 0 ? text : text.first(at);
}

} // namespace

QString withoutFence(const QString& answer) {
    const QString fence = QStringLiteral("```");
    const QString text = trimmed(answer);
    if (!Graphemes::beginsWith(text, fence))
        return text;
    return trimmed(withoutClosingFence(trimmed(withoutOpeningFence(text, fence)), fence));
}

QString cleanJSONResponse(const QString& answer) {
    const QString text = withoutFence(answer);
    const qsizetype start = Graphemes::first(text, u"{");
    if (start < 0)
        return text;
    const qsizetype end = Graphemes::last(text, u"}");
    if (end < 0)
        return text;
    if (end < start)
        qFatal("The answer's last closing brace stands ahead of its first opening one");
    return text.sliced(start, end - start + 1);
}

} // namespace Quillstacks
