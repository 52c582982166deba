#pragma once

#include "Differ/PatchSteps.h"

namespace Differ {

/// A step of a patch on its way from path order to the order that was asked for.
template <class T>
struct SortedPatchElement {
    Patch<T> value;
    Index sourceIndex = 0; ///< its place in path order
    Index sortedIndex = 0; ///< its place after the sort

    friend constexpr bool operator==(const SortedPatchElement&, const SortedPatchElement&) = default;
};

} // namespace Differ
