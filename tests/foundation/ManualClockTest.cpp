#include "foundation/ManualClock.h"
#include "foundation/Clock.h"
#include "foundation/MainQueue.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

TEST(ManualClock, standsStillUntilItIsMoved) {
    ManualClock clock(dateFromMicroseconds(5'000'000));
    const auto uptime = Clock::uptime();
    EXPECT_EQ(microsecondsSinceEpoch(Clock::now()), 5'000'000);
    clock.advance(1500ms);
    EXPECT_EQ(microsecondsSinceEpoch(Clock::now()), 6'500'000);
    EXPECT_EQ(Clock::uptime() - uptime, 1500ms);
    clock.advance(-1s);
    EXPECT_EQ(Clock::uptime() - uptime, 1500ms) << "never backwards";
}

TEST(ManualClock, partsOfAMicrosecondAddUp) {
    ManualClock clock(dateFromMicroseconds(0));
    clock.advance(600ns);
    EXPECT_EQ(microsecondsSinceEpoch(Clock::now()), 0);
    clock.advance(600ns);
    EXPECT_EQ(microsecondsSinceEpoch(Clock::now()), 1);
}

TEST(ManualClock, theSystemsClocksComeBackAfterIt) {
    { const ManualClock clock(dateFromMicroseconds(0)); }
    EXPECT_GT(microsecondsSinceEpoch(Clock::now()), 1'600'000'000'000'000);
}

TEST(ManualClock, eachBlockSeesTheTimeItWasDueAt) {
    ManualClock clock(dateFromMicroseconds(0));
    std::vector<qint64> seen;
    const auto see = [&] { seen.push_back(microsecondsSinceEpoch(Clock::now())); };
    MainQueue::after(0.2, nullptr, see);
    MainQueue::after(0.1, nullptr, see);
    clock.advance(1s);
    EXPECT_EQ(seen, (std::vector<qint64>{100'000, 200'000}));
    EXPECT_EQ(microsecondsSinceEpoch(Clock::now()), 1'000'000);
}

TEST(ManualClock, aChainOfDelaysRunsWithinOneAdvance) {
    ManualClock clock;
    int runs = 0;
    std::function<void()> poll = [&] {
        ++runs;
        MainQueue::after(1.0, nullptr, poll);
    };
    MainQueue::after(1.0, nullptr, poll);
    clock.advance(3500ms);
    EXPECT_EQ(runs, 3);
    clock.advance(500ms);
    EXPECT_EQ(runs, 4);
}

TEST(ManualClock, blocksOfTheNextTurnRunBeforeTimeMoves) {
    ManualClock clock;
    std::vector<int> order;
    MainQueue::async(nullptr, [&] {
        order.push_back(1);
        MainQueue::after(0.1, nullptr, [&] {
            order.push_back(2);
            MainQueue::async(nullptr, [&] { order.push_back(3); });
        });
    });
    MainQueue::after(0.1001, nullptr, [&] { order.push_back(4); });
    clock.advance(0s);
    EXPECT_EQ(order, std::vector{1});
    clock.advance(200ms);
    EXPECT_EQ(order, (std::vector{1, 2, 3, 4}));
}

TEST(ManualClock, whatItRanDoesNotRunAgainOnTheMainLoop) {
    ManualClock clock;
    int runs = 0;
    MainQueue::async(nullptr, [&] { ++runs; });
    clock.advance(0s);
    QCoreApplication::processEvents();
    EXPECT_EQ(runs, 1);
}

TEST(ManualClock, dropsWhatWaitsAtItsEnd) {
    bool ran = false;
    {
        ManualClock clock;
        MainQueue::after(0.1, nullptr, [&] { ran = true; });
        MainQueue::async(nullptr, [&] { ran = true; });
    }
    QCoreApplication::processEvents();
    ManualClock next;
    next.advance(10s);
    EXPECT_FALSE(ran);
}

} // namespace
} // namespace Quillstacks
