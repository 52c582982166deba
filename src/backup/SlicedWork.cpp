#include "SlicedWork.h"

#include "foundation/Clock.h"
#include "foundation/MainQueue.h"

#include <chrono>

namespace Quillstacks {

namespace {

/// Short enough that a frame drawn between two of them comes in time.
constexpr std::chrono::milliseconds sliceTime{10};

} // namespace

SlicedWork::SlicedWork(Parts work) : parts(std::move(work)) {
    MainQueue::async(this, [this] { run(); });
}

void SlicedWork::run() {
    const auto end = Clock::uptime() + sliceTime;
    // Who is told of the end may destroy this object.
    try {
        while (parts.step()) {
            if (Clock::uptime() < end)
                continue;
            if (parts.sliced)
                parts.sliced();
            MainQueue::async(this, [this] { run(); });
            return;
        }
    } catch (const std::exception& error) {
        const auto failed = parts.failed;
        failed(error);
        return;
    }
    const auto done = parts.done;
    done();
}

} // namespace Quillstacks
