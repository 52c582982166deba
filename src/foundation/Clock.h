#pragma once

#include "foundation/Date.h"

#include <chrono>

namespace Quillstacks {

/// The two clocks of the program. All code asks here, never the system, so that a test can drive both by hand.
namespace Clock {

/// Wall time. Two calls never give a falling value within one process under the manual clock; the real one follows
/// the system.
[[nodiscard]] Date now();
/// Time since an arbitrary start; never goes backwards. Delays of MainQueue are counted on it.
[[nodiscard]] std::chrono::nanoseconds uptime();

/// Where the two come from.
struct Source {
    Date (*now)();
    std::chrono::nanoseconds (*uptime)();
};
/// Replaces both clocks; an empty source (null pointers) puts the system's back.
void setSource(Source source);

} // namespace Clock
} // namespace Quillstacks
