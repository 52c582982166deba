#pragma once

#include "Differ/Point.h"

#include <cstdio>
#include <cstdlib>
#include <limits>

namespace Differ::detail {

/// Ends the process: a bug in the caller or in here, never a fault of the data. `line` 0 leaves it out.
[[noreturn]] inline void fatalError(const char* file, int line = 0) {
    if (line > 0) {
        std::fprintf(stderr, "Fatal error: file %s, line %d\n", file, line);
    } else {
        std::fprintf(stderr, "Fatal error: file %s\n", file);
    }
    std::abort();
}

/// The sum of two counts; one that no Index can hold ends the process.
[[nodiscard]] constexpr Index checkedSum(Index a, Index b) {
    if (a > std::numeric_limits<Index>::max() - b) {
        fatalError("Differ/Diff");
    }
    return a + b;
}

/// A count of another type as an Index; one that no Index can hold ends the process.
template <class Count>
[[nodiscard]] constexpr Index checkedCount(Count count) {
    if (count > static_cast<Count>(std::numeric_limits<Index>::max())) {
        fatalError("Differ/Diff");
    }
    return static_cast<Index>(count);
}

} // namespace Differ::detail
