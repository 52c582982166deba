#pragma once

#include "Differ/Point.h"

namespace Differ {

/// One step of the search: an edge of the edit graph.
struct Trace {
    Point from;
    Point to;
    Index D = 0; ///< the number of differences at the moment that the step was taken

    friend constexpr bool operator==(const Trace&, const Trace&) = default;

    /// The elements at `from.x` of the source and `from.y` of the target are equal.
    [[nodiscard]] constexpr bool isMatch() const { return from.x + 1 == to.x && from.y + 1 == to.y; }
    /// The element at `from.y` of the target is new.
    [[nodiscard]] constexpr bool isInsertion() const { return !isMatch() && from.y < to.y; }
    /// The element at `from.x` of the source is gone.
    [[nodiscard]] constexpr bool isDeletion() const { return !isMatch() && !isInsertion(); }
};

} // namespace Differ

template <>
struct std::hash<Differ::Trace> {
    std::size_t operator()(const Differ::Trace& trace) const noexcept {
        const std::hash<Differ::Point> pointHash;
        return (pointHash(trace.from) * 31 + pointHash(trace.to)) * 31 + static_cast<std::size_t>(trace.D);
    }
};
