#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <optional>

namespace Quillstacks {

/// Answers whether the lower-cased term stands in the lower-cased text, unit by unit, exactly as
/// `Text::lowercased(text).contains(Text::lowercased(term))` would, but without making the lower-cased text.
///
/// Lower-casing keeps the number of units, but for U+0130, and gives each unit few origins. So the unit of the term
/// that is likely to be the rarest is looked for in all its origins (32 places at a time), then a second one at its
/// distance, and only where both stand the rest is compared.
class LowercaseSearch final {
public:
    /// Takes the term as typed and lower-cases it once.
    explicit LowercaseSearch(QStringView typed);

    /// An empty term stands in every text.
    [[nodiscard]] bool isIn(QStringView text) const;

private:
    /// Holds for a unit that is `value` once the bits of `mask` are set: for one unit, or for two that differ in one
    /// bit, as most pairs of a capital and a small letter do.
    struct UnitTest {
        char16_t mask = 0;
        char16_t value = 0;
        [[nodiscard]] bool holds(char16_t unit) const { return (unit | mask) == value; }
    };
    /// A place in the term, and the tests of which one holds for each unit of a text that can become the unit there.
    struct Anchor {
        qsizetype offset = 0;
        int testCount = 0;
        std::array<UnitTest, 3> tests{}; ///< those behind `testCount` repeat the last
        void add(char16_t origin);
    };
    static std::optional<Anchor> anchorAt(QStringView term, qsizetype offset);
    void chooseAnchors();
    [[nodiscard]] qsizetype nextCandidate(const char16_t* units, qsizetype from, qsizetype end) const;
    [[nodiscard]] bool isAt(QStringView text, qsizetype start) const;
    [[nodiscard]] bool continuesAt(QStringView text, qsizetype position, qsizetype matched) const;

    QString term;
    bool mayExpand = false; ///< the term can match more units than the text has, through U+0130
    std::optional<Anchor> first;
    std::optional<Anchor> second; ///< there when `first` is
};

} // namespace Quillstacks
