#pragma once

#include "Differ/detail/Indexed.h"
#include "Differ/detail/StableOrder.h"
#include "Differ/DiffElements.h"
#include "Differ/DoublyLinkedList.h"
#include "Differ/SortedPatchElement.h"

namespace Differ::detail {

/// One step for each element of the diff, in its order. An insertion's position is already right, as all before it is
/// done by then; a deletion's counts in the source and is off by what was done before it.
template <class Target>
constexpr auto patchInPathOrder(const Diff& diff, const Indexed<Target>& target) {
    using T = std::ranges::range_value_t<Target>;
    std::vector<Patch<T>> steps;
    steps.reserve(diff.size());
    Index shift = 0;
    for (const Diff::Element element : diff) {
        if (element.isInsertion()) {
            steps.push_back(Patch<T>::insertion(element.at(), target.at(element.at())));
            ++shift;
        } else {
            steps.push_back(Patch<T>::deletion(element.at() + shift));
            --shift;
        }
    }
    return steps;
}

/// Corrects a pair whose order the sort has turned round. `first` runs before `second` now, though path order has it
/// behind; so it has to do without what `second` will take away or add in front of it. `second` doesn't notice, as
/// `first` lies behind it. That holds for neighbours and for a jump alike.
template <class T>
void shiftPair(SortedPatchElement<T>& first, const SortedPatchElement<T>& second) {
    if (first.sortedIndex == second.sortedIndex) {
        fatalError("Differ/GenericPatch"); // a cycle
    }
    first.value.shift(second.value.isInsertion() ? -1 : 1);
}

/// Corrects the positions of all steps in the list, whose values are those of path order and which stands in the order
/// of `sortedIndex`: an insertion sort by `sourceIndex` that leaves the nodes where they are. As they don't move, one
/// that belongs before this may hide others that belong behind it; so the walk back ends only where no earlier node is
/// above this one.
template <class T>
void correctPositions(const std::shared_ptr<DoublyLinkedList<SortedPatchElement<T>>>& head) {
    std::vector<Index> highest; // of the sourceIndex of each node and all before it
    for (auto node = head; node; node = node->next) {
        const Index own = node->value.sourceIndex;
        auto left = highest.size();
        for (auto earlier = node->previous.lock(); left > 0 && highest[left - 1] > own; --left) {
            if (earlier->value.sourceIndex > own) {
                shiftPair(earlier->value, node->value);
            }
            earlier = earlier->previous.lock();
        }
        highest.push_back(highest.empty() ? own : std::max(highest.back(), own));
    }
}

/// Puts steps that are in path order into another: `order` names for each place the step that comes there.
template <class T>
std::vector<Patch<T>> patchInOrder(const std::vector<Patch<T>>& steps, const std::vector<Index>& order) {
    std::vector<SortedPatchElement<T>> records;
    records.reserve(order.size());
    for (const Index sourceIndex : order) {
        const auto sortedIndex = static_cast<Index>(records.size());
        records.push_back({steps[static_cast<std::size_t>(sourceIndex)], sourceIndex, sortedIndex});
    }
    const auto list = DoublyLinkedList<SortedPatchElement<T>>::make(records);
    correctPositions(list);
    std::vector<Patch<T>> result;
    result.reserve(order.size());
    for (auto node = list; node; node = node->next) {
        result.push_back(node->value.value);
    }
    return result;
}

} // namespace Differ::detail
