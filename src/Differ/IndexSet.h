#pragma once

#include "Differ/Point.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

namespace Differ {

/// A set of positions, in rising order.
class IndexSet {
public:
    constexpr IndexSet() = default;
    constexpr IndexSet(std::initializer_list<Index> list) {
        for (const Index index : list) {
            insert(index);
        }
    }

    /// O(1) for a position above all others, else O(size).
    constexpr void insert(Index index) {
        const auto place = std::ranges::lower_bound(indices, index);
        if (place == indices.end() || *place != index) {
            indices.insert(place, index);
        }
    }
    /// O(log size).
    [[nodiscard]] constexpr bool contains(Index index) const { return std::ranges::binary_search(indices, index); }

    [[nodiscard]] constexpr auto begin() const { return indices.begin(); }
    [[nodiscard]] constexpr auto end() const { return indices.end(); }
    [[nodiscard]] constexpr std::size_t size() const { return indices.size(); }
    [[nodiscard]] constexpr bool empty() const { return indices.empty(); }

    friend constexpr bool operator==(const IndexSet&, const IndexSet&) = default;

private:
    std::vector<Index> indices;
};

} // namespace Differ
