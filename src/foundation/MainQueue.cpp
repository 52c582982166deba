#include "foundation/MainQueue.h"

#include "BlockQueue.h"
#include "foundation/Clock.h"

#include <algorithm>
#include <cmath>

namespace Quillstacks {

using std::chrono::nanoseconds;

void MainQueue::async(const QObject* context, Block block) {
    BlockQueue::shared().append(context, std::move(block));
}

void MainQueue::after(nanoseconds delay, const QObject* context, Block block) {
    if (delay <= nanoseconds::zero())
        return async(context, std::move(block));
    const nanoseconds now = Clock::uptime();
    const nanoseconds due = delay < nanoseconds::max() - now ? now + delay : nanoseconds::max();
    BlockQueue::shared().insert(due, context, std::move(block));
}

void MainQueue::after(double seconds, const QObject* context, Block block) {
    constexpr double longest = 9e9; // 285 years; more would not fit into 64 bits of nanoseconds
    const double bounded = seconds > 0 ? std::min(seconds, longest) : 0; // not a number counts as none
    after(nanoseconds(std::llround(bounded * 1e9)), context, std::move(block));
}

void MainQueue::runDue() {
    BlockQueue::shared().runDue();
}

nanoseconds MainQueue::timeToNext() {
    const nanoseconds due = BlockQueue::shared().nextDue();
    return due == nanoseconds::max() ? due : std::max(due - Clock::uptime(), nanoseconds::zero());
}

} // namespace Quillstacks
