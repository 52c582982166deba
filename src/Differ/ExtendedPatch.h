#pragma once

#include "Differ/detail/ExtendedPatchOrder.h"
#include "Differ/ExtendedDiff.h"
#include "Differ/ExtendedPatchSteps.h"
#include "Differ/Patch.h"

namespace Differ {

/// The steps of a ready extended diff in its own order. Applied one after the other to the source they give `target`,
/// the sequence that the diff was made with. O(D log D) for D elements, and O(D) for each that overtakes another.
template <Sequence Source, Sequence Target>
std::vector<ExtendedPatch<std::ranges::range_value_t<Target>>> extendedPatch(const ExtendedDiff& diff, Source&&,
                                                                             Target&& target) {
    return detail::extendedPatchInOrder(detail::boxes(diff, detail::Indexed(target)));
}

/// The same in the order that `isBefore` asks for.
template <Sequence Source, Sequence Target, ElementOrder<ExtendedDiff::Element> IsBefore>
std::vector<ExtendedPatch<std::ranges::range_value_t<Target>>> extendedPatch(const ExtendedDiff& diff, Source&&,
                                                                             Target&& target, IsBefore isBefore) {
    const auto boxes = detail::boxes(diff, detail::Indexed(target));
    return detail::extendedPatchInOrder(detail::inOrder(boxes, detail::orderOf(diff.elements, isBefore)));
}

/// The steps from `source` to `target`, one after the other, with moves. None for equal sequences.
///
///     extendedPatch("abc"sv, "cab"sv)  →  M(2,0): take the element at 2, then put it at 0
template <Sequence Source, Sequence Target>
requires ElementPredicate<Equality, Source, Target> std::vector<ExtendedPatch<std::ranges::range_value_t<Target>>>
extendedPatch(Source&& source, Target&& target) {
    return extendedPatch(extendedDiff(source, target), source, target);
}

template <Sequence Source, Sequence Target, ElementOrder<ExtendedDiff::Element> IsBefore>
requires ElementPredicate<Equality, Source, Target> std::vector<ExtendedPatch<std::ranges::range_value_t<Target>>>
extendedPatch(Source&& source, Target&& target, IsBefore isBefore) {
    return extendedPatch(extendedDiff(source, target), source, target, isBefore);
}

} // namespace Differ
