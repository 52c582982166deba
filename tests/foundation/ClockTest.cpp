#include "foundation/Clock.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

TEST(Clock, uptimeNeverGoesBackwards) {
    auto last = Clock::uptime();
    for (int i = 0; i < 1000; ++i) {
        const auto next = Clock::uptime();
        ASSERT_GE(next, last);
        last = next;
    }
    EXPECT_GT(last, 0ns);
}

TEST(Clock, nowIsTheSystemsTime) {
    const auto before = std::chrono::system_clock::now() - 1us; // Date is rounded down
    const Date now = Clock::now();
    EXPECT_GE(now, before);
    EXPECT_LE(now, std::chrono::system_clock::now());
}

TEST(Clock, anEmptySourcePutsTheSystemsClocksBack) {
    Clock::setSource({[] { return dateFromMicroseconds(42); }, [] { return 7ns; }});
    EXPECT_EQ(microsecondsSinceEpoch(Clock::now()), 42);
    EXPECT_EQ(Clock::uptime(), 7ns);
    Clock::setSource({});
    EXPECT_GT(microsecondsSinceEpoch(Clock::now()), 1'600'000'000'000'000);
    EXPECT_GT(Clock::uptime(), 7ns);
}

TEST(Date, theDistantPastIsEarlierThanEveryStoredMoment) {
    EXPECT_LT(distantPast, dateFromMicroseconds(0));
    EXPECT_LE(distantPast, dateFromMicroseconds(std::numeric_limits<qint64>::min()));
    static_assert(microsecondsSinceEpoch(dateFromMicroseconds(-5)) == -5);
}

} // namespace
} // namespace Quillstacks
