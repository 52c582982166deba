#pragma once

#include "Differ/detail/PatchOrder.h"
#include "Differ/Diff.h"
#include "Differ/PatchSteps.h"

namespace Differ {

/// A predicate that puts the elements of a diff in an order: true when the first has to be applied before the second.
/// Any answers are safe, those that contradict each other too; elements that it doesn't tell apart keep path order.
template <class P, class Element>
concept ElementOrder = std::predicate<P&, const Element&, const Element&>;

/// The steps of a ready diff in its own order. Applied one after the other to the source they give `target`, the
/// sequence that the diff was made with; a position that it doesn't have ends the process. O(D) for D elements.
template <Sequence Source, Sequence Target>
constexpr std::vector<Patch<std::ranges::range_value_t<Target>>> patch(const Diff& diff, Source&&, Target&& target) {
    return detail::patchInPathOrder(diff, detail::Indexed(target));
}

/// The same in the order that `isBefore` asks for. O(D log D) and O(D) for each element that overtakes another.
template <Sequence Source, Sequence Target, ElementOrder<Diff::Element> IsBefore>
std::vector<Patch<std::ranges::range_value_t<Target>>> patch(const Diff& diff, Source&& source, Target&& target,
                                                             IsBefore isBefore) {
    return detail::patchInOrder(patch(diff, source, target), detail::orderOf(diff.elements, isBefore));
}

/// The steps from `source` to `target`, one after the other. None for equal sequences.
///
///     patch("abc"sv, "abd"sv)  →  D(2) I(2): erase the element at 2, then put 'd' at 2
template <Sequence Source, Sequence Target>
requires ElementPredicate<Equality, Source, Target>
constexpr std::vector<Patch<std::ranges::range_value_t<Target>>> patch(Source&& source, Target&& target) {
    return patch(diff(source, target), source, target);
}

template <Sequence Source, Sequence Target, ElementOrder<Diff::Element> IsBefore>
requires ElementPredicate<Equality, Source, Target> std::vector<Patch<std::ranges::range_value_t<Target>>>
patch(Source&& source, Target&& target, IsBefore isBefore) {
    return patch(diff(source, target), source, target, isBefore);
}

} // namespace Differ
