#pragma once

#include "Differ/detail/Differences.h"
#include "Differ/DiffElements.h"

namespace Differ {

/// The shortest list of insertions and deletions that turns `source` into `target` (Myers 1986): the differences along
/// the path that diffTraces() gives, in path order. Where a run is replaced, its deletions come before its insertions.
///
///     diff("abcabba"sv, "cbabac"sv)  →  D(0) D(1) I(1) D(5) I(5)
///
/// With N and M the counts and D the number of differences, time is O((N + M) × D) comparisons at worst, memory
/// O(N + M + D²) bits. Without a predicate, elements of one type with a std::hash are hashed once each and then
/// compared as numbers; their `==` must be an equivalence, as for any hashed container. Then those without an equal on
/// the other side cost nothing more, and the rest no more than about P log N for P pairs of equal elements, if that is
/// less. Nothing throws but the elements' own operations and the allocator; counts whose sum no Index can hold end the
/// process.
template <Sequence Source, Sequence Target, class IsEqual = Equality>
requires ElementPredicate<IsEqual, Source, Target>
constexpr Diff diff(Source&& source, Target&& target, IsEqual isEqual = {}) {
    return Diff(detail::differences<Source, Target>(source, target, isEqual));
}

} // namespace Differ
