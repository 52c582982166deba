#include "Graphemes.h"

#include <QString>

#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace Quillstacks {
namespace {

UGraphemeClusterBreak breakClass(char32_t character) {
    return static_cast<UGraphemeClusterBreak>(
        u_getIntPropertyValue(static_cast<UChar32>(character), UCHAR_GRAPHEME_CLUSTER_BREAK));
}

char32_t before(QStringView text, qsizetype at) {
    const char16_t unit = text[at - 1].unicode();
    const bool isPair = at > 1 && U16_IS_TRAIL(unit) && U16_IS_LEAD(text[at - 2].unicode());
    return isPair ? QChar::surrogateToUcs4(text[at - 2].unicode(), unit) : unit;
}

char32_t after(QStringView text, qsizetype at) {
    const char16_t unit = text[at].unicode();
    const bool isPair = at + 1 < text.size() && U16_IS_LEAD(unit) && U16_IS_TRAIL(text[at + 1].unicode());
    return isPair ? QChar::surrogateToUcs4(unit, text[at + 1].unicode()) : unit;
}

/// Whether a user-perceived character ends here and another begins. Enough of the rules (GB3 to GB5, GB9 to GB9b) for a
/// place with a character of ASCII on one side at least; the others are about scripts and emoji. No state is needed
/// then, so that a search stays linear whatever the text.
bool isBoundary(QStringView text, qsizetype at) {
    if (at == 0 || at == text.size())
        return true;
    const char32_t left = before(text, at);
    const char32_t right = after(text, at);
    if (left == U'\r' && right == U'\n')
        return false;
    const auto isControl = [](UGraphemeClusterBreak type) {
        return type == U_GCB_CONTROL || type == U_GCB_CR || type == U_GCB_LF;
    };
    const UGraphemeClusterBreak leftClass = breakClass(left);
    const UGraphemeClusterBreak rightClass = breakClass(right);
    if (isControl(leftClass) || isControl(rightClass))
        return true;
    return leftClass != U_GCB_PREPEND && rightClass != U_GCB_EXTEND && rightClass != U_GCB_ZWJ &&
           rightClass != U_GCB_SPACING_MARK;
}

bool stands(QStringView text, qsizetype at, qsizetype length) {
    return isBoundary(text, at) && isBoundary(text, at + length);
}

} // namespace

qsizetype Graphemes::first(QStringView text, QStringView wanted, qsizetype from) {
    qsizetype at = text.indexOf(wanted, from);
    while (at >= 0 && !stands(text, at, wanted.size()))
        at = text.indexOf(wanted, at + 1);
    return at;
}

qsizetype Graphemes::last(QStringView text, QStringView wanted) {
    qsizetype at = text.lastIndexOf(wanted);
    while (at >= 0 && !stands(text, at, wanted.size()))
        at = at == 0 ? -1 : text.lastIndexOf(wanted, at - 1);
    return at;
}

bool Graphemes::beginsWith(QStringView text, QStringView wanted) {
    return text.startsWith(wanted) && stands(text, 0, wanted.size());
}

bool Graphemes::endsWith(QStringView text, QStringView wanted) {
    return text.endsWith(wanted) && stands(text, text.size() - wanted.size(), wanted.size());
}

QString Graphemes::removed(QStringView text, QStringView wanted) {
    QString result;
    qsizetype kept = 0;
    for (qsizetype at = first(text, wanted); at >= 0; at = first(text, wanted, kept)) {
        result += text.sliced(kept, at - kept);
        kept = at + wanted.size();
    }
    result += text.sliced(kept);
    return result;
}

} // namespace Quillstacks
