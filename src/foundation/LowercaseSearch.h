#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <optional>

namespace Quillstacks {

/// Answers whether the lower-cased term stands in the lower-cased text, unit by unit, exactly as
/// `Text::lowercased(text).contains(Text::lowercased(term))` would, but without making the lower-cased text.
///
/// Lower-casing keeps the number of units, but for U+0130, and gives each unit few origins. So two units of the term
/// are looked for in all their origins (8 places at a time), and only where both stand the rest is compared.
class LowercaseSearch final {
public:
    /// Takes the term as typed and lower-cases it once.
    explicit LowercaseSearch(QStringView typed);

    /// An empty term stands in every text.
    [[nodiscard]] bool isIn(QStringView text) const;

private:
    /// A place in the term, and the units of a text that can become the one there.
    struct Anchor {
        qsizetype offset = 0;
        std::array<char16_t, 3> origins{};
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
