#pragma once

#include "Differ/Concepts.h"
#include "Differ/detail/Indexed.h"
#include "Differ/detail/TraceSearch.h"

#include <algorithm>

namespace Differ {

namespace detail {

constexpr std::vector<Trace> allInsertionTraces(Index count) {
    std::vector<Trace> traces;
    for (Index i = 0; i < count; ++i) {
        traces.push_back({{0, i}, {0, i + 1}, 0});
    }
    return traces;
}

constexpr std::vector<Trace> allDeletionTraces(Index count) {
    std::vector<Trace> traces;
    for (Index i = 0; i < count; ++i) {
        traces.push_back({{i, 0}, {i + 1, 0}, 0});
    }
    return traces;
}

/// From the last trace back to (0, 0). A point that several traces reach takes the one that was produced last.
constexpr std::vector<Trace> pathBack(const std::vector<Trace>& traces) {
    std::vector<Trace> path;
    for (auto trace = traces.rbegin(); trace != traces.rend(); ++trace) {
        if (path.empty() || trace->to == path.back().from) {
            path.push_back(*trace);
            if (trace->from == Point{0, 0}) {
                break;
            }
        }
    }
    std::ranges::reverse(path);
    return path;
}

} // namespace detail

/// Every step that the search takes, in production order: the method itself to look at. Time O((N + M) × D) calls of
/// `isEqual`, where D is the number of differences; memory one Trace for each step and match. Where either side is
/// empty nothing is searched, and `D` is 0 throughout.
template <Sequence Source, Sequence Target, class IsEqual = Equality>
requires ElementPredicate<IsEqual, Source, Target>
constexpr std::vector<Trace> outputDiffPathTraces(Source&& source, Target&& target, IsEqual isEqual = {}) {
    const detail::Indexed from(source);
    const detail::Indexed to(target);
    if (from.count() == 0) {
        return detail::allInsertionTraces(to.count());
    }
    if (to.count() == 0) {
        return detail::allDeletionTraces(from.count());
    }
    const auto isSame = [&](Index x, Index y) { return static_cast<bool>(isEqual(from[x], to[y])); };
    return detail::TraceSearch(from.count(), to.count(), isSame).run();
}

/// The traces along the shortest path from (0, 0) to the end of both, matches included. Costs what
/// outputDiffPathTraces() does; diff() gives the same path's differences in a fraction of that memory.
template <Sequence Source, Sequence Target, class IsEqual = Equality>
requires ElementPredicate<IsEqual, Source, Target>
constexpr std::vector<Trace> diffTraces(Source&& source, Target&& target, IsEqual isEqual = {}) {
    return detail::pathBack(outputDiffPathTraces(source, target, isEqual));
}

} // namespace Differ
