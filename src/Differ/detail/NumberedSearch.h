#pragma once

#include "Differ/detail/PairSearch.h"
#include "Differ/detail/PathSearch.h"
#include "Differ/DiffElements.h"

namespace Differ::detail {

/// How far positions match from (x, y) on, by numbers, where both sides end in one that matches nothing.
class NumberedSlide {
public:
    NumberedSlide(const ElementNumber* sourceNumbers, const ElementNumber* targetNumbers)
        : source(sourceNumbers), target(targetNumbers) {}

    template <class Number>
    Number operator()(Number x, Number y) const {
        const ElementNumber* const a = source + x;
        const ElementNumber* const b = target + y;
        Number length = 0;
        while (a[length] == b[length]) {
            ++length;
        }
        return length;
    }

private:
    const ElementNumber* source;
    const ElementNumber* target;
};

/// The path between two sides of numbers, in whichever way is the shorter: by rounds, where there are few differences,
/// or by pairs, where few elements have many equals. Both find the same.
class NumberedSearch {
public:
    explicit NumberedSearch(const InternedSides& sides)
        : common(sides), isKept{Flags(sides.source.size(), 0), Flags(sides.target.size(), 0)} {}

    /// The differences of the path, whose sides stand behind `first` more elements.
    [[nodiscard]] std::vector<Diff::Element> run(Index first) {
        if (common.pairs > 0 && !searchByRounds()) {
            PairSearch(common).run([this](Index x, Index y) { keep(x, y); });
        }
        return differencesBehind(first);
    }

private:
    using Flags = std::vector<unsigned char>;

    /// All that is not kept. Between two matches the deletions go first.
    [[nodiscard]] std::vector<Diff::Element> differencesBehind(Index first) const {
        std::vector<Diff::Element> elements;
        elements.reserve(isKept.source.size() + isKept.target.size() - 2 * kept);
        std::size_t x = 0;
        std::size_t y = 0;
        while (x < isKept.source.size() || y < isKept.target.size()) {
            if (x < isKept.source.size() && isKept.source[x] == 0) {
                elements.push_back(Diff::Element::deleteAt(first + static_cast<Index>(x++)));
            } else if (y < isKept.target.size() && isKept.target[y] == 0) {
                elements.push_back(Diff::Element::insertAt(first + static_cast<Index>(y++)));
            } else {
                ++x;
                ++y;
            }
        }
        return elements;
    }

    /// How many diagonals take about as long as the pairs would: some for each pair, and some for each element. Beyond
    /// so many pairs their memory would outgrow that of the rounds.
    [[nodiscard]] Index mostDiagonals() const {
        constexpr Index diagonalsOfAPair = 4;
        constexpr Index diagonalsOfAnElement = 32;
        constexpr Index mostPairs = Index{1} << 25;
        if (common.pairs > mostPairs) {
            return std::numeric_limits<Index>::max();
        }
        return diagonalsOfAPair * common.pairs + diagonalsOfAnElement * (common.source.count() + common.target.count());
    }

    /// False when it gave up.
    bool searchByRounds() {
        const NumberedSlide slide(common.source.numbers.data(), common.target.numbers.data());
        const auto steps = shortestPath(common.source.count(), common.target.count(), slide, mostDiagonals());
        if (!steps) {
            return false;
        }
        Index x = 0;
        Index y = 0;
        const auto keepMatches = [&] {
            for (Index matches = slide(x, y); matches > 0; --matches) {
                keep(x++, y++);
            }
        };
        for (const Step step : *steps) {
            keepMatches();
            ++(step == Step::insertion ? y : x);
        }
        keepMatches();
        return true;
    }

    void keep(Index x, Index y) {
        isKept.source[static_cast<std::size_t>(common.source.places[static_cast<std::size_t>(x)])] = 1;
        isKept.target[static_cast<std::size_t>(common.target.places[static_cast<std::size_t>(y)])] = 1;
        ++kept;
    }

    CommonElements common;
    struct {
        Flags source;
        Flags target;
    } isKept;
    std::size_t kept = 0;
};

} // namespace Differ::detail
