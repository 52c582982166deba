#pragma once

#include "Differ/BoxedDiffAndPatchElement.h"
#include "Differ/detail/PatchOrder.h"
#include "Differ/ExtendedPatchSteps.h"

namespace Differ::detail {

/// The elements of an extended diff, each with its plain steps as they are in path order.
template <class Target>
auto boxes(const ExtendedDiff& diff, const Indexed<Target>& target) {
    using Box = BoxedDiffAndPatchElement<std::ranges::range_value_t<Target>>;
    const auto steps = patchInPathOrder(diff.source, target);
    auto sourceIndex = diff.sourceIndex.begin();
    const auto nextStep = [&]() -> typename Box::Step {
        const Index index = *sourceIndex++;
        return {steps[static_cast<std::size_t>(index)], index, 0};
    };
    std::vector<Box> result;
    result.reserve(diff.size());
    for (const ExtendedDiff::Element element : diff) {
        auto first = nextStep();
        if (element.kind() != ExtendedDiff::Element::Kind::move) {
            result.push_back(Box::single(element, std::move(first)));
            continue;
        }
        auto second = nextStep();
        if (first.value.isInsertion()) {
            std::swap(first, second);
        }
        result.push_back(Box::move(element, std::move(first), std::move(second)));
    }
    return result;
}

template <class Box>
std::vector<Box> inOrder(const std::vector<Box>& boxes, const std::vector<Index>& order) {
    std::vector<Box> result;
    result.reserve(order.size());
    for (const Index place : order) {
        result.push_back(boxes[static_cast<std::size_t>(place)]);
    }
    return result;
}

/// The boxes' steps in a row, numbered as they stand.
template <class T>
auto recordsOf(const std::vector<BoxedDiffAndPatchElement<T>>& boxes) {
    std::vector<SortedPatchElement<T>> records;
    const auto add = [&](SortedPatchElement<T> record) {
        record.sortedIndex = static_cast<Index>(records.size());
        records.push_back(std::move(record));
    };
    for (const auto& box : boxes) {
        add(box.patchElement());
        if (box.isMove()) {
            add(box.insertion());
        }
    }
    return records;
}

/// One step for each box, in the boxes' order.
template <class T>
std::vector<ExtendedPatch<T>> extendedPatchInOrder(const std::vector<BoxedDiffAndPatchElement<T>>& boxes) {
    const auto list = DoublyLinkedList<SortedPatchElement<T>>::make(recordsOf(boxes));
    correctPositions(list);
    std::vector<ExtendedPatch<T>> result;
    result.reserve(boxes.size());
    auto node = list;
    for (const auto& box : boxes) {
        const Patch<T>& step = node->value.value;
        node = node->next;
        if (box.isMove()) {
            result.push_back(ExtendedPatch<T>::move(step.index(), node->value.value.index()));
            node = node->next;
        } else {
            result.push_back(ExtendedPatch<T>::of(step));
        }
    }
    return result;
}

} // namespace Differ::detail
