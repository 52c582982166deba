#include "foundation/MainQueue.h"
#include "foundation/Clock.h"
#include "foundation/ManualClock.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class MainQueueTest : public testing::Test {
protected:
    MainQueue::Block note(int number) {
        return [this, number] { order.push_back(number); };
    }
    static void turn() { QCoreApplication::processEvents(); }

    std::vector<int> order;
};

TEST_F(MainQueueTest, asyncRunsOnTheNextTurnInOrder) {
    MainQueue::async(nullptr, note(1));
    MainQueue::async(nullptr, note(2));
    EXPECT_TRUE(order.empty()) << "not within the call";
    turn();
    EXPECT_EQ(order, (std::vector{1, 2}));
}

TEST_F(MainQueueTest, whatABlockPostsWaitsForTheTurnAfter) {
    MainQueue::async(nullptr, [this] {
        order.push_back(1);
        MainQueue::async(nullptr, note(3));
    });
    MainQueue::async(nullptr, note(2));
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(order, (std::vector{1, 2}));
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(order, (std::vector{1, 2, 3}));
}

TEST_F(MainQueueTest, asyncKeepsItsPlaceAmongOtherPostedEvents) {
    QObject other;
    MainQueue::async(nullptr, note(1));
    QMetaObject::invokeMethod(&other, note(2), Qt::QueuedConnection);
    MainQueue::async(nullptr, note(3));
    turn();
    EXPECT_EQ(order, (std::vector{1, 2, 3}));
}

TEST_F(MainQueueTest, aNestedEventLoopRunsTheRest) {
    MainQueue::async(nullptr, [this] {
        QEventLoop loop;
        MainQueue::async(nullptr, [&] { loop.quit(); });
        loop.exec();
        order.push_back(2);
    });
    MainQueue::async(nullptr, note(1));
    turn();
    EXPECT_EQ(order, (std::vector{1, 2}));
}

TEST_F(MainQueueTest, aBlockWhoseContextIsGoneIsDropped) {
    ManualClock clock;
    {
        const QObject context;
        MainQueue::async(&context, note(1));
        MainQueue::after(1s, &context, note(2));
    }
    MainQueue::after(1s, nullptr, note(3));
    turn();
    clock.advance(2s);
    EXPECT_EQ(order, std::vector{3});
}

TEST_F(MainQueueTest, aDelayOfZeroOrLessMeansTheNextTurn) {
    MainQueue::after(0ns, nullptr, note(1));
    MainQueue::after(-5.0, nullptr, note(2));
    MainQueue::after(0.0, nullptr, note(3));
    MainQueue::after(std::numeric_limits<double>::quiet_NaN(), nullptr, note(4));
    EXPECT_TRUE(order.empty());
    turn();
    EXPECT_EQ(order, (std::vector{1, 2, 3, 4}));
}

TEST_F(MainQueueTest, blocksDueAtTheSameTimeRunInTheOrderInWhichTheyCame) {
    ManualClock clock;
    for (int i = 0; i < 100; ++i)
        MainQueue::after(0.5, nullptr, note(i));
    clock.advance(500ms);
    ASSERT_EQ(order.size(), 100U);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

TEST_F(MainQueueTest, delaysRunByDueTime) {
    ManualClock clock;
    MainQueue::after(0.4, nullptr, note(4));
    MainQueue::after(0.1, nullptr, note(1));
    MainQueue::after(0.2, nullptr, note(2));
    MainQueue::after(0.1, nullptr, note(11));
    clock.advance(400ms);
    EXPECT_EQ(order, (std::vector{1, 11, 2, 4}));
}

TEST_F(MainQueueTest, timeToNextTellsTheNextLivingBlock) {
    ManualClock clock;
    EXPECT_EQ(MainQueue::timeToNext(), std::chrono::nanoseconds::max());
    {
        const QObject context;
        MainQueue::after(1s, &context, note(1));
        MainQueue::after(3s, nullptr, note(3));
        EXPECT_EQ(MainQueue::timeToNext(), 1s);
    }
    EXPECT_EQ(MainQueue::timeToNext(), 3s);
    clock.advance(2s);
    EXPECT_EQ(MainQueue::timeToNext(), 1s);
    clock.advance(1s);
    EXPECT_EQ(MainQueue::timeToNext(), std::chrono::nanoseconds::max());
}

TEST_F(MainQueueTest, runDueLeavesWhatIsNotDue) {
    ManualClock clock;
    MainQueue::after(1s, nullptr, note(1));
    MainQueue::runDue();
    EXPECT_TRUE(order.empty());
}

TEST_F(MainQueueTest, aDelayBeyondTheClockNeverRunsAndDoesNotOverflow) {
    ManualClock clock;
    MainQueue::after(std::chrono::nanoseconds::max(), nullptr, note(1));
    MainQueue::after(1e300, nullptr, note(2));
    clock.advance(24h);
    EXPECT_TRUE(order.empty());
}

TEST_F(MainQueueTest, theQueuesOwnTimerRunsWhatIsDueInOrder) {
    QEventLoop loop;
    const auto start = Clock::uptime();
    MainQueue::after(0.003, nullptr, [&] {
        EXPECT_GE(Clock::uptime() - start, 3ms) << "at least the delay";
        order.push_back(2);
        loop.quit();
    });
    MainQueue::after(0.001, nullptr, note(1));
    loop.exec();
    EXPECT_EQ(order, (std::vector{1, 2}));
}

TEST_F(MainQueueTest, aDelayedBlockMayRunAnEventLoopThatOthersEnd) {
    QEventLoop outer;
    QEventLoop inner;
    MainQueue::after(0.001, nullptr, [&] {
        inner.exec();
        order.push_back(2);
        outer.quit();
    });
    MainQueue::after(0.001, nullptr, [&] {
        order.push_back(1);
        inner.quit();
    });
    outer.exec();
    EXPECT_EQ(order, (std::vector{1, 2}));
}

} // namespace
} // namespace Quillstacks
