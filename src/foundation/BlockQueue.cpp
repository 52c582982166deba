#include "BlockQueue.h"

#include "foundation/Clock.h"

#include <QCoreApplication>

#include <algorithm>

namespace Quillstacks {

using std::chrono::nanoseconds;

BlockQueue& BlockQueue::shared() {
    // Never destroyed: blocks may hold what other statics have already given up.
    static BlockQueue& instance = *new BlockQueue;
    return instance;
}

BlockQueue::BlockQueue() {
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    connect(&timer, &QTimer::timeout, this, &BlockQueue::runDue);
}

void BlockQueue::Entry::run() const {
    if (!isDropped() && block)
        block();
}

bool BlockQueue::isLater(const Entry& a, const Entry& b) {
    return a.due != b.due ? a.due > b.due : a.sequence > b.sequence;
}

void BlockQueue::append(const QObject* context, MainQueue::Block block) {
    appended.push_back({{}, ++lastSequence, context != nullptr, context, std::move(block)});
    // One event for each block keeps their order among other posted events, also in a nested event loop.
    QMetaObject::invokeMethod(this, &BlockQueue::runOneAppended, Qt::QueuedConnection);
}

void BlockQueue::insert(nanoseconds due, const QObject* context, MainQueue::Block block) {
    delayed.push_back({due, ++lastSequence, context != nullptr, context, std::move(block)});
    std::push_heap(delayed.begin(), delayed.end(), isLater);
    arm();
}

void BlockQueue::runOneAppended() {
    if (appended.empty()) // run already, by a clock that is moved by hand
        return;
    const Entry entry = std::move(appended.front());
    appended.pop_front();
    entry.run();
}

void BlockQueue::runAppended() {
    while (!appended.empty())
        runOneAppended();
}

void BlockQueue::runDue() {
    // Held fast, so that blocks which come while others run wait for another turn.
    const nanoseconds now = Clock::uptime();
    while (nextDue() <= now) {
        const Entry entry = takeFirst();
        arm(); // before the block, which may run an event loop of its own
        entry.run();
    }
    arm();
}

nanoseconds BlockQueue::nextDue() {
    while (!delayed.empty() && delayed.front().isDropped())
        takeFirst();
    return delayed.empty() ? nanoseconds::max() : delayed.front().due;
}

BlockQueue::Entry BlockQueue::takeFirst() {
    std::pop_heap(delayed.begin(), delayed.end(), isLater);
    Entry entry = std::move(delayed.back());
    delayed.pop_back();
    return entry;
}

void BlockQueue::arm() {
    const nanoseconds due = nextDue();
    if (due == nanoseconds::max())
        return timer.stop();
    if (!QCoreApplication::instance()) { // no timer runs yet; the loop's first turn starts it
        QMetaObject::invokeMethod(this, &BlockQueue::arm, Qt::QueuedConnection);
        return;
    }
    constexpr std::chrono::milliseconds longest = std::chrono::hours(24);
    const auto rest = std::chrono::ceil<std::chrono::milliseconds>(due - Clock::uptime());
    timer.start(std::clamp(rest, std::chrono::milliseconds::zero(), longest));
}

void BlockQueue::clear() {
    appended.clear();
    delayed.clear();
    arm();
}

} // namespace Quillstacks
