#pragma once

#include "Differ/detail/MovePairing.h"
#include "Differ/Diff.h"
#include "Differ/ExtendedDiffElements.h"

namespace Differ {

/// Pairs each deletion of a ready diff with an insertion of an equal element, or the other way round, into one move.
/// The pairing is greedy: an element pairs with the earliest later partner that is free, and nothing later is weighed
/// against it. `isEqual` is the predicate that the diff was made with; both sequences are unchanged since. A
/// position that they don't have ends the process.
///
/// With a predicate O(D²) comparisons for D elements, without one O(D) for elements with a std::hash.
template <Sequence Source, Sequence Target, class IsEqual = Equality>
requires ElementPredicate<IsEqual, Source, Target>
constexpr ExtendedDiff extendedDiff(const Diff& diff, Source&& source, Target&& target, IsEqual isEqual = {}) {
    const detail::Indexed from(source);
    const detail::Indexed to(target);
    if constexpr (detail::Internable<Source, Target, IsEqual>) {
        if (!std::is_constant_evaluated() && static_cast<Index>(diff.size()) <= detail::mostNumbers) {
            return detail::pairMovesByNumber(diff, from, to);
        }
    }
    const auto isSame = [&](Index x, Index y) { return static_cast<bool>(isEqual(from.at(x), to.at(y))); };
    return detail::MovePairing(diff).run(detail::TestedPartners(diff, isSame));
}

/// The shortest list of insertions and deletions from `source` to `target`, with moves where an element goes in one
/// place and an equal one comes in another.
///
///     extendedDiff("ab"sv, "ba"sv)  →  M(0,1)
template <Sequence Source, Sequence Target, class IsEqual = Equality>
requires ElementPredicate<IsEqual, Source, Target>
constexpr ExtendedDiff extendedDiff(Source&& source, Target&& target, IsEqual isEqual = {}) {
    return extendedDiff(diff(source, target, isEqual), source, target, isEqual);
}

} // namespace Differ
