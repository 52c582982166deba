#pragma once

#include "Differ/detail/Checked.h"
#include "Differ/Trace.h"

#include <utility>
#include <vector>

namespace Differ::detail {

/// The greedy search of Myers 1986 (figure 2), which records every step that it takes. `isSame` compares positions.
template <class IsSame>
class TraceSearch {
public:
    constexpr TraceSearch(Index sourceCount, Index targetCount, IsSame test)
        : N(sourceCount), M(targetCount), isSame(test) {}

    /// Every step in production order, up to the first that reaches the end of both.
    constexpr std::vector<Trace> run() {
        const Index most = checkedSum(N, M);
        furthest.assign(static_cast<std::size_t>(checkedSum(most, 1)), -1);
        at(M + 1) = 0;
        for (Index D = 0; D <= most; ++D) {
            for (Index k = -D; k <= D; k += 2) {
                if (k >= -M && k <= N && visit(D, k)) {
                    return std::move(traces);
                }
            }
        }
        return {}; // no pair of sequences comes here
    }

private:
    constexpr Index& at(Index place) { return furthest[static_cast<std::size_t>(place)]; }

    /// One step on to diagonal k, and the matches behind it. True at the end of both.
    constexpr bool visit(Index D, Index k) {
        const Trace step = stepOnto(D, k);
        auto [x, y] = step.to;
        if (x > N || y > M) {
            return false;
        }
        traces.push_back(step);
        while (x >= 0 && y >= 0 && x < N && y < M && isSame(x, y)) {
            traces.push_back({{x, y}, {x + 1, y + 1}, D});
            ++x;
            ++y;
        }
        at(k + M) = x;
        return x >= N && y >= M;
    }

    /// The better of the two ways on to diagonal k. Down, an insertion, only where it leads strictly further.
    constexpr Trace stepOnto(Index D, Index k) {
        const Index place = k + M;
        const bool hasLeft = place >= 1;
        const bool hasRight = place + 1 <= N + M;
        const Index left = hasLeft ? at(place - 1) : 0;
        const Index right = hasRight ? at(place + 1) : -1;
        const bool isInner = k != -D && k != D;
        if (k == -D || (isInner && hasLeft && hasRight && left < right)) {
            return {{right, right - k - 1}, {right, right - k}, D};
        }
        return {{left, left + 1 - k}, {left + 1, left + 1 - k}, D};
    }

    Index N;
    Index M;
    IsSame isSame;
    std::vector<Index> furthest; ///< the furthest x on each diagonal k, at k + M; -1 where none was reached
    std::vector<Trace> traces;
};

} // namespace Differ::detail
