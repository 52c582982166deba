#pragma once

#include <QObject>

#include <chrono>
#include <functional>

namespace Quillstacks {

/// Work for later on the main thread. Blocks that are due at the same time run in the order in which they came.
/// A block whose context has been destroyed is dropped; without a context (nullptr) it always runs.
namespace MainQueue {

using Block = std::function<void()>;

/// Runs the block on the next turn of the main loop.
void async(const QObject* context, Block block);
/// Runs the block once, at least `delay` from now on Clock::uptime(). A delay of zero or less means the next turn.
void after(std::chrono::nanoseconds delay, const QObject* context, Block block);
/// The same, in seconds.
void after(double seconds, const QObject* context, Block block);

/// Runs every delayed block that is due now. Called by the queue's own timer and by ManualClock.
void runDue();
/// How long until the next delayed block falls due; max() when none waits.
[[nodiscard]] std::chrono::nanoseconds timeToNext();

} // namespace MainQueue
} // namespace Quillstacks
