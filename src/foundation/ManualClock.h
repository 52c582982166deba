#pragma once

#include "foundation/Date.h"

#include <chrono>

namespace Quillstacks {

/// While one is alive, Clock stands still and moves only by advance(). At most one at a time; main thread only.
/// What still waits in MainQueue when it ends is dropped: its delay was counted on a time that is gone.
/// Made for tests and for anything else that replays time.
class ManualClock final {
public:
    explicit ManualClock(Date start = dateFromMicroseconds(1'700'000'000'000'000));
    ~ManualClock();
    ManualClock(const ManualClock&) = delete;
    ManualClock& operator=(const ManualClock&) = delete;

    /// Moves both clocks forward, stopping at each delay of MainQueue that falls due on the way to run it (and the
    /// "next turn" blocks that it leaves behind), in the order in which they fall due.
    void advance(std::chrono::nanoseconds duration);
};

} // namespace Quillstacks
