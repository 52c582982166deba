#include "foundation/ManualClock.h"

#include "BlockQueue.h"
#include "foundation/Clock.h"

#include <algorithm>

namespace Quillstacks {
namespace {

using std::chrono::nanoseconds;

bool isAlive = false;
nanoseconds wall{};
nanoseconds monotonic{};

void moveTo(nanoseconds moment) {
    wall += moment - monotonic;
    monotonic = moment;
}

} // namespace

ManualClock::ManualClock(Date start) {
    Q_ASSERT(!isAlive);
    isAlive = true;
    wall = start.time_since_epoch();
    monotonic = Clock::uptime();
    Clock::setSource(
        {[] { return Date(std::chrono::floor<std::chrono::microseconds>(wall)); }, [] { return monotonic; }});
}

ManualClock::~ManualClock() {
    BlockQueue::shared().clear();
    Clock::setSource({});
    isAlive = false;
}

void ManualClock::advance(nanoseconds duration) {
    const nanoseconds end = monotonic + std::max(duration, nanoseconds::zero());
    BlockQueue& queue = BlockQueue::shared();
    queue.runAppended();
    while (queue.nextDue() <= end) {
        moveTo(std::max(queue.nextDue(), monotonic));
        queue.runDue();
        queue.runAppended();
    }
    moveTo(end);
}

} // namespace Quillstacks
