#pragma once

#include "Differ/detail/CommonElements.h"

#include <algorithm>

namespace Differ::detail {

/// Finds the same path by way of the pairs of equal elements (J. W. Hunt and T. G. Szymanski, A Fast Algorithm for
/// Computing Longest Common Subsequences, 1977): O(pairs × log N), however many differences there are, so that it is
/// the quick one where nearly everything is in another place.
///
/// For each length it knows the common subsequence that ends earliest in the target, and of those the one that ends
/// earliest in the source, since one that is as good doesn't take another's place. These are the matches that the path
/// runs into when it goes up as far as it can and then to the left.
class PairSearch {
public:
    explicit PairSearch(const CommonElements& common) : sides(common), firstPlace(1, 0) {
        for (const ElementNumber count : sides.occurrencesInTarget) {
            firstPlace.push_back(firstPlace.back() + count);
        }
        places.resize(static_cast<std::size_t>(sides.target.count()));
        std::vector<ElementNumber> next(firstPlace);
        for (ElementNumber y = static_cast<ElementNumber>(sides.target.count()) - 1; y >= 0; --y) {
            const ElementNumber number = sides.target.numbers[static_cast<std::size_t>(y)];
            places[static_cast<std::size_t>(next[static_cast<std::size_t>(number)]++)] = y;
        }
    }

    /// Calls back for each match (x, y) of the path, from the last to the first.
    template <class Callback>
    void run(Callback callback) {
        for (ElementNumber x = 0; x < sides.source.count(); ++x) {
            visit(x, static_cast<std::size_t>(sides.source.numbers[static_cast<std::size_t>(x)]));
        }
        for (Index at = lasts.empty() ? none : lasts.back(); at != none;) {
            const Match& match = matches[static_cast<std::size_t>(at)];
            callback(Index{match.x}, Index{match.y});
            at = match.previous;
        }
    }

private:
    static constexpr Index none = -1;
    struct Match {
        ElementNumber x;
        ElementNumber y;
        Index previous; ///< in `matches`
    };

    /// Lengthens subsequences by the element at x of the source, longest first, so that none takes it twice.
    void visit(ElementNumber x, std::size_t number) {
        auto limit = ends.size();
        for (auto at = firstPlace[number]; at < firstPlace[number + 1]; ++at) {
            const ElementNumber y = places[static_cast<std::size_t>(at)];
            const std::size_t length = firstNotBefore(y, limit);
            limit = length + 1;
            if (length == ends.size()) {
                ends.push_back(y);
                lasts.push_back(none);
            } else if (ends[length] == y) {
                continue;
            }
            ends[length] = y;
            if (lasts[length] != none && matches[static_cast<std::size_t>(lasts[length])].x == x) {
                matches[static_cast<std::size_t>(lasts[length])].y = y;
                continue;
            }
            matches.push_back({x, y, length == 0 ? none : lasts[length - 1]});
            lasts[length] = static_cast<Index>(matches.size()) - 1;
        }
    }

    /// The first of `ends` that isn't before y, of those below the limit, else the limit. Looks near the limit first:
    /// an element with many equals asks for one place after the other.
    [[nodiscard]] std::size_t firstNotBefore(ElementNumber y, std::size_t limit) const {
        std::size_t high = limit;
        std::size_t stride = 1;
        while (high >= stride && ends[high - stride] >= y) {
            high -= stride;
            stride *= 2;
        }
        const std::size_t low = high >= stride ? high - stride + 1 : 0;
        const auto begin = ends.begin();
        return static_cast<std::size_t>(
            std::lower_bound(begin + static_cast<std::ptrdiff_t>(low), begin + static_cast<std::ptrdiff_t>(high), y) -
            begin);
    }

    const CommonElements& sides;
    std::vector<ElementNumber> firstPlace; ///< of each number in `places`, and the end of the last
    std::vector<ElementNumber> places;     ///< in the target, of each number the last one first
    std::vector<ElementNumber> ends;       ///< in the target, of the best subsequence of each length from 1 on
    std::vector<Index> lasts;              ///< the last match of each, in `matches`
    std::vector<Match> matches;
};

} // namespace Differ::detail
