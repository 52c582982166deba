#pragma once

#include "Differ/ExtendedDiffElements.h"
#include "Differ/IndexPath.h"

#include <concepts>

namespace Differ {

/// From a place in the data to a place in the view.
template <class F>
concept IndexPathTransform =
    std::regular_invocable<F&, IndexPath> && std::convertible_to<std::invoke_result_t<F&, IndexPath>, IndexPath>;

/// An extended diff sorted by kind, as views want it that change many rows in one animation. All are done at once: what
/// is deleted and where a move starts counts in the view before, what is inserted and where a move ends in the view
/// after.
class BatchUpdate {
public:
    struct MoveStep {
        IndexPath from;
        IndexPath to;

        friend constexpr bool operator==(const MoveStep&, const MoveStep&) = default;
    };

    constexpr BatchUpdate() = default;
    /// Every position is the diff's, in section 0, passed through the transform. Each array is in the diff's order.
    template <IndexPathTransform Transform = std::identity>
    constexpr explicit BatchUpdate(const ExtendedDiff& diff, Transform indexPathTransform = {}) {
        for (const ExtendedDiff::Element element : diff) {
            switch (element.kind()) {
            case ExtendedDiff::Element::Kind::insertion:
                insertions.push_back(indexPathTransform(IndexPath{element.at(), 0}));
                break;
            case ExtendedDiff::Element::Kind::deletion:
                deletions.push_back(indexPathTransform(IndexPath{element.at(), 0}));
                break;
            case ExtendedDiff::Element::Kind::move:
                moves.push_back(
                    {indexPathTransform(IndexPath{element.from(), 0}), indexPathTransform(IndexPath{element.to(), 0})});
                break;
            }
        }
    }

    [[nodiscard]] constexpr bool empty() const { return deletions.empty() && insertions.empty() && moves.empty(); }

    friend constexpr bool operator==(const BatchUpdate&, const BatchUpdate&) = default;

    std::vector<IndexPath> deletions;
    std::vector<IndexPath> insertions;
    std::vector<MoveStep> moves;
};

} // namespace Differ
