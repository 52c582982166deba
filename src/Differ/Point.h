#pragma once

#include <cstddef>
#include <functional>

namespace Differ {

/// A count or a position. Positions count from 0.
using Index = std::ptrdiff_t;

/// A node of the edit graph (Myers 1986, section 2).
struct Point {
    Index x = 0; ///< how many elements of the source are consumed
    Index y = 0; ///< how many elements of the target are consumed

    friend constexpr bool operator==(const Point&, const Point&) = default;
};

} // namespace Differ

template <>
struct std::hash<Differ::Point> {
    std::size_t operator()(const Differ::Point& point) const noexcept {
        // The multiplier is 2^64 over the golden ratio: points of one diagonal fall apart.
        return static_cast<std::size_t>(point.x) * 0x9e3779b97f4a7c15ULL + static_cast<std::size_t>(point.y);
    }
};
