#pragma once

#include "Differ/Point.h"

namespace Differ {

/// The place of an item in a list of sections; a flat list is section 0.
struct IndexPath {
    Index item = 0;
    Index section = 0;

    friend constexpr bool operator==(const IndexPath&, const IndexPath&) = default;
};

} // namespace Differ

template <>
struct std::hash<Differ::IndexPath> {
    std::size_t operator()(const Differ::IndexPath& path) const noexcept {
        return std::hash<Differ::Point>{}({path.item, path.section});
    }
};
