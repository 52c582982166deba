#pragma once

#include "Differ/detail/Checked.h"

#include <concepts>
#include <cstdint>
#include <optional>
#include <vector>

namespace Differ::detail {

/// A step between matches.
enum class Step : unsigned char { deletion, insertion };

/// Finds the path that diffTraces() gives, without its traces: for each diagonal of each round it keeps one bit,
/// whether the step on to it was an insertion. Back along those bits from the end lie the steps of the path, and as
/// matches are always taken for as long as they last, the steps alone say where it runs.
///
/// It also leaves out diagonals that have run into an edge of the grid, and those beyond them: from there an end is
/// reached later than along the edge, so no shortest path crosses them. (Myers 1986, section 4b, for the idea of
/// keeping less than all; the bounds are those of every practical diff.)
///
/// `Number` holds N + M + 2. `Slide` answers for a position (x, y) how many elements match from there on.
template <std::signed_integral Number, class Slide>
class PathSearch {
public:
    constexpr PathSearch(Number sourceCount, Number targetCount, Slide matches)
        : N(sourceCount), M(targetCount), slide(matches),
          furthest(static_cast<std::size_t>(sourceCount) + static_cast<std::size_t>(targetCount) + 3, Number{-1}) {}

    /// The steps of the path from first to last; matches are between them. Nothing once the rounds have gone through
    /// more than `mostDiagonals`.
    constexpr std::optional<std::vector<Step>> run(Index mostDiagonals) {
        const Number x = slide(0, 0);
        if (x == N && x == M) {
            return std::vector<Step>{};
        }
        *diagonal(0) = x;
        Number low = x == M ? 1 : -1;
        Number high = x == N ? -1 : 1;
        Index diagonals = 0;
        while (!round(low, high)) {
            diagonals += (static_cast<Index>(high) - low) / 2 + 1;
            if (diagonals > mostDiagonals) {
                return {};
            }
        }
        return stepsBack();
    }

private:
    /// The decisions of one round: bit j of the row is that of diagonal low + 2 j.
    struct Row {
        std::size_t firstWord;
        Number low;
    };

    constexpr Number* diagonal(Number k) { return furthest.data() + (static_cast<std::ptrdiff_t>(k) + M + 1); }

    /// One more difference on every diagonal from low to high, which become the bounds of the next round. True when
    /// the end is reached.
    constexpr bool round(Number& low, Number& high) {
        rows.push_back({bits.size(), low});
        Number nextLow = low - 1;
        Number nextHigh = high + 1;
        std::uint64_t word = 0;
        std::uint64_t bit = 1;
        for (Number k = low; k <= high; k += 2) {
            Number* const here = diagonal(k);
            const Number left = here[-1];
            const Number right = here[1];
            const bool isDown = left < right;
            Number x = isDown ? right : left + 1;
            x += slide(x, x - k);
            *here = x;
            word |= isDown ? bit : 0;
            bit <<= 1U;
            if (bit == 0) {
                bits.push_back(word);
                word = 0;
                bit = 1;
            }
            if (x - k == M) {
                if (x == N) {
                    bits.push_back(word);
                    return true;
                }
                nextLow = k + 1;
            } else if (x == N && nextHigh > k) {
                nextHigh = k - 1;
            }
        }
        bits.push_back(word);
        low = nextLow;
        high = nextHigh;
        return false;
    }

    constexpr std::vector<Step> stepsBack() const {
        std::vector<Step> steps(rows.size(), Step::deletion);
        Number k = N - M;
        for (std::size_t round = rows.size(); round > 0; --round) {
            const Row& row = rows[round - 1];
            const auto place = static_cast<std::size_t>((k - row.low) / 2);
            const bool isDown = ((bits[row.firstWord + place / 64] >> (place % 64)) & 1U) != 0;
            steps[round - 1] = isDown ? Step::insertion : Step::deletion;
            k += isDown ? 1 : -1;
        }
        return steps;
    }

    Number N;
    Number M;
    Slide slide;
    std::vector<Number> furthest; ///< the furthest x on each diagonal k, at k + M + 1; -1 where none was reached
    std::vector<std::uint64_t> bits;
    std::vector<Row> rows;
};

/// The steps of the path, searched with the narrowest numbers that hold its positions; nothing where the search goes
/// through more diagonals than it may.
template <class Slide>
constexpr std::optional<std::vector<Step>> shortestPath(Index sourceCount, Index targetCount, Slide slide,
                                                        Index mostDiagonals = std::numeric_limits<Index>::max()) {
    const Index largest = checkedSum(checkedSum(sourceCount, targetCount), 3);
    if (largest <= std::numeric_limits<std::int32_t>::max()) {
        return PathSearch<std::int32_t, Slide>(static_cast<std::int32_t>(sourceCount),
                                               static_cast<std::int32_t>(targetCount), slide)
            .run(mostDiagonals);
    }
    return PathSearch<Index, Slide>(sourceCount, targetCount, slide).run(mostDiagonals);
}

} // namespace Differ::detail
