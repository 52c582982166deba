#include "RelativeDate.h"

#include "support/Text.h"

#include <gtest/gtest.h>

using namespace Quillstacks;
using namespace std::chrono_literals;

namespace {

/// 2023-11-14 22:13:20 UTC
constexpr Date now = dateFromMicroseconds(1'700'000'000'000'000);

template <typename Duration>
QString full(Duration ago) {
    return relativeDate(now - ago, now, RelativeDateUnits::full);
}
template <typename Duration>
QString abbreviated(Duration ago) {
    return relativeDate(now - ago, now, RelativeDateUnits::abbreviated);
}

} // namespace

TEST(RelativeDate, fullUnitsAreSpelledOut) {
    EXPECT_EQ(full(1s), text("1 second ago"));
    EXPECT_EQ(full(45s), text("45 seconds ago"));
    EXPECT_EQ(full(1min), text("1 minute ago"));
    EXPECT_EQ(full(2h), text("2 hours ago"));
    EXPECT_EQ(full(24h), text("1 day ago"));
    EXPECT_EQ(full(3 * 24h), text("3 days ago"));
    EXPECT_EQ(full(14 * 24h), text("2 weeks ago"));
    EXPECT_EQ(full(45 * 24h), text("1 month ago"));
    EXPECT_EQ(full(800 * 24h), text("2 years ago"));
}

TEST(RelativeDate, abbreviatedUnitsAreShort) {
    EXPECT_EQ(abbreviated(45s), text("45 sec. ago"));
    EXPECT_EQ(abbreviated(5min), text("5 min. ago"));
    EXPECT_EQ(abbreviated(2h), text("2 hr. ago"));
    EXPECT_EQ(abbreviated(3 * 24h), text("3 days ago"));
    EXPECT_EQ(abbreviated(14 * 24h), text("2 wk. ago"));
    EXPECT_EQ(abbreviated(45 * 24h), text("1 mo. ago"));
    EXPECT_EQ(abbreviated(800 * 24h), text("2 yr. ago"));
}

TEST(RelativeDate, whatIsLeftOfAUnitIsDropped) {
    EXPECT_EQ(full(59s + 999ms), text("59 seconds ago"));
    EXPECT_EQ(full(2h + 59min), text("2 hours ago"));
    EXPECT_EQ(full(13 * 24h + 23h), text("1 week ago"));
}

TEST(RelativeDate, monthsAreThoseOfTheCalendar) {
    EXPECT_EQ(full(30 * 24h), text("4 weeks ago"));
    EXPECT_EQ(full(31 * 24h), text("1 month ago")) << "October has 31 days";
}

TEST(RelativeDate, lessThanASecondEitherWayIsNow) {
    EXPECT_EQ(full(0s), text("now"));
    EXPECT_EQ(abbreviated(0s), text("now"));
    EXPECT_EQ(full(999ms), text("now"));
    EXPECT_EQ(full(-999ms), text("now"));
}

TEST(RelativeDate, aMomentAfterAClockWasSetBackIsInTheFuture) {
    EXPECT_EQ(full(-3min), text("in 3 minutes"));
    EXPECT_EQ(abbreviated(-3min), text("in 3 min."));
}

TEST(RelativeDate, anyStoredMomentHasAText) {
    EXPECT_FALSE(relativeDate(Date{}, now, RelativeDateUnits::full).isEmpty());
    EXPECT_FALSE(relativeDate(distantPast, now, RelativeDateUnits::full).isEmpty());
    EXPECT_FALSE(relativeDate(Date::max(), now, RelativeDateUnits::abbreviated).isEmpty());
}
