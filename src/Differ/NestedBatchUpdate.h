#pragma once

#include "Differ/BatchUpdate.h"
#include "Differ/NestedExtendedDiff.h"

namespace Differ {

/// From a section of the data to a section of the view.
template <class F>
concept SectionTransform =
    std::regular_invocable<F&, Index> && std::convertible_to<std::invoke_result_t<F&, Index>, Index>;

/// A nested extended diff sorted by kind; see BatchUpdate.
class NestedBatchUpdate {
public:
    struct ItemMove {
        IndexPath from;
        IndexPath to;

        friend constexpr bool operator==(const ItemMove&, const ItemMove&) = default;
    };
    struct SectionMove {
        Index from = 0;
        Index to = 0;

        friend constexpr bool operator==(const SectionMove&, const SectionMove&) = default;
    };

    constexpr NestedBatchUpdate() = default;
    /// Items' positions go through the first transform, sections' through the second. Arrays are in the diff's order.
    template <IndexPathTransform PathTransform = std::identity, SectionTransform NumberTransform = std::identity>
    constexpr explicit NestedBatchUpdate(const NestedExtendedDiff& diff, PathTransform indexPathTransform = {},
                                         NumberTransform sectionTransform = {}) {
        using Kind = NestedExtendedDiff::Element::Kind;
        for (const NestedExtendedDiff::Element& element : diff.elements) {
            switch (element.kind()) {
            case Kind::deleteSection:
                sectionDeletions.insert(sectionTransform(element.at().section));
                break;
            case Kind::insertSection:
                sectionInsertions.insert(sectionTransform(element.at().section));
                break;
            case Kind::moveSection:
                sectionMoves.push_back(
                    {sectionTransform(element.from().section), sectionTransform(element.to().section)});
                break;
            case Kind::deleteElement:
                itemDeletions.push_back(indexPathTransform(element.at()));
                break;
            case Kind::insertElement:
                itemInsertions.push_back(indexPathTransform(element.at()));
                break;
            case Kind::moveElement:
                itemMoves.push_back({indexPathTransform(element.from()), indexPathTransform(element.to())});
                break;
            }
        }
    }

    friend constexpr bool operator==(const NestedBatchUpdate&, const NestedBatchUpdate&) = default;

    std::vector<IndexPath> itemDeletions;
    std::vector<IndexPath> itemInsertions;
    std::vector<ItemMove> itemMoves;
    IndexSet sectionDeletions;
    IndexSet sectionInsertions;
    std::vector<SectionMove> sectionMoves;
};

} // namespace Differ
