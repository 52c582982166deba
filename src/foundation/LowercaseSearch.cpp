#include "foundation/LowercaseSearch.h"

#include "foundation/Text.h"

#include <unicode/uchar.h>
#include <unicode/uniset.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <bit>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace Quillstacks {
namespace {

constexpr char16_t dottedCapitalI = u'\u0130'; ///< the only character that becomes two: 'i' and the dot above
constexpr char16_t dotAbove = u'\u0307';
constexpr char16_t capitalSigma = u'\u03A3';
constexpr char16_t smallSigma = u'\u03C3';
constexpr char16_t finalSigma = u'\u03C2';

/// Whether the nearest character before (step -1) or behind (step 1) that isn't to be ignored has case. `position` is
/// a boundary of characters.
bool meetsCasedLetter(QStringView text, qsizetype position, int step) {
    while (step > 0 ? position < text.size() : position > 0) {
        UChar32 character = 0;
        if (step > 0)
            U16_NEXT(text.utf16(), position, text.size(), character);
        else
            U16_PREV(text.utf16(), 0, position, character);
        if (!u_hasBinaryProperty(character, UCHAR_CASE_IGNORABLE))
            return u_hasBinaryProperty(character, UCHAR_CASED);
    }
    return false;
}

/// The unit that stands for the one at the position once the text is lower-cased. Not for U+0130.
char16_t lowercasedUnit(QStringView text, qsizetype position) {
    const char16_t unit = text[position].unicode();
    if (unit < 0x80)
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    if (unit == capitalSigma) {
        const bool isFinal = !meetsCasedLetter(text, position + 1, 1) && meetsCasedLetter(text, position, -1);
        return isFinal ? finalSigma : smallSigma;
    }
    if (!U16_IS_SURROGATE(unit))
        return static_cast<char16_t>(u_tolower(unit));
    // Positions within a pair get their half of the lower-cased pair; a surrogate on its own stays.
    UChar32 character = 0;
    U16_GET(text.utf16(), 0, position, text.size(), character);
    if (character <= 0xFFFF)
        return unit;
    const UChar32 lower = u_tolower(character);
    return U16_IS_LEAD(unit) ? U16_LEAD(lower) : U16_TRAIL(lower);
}

} // namespace

LowercaseSearch::LowercaseSearch(QStringView typed)
    : term(Text::lowercased(typed)), mayExpand(term.contains(dotAbove)) {
    chooseAnchors();
}

/// No anchor where a unit has too many origins, as the second half of a pair has.
std::optional<LowercaseSearch::Anchor> LowercaseSearch::anchorAt(QStringView term, qsizetype offset) {
    const char16_t unit = term[offset].unicode();
    if (U16_IS_TRAIL(unit))
        return std::nullopt;
    QString origins = QChar(unit);
    icu::UnicodeSet related(unit, unit);
    related.closeOver(USET_CASE_INSENSITIVE);
    for (int32_t range = 0; range < related.getRangeCount(); ++range)
        for (UChar32 other = related.getRangeStart(range); other <= related.getRangeEnd(range); ++other)
            if (other != unit && other <= 0xFFFF && u_tolower(other) == unit)
                origins += QChar(static_cast<char16_t>(other));
    if (unit == u'i' || unit == dotAbove)
        origins += QChar(dottedCapitalI);
    if (unit == finalSigma)
        origins += QChar(capitalSigma);

    Anchor anchor{offset, {unit, unit, unit}};
    if (static_cast<std::size_t>(origins.size()) > anchor.origins.size())
        return std::nullopt;
    std::transform(origins.begin(), origins.end(), anchor.origins.begin(),
                   [](QChar origin) { return origin.unicode(); });
    return anchor;
}

/// Takes the two units that are likely to be the rarest in a text.
void LowercaseSearch::chooseAnchors() {
    // Behind a unit that may be one of two from a single character, the places in the text are not known.
    const qsizetype end = std::min<qsizetype>(term.size(), mayExpand ? 1 : 32);
    const auto rarity = [this](const std::optional<Anchor>& anchor) {
        constexpr QStringView commonest = u" etaoinshrdlcumwfgypbvk";
        const qsizetype place = anchor ? commonest.indexOf(term[anchor->offset]) : -2;
        return place == -1 ? commonest.size() : place;
    };
    for (qsizetype offset = 0; offset < end; ++offset) {
        const auto anchor = anchorAt(term, offset);
        if (rarity(anchor) > rarity(first)) {
            second = first;
            first = anchor;
        } else if (anchor && term[offset] != term[first->offset] && rarity(anchor) > rarity(second)) {
            second = anchor;
        }
    }
    if (!second)
        second = first;
}

bool LowercaseSearch::isIn(QStringView text) const {
    if (term.isEmpty())
        return true;
    const qsizetype end = text.size() - (mayExpand ? 1 : term.size()) + 1;
    for (qsizetype start = 0; start < end; ++start) {
        start = nextCandidate(text.utf16(), start, end);
        if (start < end && isAt(text, start))
            return true;
    }
    return false;
}

/// The first place from `from` on where both anchors hold; `end` when there is none.
qsizetype LowercaseSearch::nextCandidate(const char16_t* units, qsizetype from, qsizetype end) const {
    if (!first)
        return from;
    const char16_t* const one = units + first->offset;
    const char16_t* const other = units + second->offset;
#ifdef __SSE2__
    const auto compare = [](const char16_t* place, const std::array<char16_t, 3>& origins) {
        const __m128i eight = _mm_loadu_si128(reinterpret_cast<const __m128i*>(place));
        const auto equals = [&](char16_t origin) {
            return _mm_cmpeq_epi16(eight, _mm_set1_epi16(static_cast<short>(origin)));
        };
        return _mm_or_si128(_mm_or_si128(equals(origins[0]), equals(origins[1])), equals(origins[2]));
    };
    for (; from + 8 <= end; from += 8) {
        const __m128i both = _mm_and_si128(compare(one + from, first->origins), compare(other + from, second->origins));
        if (const auto mask = static_cast<unsigned>(_mm_movemask_epi8(both)))
            return from + std::countr_zero(mask) / 2;
    }
#endif
    const auto isOrigin = [](char16_t unit, const std::array<char16_t, 3>& origins) {
        return unit == origins[0] || unit == origins[1] || unit == origins[2];
    };
    while (from < end && !(isOrigin(one[from], first->origins) && isOrigin(other[from], second->origins)))
        ++from;
    return from;
}

bool LowercaseSearch::isAt(QStringView text, qsizetype start) const {
    // The match may begin with the second half of what U+0130 becomes.
    if (text[start] == dottedCapitalI && term.front() == dotAbove)
        return continuesAt(text, start + 1, 1);
    return continuesAt(text, start, 0);
}

bool LowercaseSearch::continuesAt(QStringView text, qsizetype position, qsizetype matched) const {
    for (; matched < term.size(); ++position, ++matched) {
        if (position >= text.size())
            return false;
        if (text[position] == dottedCapitalI) {
            if (term[matched] != u'i')
                return false;
            if (matched + 1 < term.size() && term[++matched] != dotAbove)
                return false;
        } else if (lowercasedUnit(text, position) != term[matched]) {
            return false;
        }
    }
    return true;
}

} // namespace Quillstacks
