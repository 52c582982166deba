#include "interface/Spring.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

TEST(Spring, beginsAtZeroAndEndsAtOne) {
    for (const Spring& spring : {Springs::banner, Springs::toastIn, Springs::toastOut}) {
        EXPECT_EQ(spring.value(0), 0);
        EXPECT_NEAR(spring.value(5), 1, 1e-6);
        EXPECT_EQ(spring.curve().valueForProgress(0), 0);
        EXPECT_EQ(spring.curve().valueForProgress(1), 1);
    }
}

TEST(Spring, theToastHasOneForEachDirection) {
    EXPECT_EQ(Springs::toastIn.response, 0.4);
    EXPECT_EQ(Springs::toastIn.damping, 0.8);
    EXPECT_EQ(Springs::toastOut.response, 0.3);
    EXPECT_EQ(Springs::toastOut.damping, 0.9);
}

TEST(Spring, overshootsByTheAmountAndAtTheTimeOfItsDamping) {
    EXPECT_NEAR(Springs::toastIn.value(0.333), 1.015, 0.001);
    EXPECT_NEAR(Springs::banner.value(0.417), 1.015, 0.001);
    EXPECT_LT(Springs::toastOut.value(0.344), 1.003);
}

TEST(Spring, theCurveFollowsTheFunction) {
    const double seconds = 0.46 * 0.5;
    EXPECT_DOUBLE_EQ(Springs::toastIn.curve().valueForProgress(0.5), Springs::toastIn.value(seconds));
}

} // namespace
} // namespace Quillstacks
