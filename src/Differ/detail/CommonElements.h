#pragma once

#include "Differ/detail/Interning.h"

namespace Differ::detail {

/// Both sides without the elements that have no equal on the other, and how many pairs of equal elements there are.
///
/// The path of the rest is that of the whole. Back from the end of both it goes up, an insertion, where the prefixes'
/// longest common subsequence is no shorter for it, else to the left, a deletion, where that is so, else along a match.
/// An element without an equal changes the length of no such subsequence: it is passed at once, and wherever it lies
/// the decisions about the others are the same.
struct CommonElements {
    struct Side {
        std::vector<ElementNumber> numbers; ///< closed by one that matches nothing
        std::vector<ElementNumber> places;  ///< of each in the whole side

        [[nodiscard]] Index count() const { return static_cast<Index>(places.size()); }
    };

    explicit CommonElements(const InternedSides& sides)
        : occurrencesInTarget(static_cast<std::size_t>(sides.distinct), 0) {
        std::vector<ElementNumber> occurrencesInSource(occurrencesInTarget);
        for (const ElementNumber number : sides.source) {
            ++occurrencesInSource[static_cast<std::size_t>(number)];
        }
        for (const ElementNumber number : sides.target) {
            ++occurrencesInTarget[static_cast<std::size_t>(number)];
        }
        for (std::size_t number = 0; number < occurrencesInTarget.size(); ++number) {
            pairs += Index{occurrencesInSource[number]} * occurrencesInTarget[number];
        }
        source = common(sides.source, occurrencesInTarget, -1);
        target = common(sides.target, occurrencesInSource, -2);
    }

    Side source;
    Side target;
    std::vector<ElementNumber> occurrencesInTarget; ///< of each number
    Index pairs = 0; ///< at most the counts' product, which fits, as both counts have fewer bits than half an Index

private:
    static Side common(const std::vector<ElementNumber>& numbers, const std::vector<ElementNumber>& onOtherSide,
                       ElementNumber closing) {
        Side side;
        for (std::size_t place = 0; place < numbers.size(); ++place) {
            if (onOtherSide[static_cast<std::size_t>(numbers[place])] > 0) {
                side.numbers.push_back(numbers[place]);
                side.places.push_back(static_cast<ElementNumber>(place));
            }
        }
        side.numbers.push_back(closing);
        return side;
    }
};

} // namespace Differ::detail
