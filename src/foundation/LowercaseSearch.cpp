#include "foundation/LowercaseSearch.h"

#include "foundation/Text.h"

#include <unicode/uchar.h>
#include <unicode/uniset.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <bit>
#include <utility>

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

#ifdef __SSE2__
constexpr qsizetype placesAtOnce = 8;

/// Tests of a unit, for eight at a time.
template <int count>
class Vectors final {
public:
    template <typename Tests>
    explicit Vectors(const Tests& tests) {
        for (int index = 0; index < count; ++index) {
            masks[index] = _mm_set1_epi16(static_cast<short>(tests[index].mask));
            values[index] = _mm_set1_epi16(static_cast<short>(tests[index].value));
        }
    }
    /// All bits of those of the eight units for which a test holds.
    [[nodiscard]] __m128i heldBy(const char16_t* place) const {
        const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(place));
        __m128i held = _mm_cmpeq_epi16(_mm_or_si128(units, masks[0]), values[0]);
        for (int index = 1; index < count; ++index)
            held = _mm_or_si128(held, _mm_cmpeq_epi16(_mm_or_si128(units, masks[index]), values[index]));
        return held;
    }

private:
    __m128i masks[count];
    __m128i values[count];
};

bool isNone(__m128i held) {
    return _mm_movemask_epi8(held) == 0;
}

qsizetype firstOf(__m128i held) {
    return std::countr_zero(static_cast<unsigned>(_mm_movemask_epi8(held))) / 2;
}

/// The first place from `from` on where one of the first tests holds at `one` and one of the second at `other`; or the
/// place from which on fewer than eight are left.
template <int count>
qsizetype skip(const Vectors<count>& first, const char16_t* one, const Vectors<count>& second, const char16_t* other,
               qsizetype from, qsizetype end) {
    constexpr qsizetype parts = 4;
    for (; from + parts * placesAtOnce <= end; from += parts * placesAtOnce) {
        __m128i held[parts];
        for (qsizetype part = 0; part < parts; ++part)
            held[part] = first.heldBy(one + from + part * placesAtOnce);
        if (isNone(_mm_or_si128(_mm_or_si128(held[0], held[1]), _mm_or_si128(held[2], held[3]))))
            continue;
        for (qsizetype part = 0; part < parts; ++part) {
            const qsizetype place = from + part * placesAtOnce;
            if (const auto both = _mm_and_si128(held[part], second.heldBy(other + place)); !isNone(both))
                return place + firstOf(both);
        }
    }
    for (; from + placesAtOnce <= end; from += placesAtOnce)
        if (const auto both = _mm_and_si128(first.heldBy(one + from), second.heldBy(other + from)); !isNone(both))
            return from + firstOf(both);
    return from;
}
#endif

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

    Anchor anchor{.offset = offset};
    if (static_cast<std::size_t>(origins.size()) > anchor.tests.size())
        return std::nullopt;
    for (const QChar origin : std::as_const(origins))
        anchor.add(origin.unicode());
    std::fill(anchor.tests.begin() + anchor.testCount, anchor.tests.end(), anchor.tests[anchor.testCount - 1]);
    return anchor;
}

void LowercaseSearch::Anchor::add(char16_t origin) {
    for (int index = 0; index < testCount; ++index) {
        UnitTest& test = tests[index];
        const unsigned difference = test.value ^ origin;
        if (test.mask == 0 && std::has_single_bit(difference)) {
            test = {static_cast<char16_t>(difference), static_cast<char16_t>(test.value | origin)};
            return;
        }
    }
    tests[testCount++] = {0, origin};
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
    if (end - from >= placesAtOnce) {
        if (first->testCount == 1 && second->testCount == 1)
            from = skip(Vectors<1>(first->tests), one, Vectors<1>(second->tests), other, from, end);
        else
            from = skip(Vectors<3>(first->tests), one, Vectors<3>(second->tests), other, from, end);
    }
#endif
    const auto holds = [](const Anchor& anchor, char16_t unit) {
        return std::any_of(anchor.tests.begin(), anchor.tests.end(),
                           [unit](const UnitTest& test) { return test.holds(unit); });
    };
    while (from < end && !(holds(*first, one[from]) && holds(*second, other[from])))
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
