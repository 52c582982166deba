#include "hotkey/HotkeyManager.h"

#include <gtest/gtest.h>

namespace Quillstacks {

namespace {

TEST(CarbonModifiers, eachStoredBitMapsIndependently) {
    EXPECT_EQ(carbonModifiers(0x100000), 0x100U);
    EXPECT_EQ(carbonModifiers(0x20000), 0x200U);
    EXPECT_EQ(carbonModifiers(0x80000), 0x800U);
    EXPECT_EQ(carbonModifiers(0x40000), 0x1000U);
}

TEST(CarbonModifiers, theDefaultConvertsTo0x300) {
    EXPECT_EQ(carbonModifiers(0x120000), 0x300U);
    EXPECT_EQ(carbonModifiers(1179648), 0x300U);
}

TEST(CarbonModifiers, allFourAreCombined) {
    EXPECT_EQ(carbonModifiers(0x1E0000), 0x1B00U);
}

TEST(CarbonModifiers, everyOtherBitIsIgnored) {
    EXPECT_EQ(carbonModifiers(0), 0U);
    EXPECT_EQ(carbonModifiers(~0x1E0000U), 0U);
    EXPECT_EQ(carbonModifiers(0xFFFFFFFF), 0x1B00U);
}

TEST(FourCharCode, packsTheFirstCharacterIntoTheMostSignificantByte) {
    EXPECT_EQ(fourCharCode("QSTK"), 0x5153544BU);
}

TEST(FourCharCode, usesAtMostFourBytes) {
    EXPECT_EQ(fourCharCode("QSTKX"), 0x5153544BU);
}

TEST(FourCharCode, aShorterTextLeavesTheLowBytesZero) {
    EXPECT_EQ(fourCharCode("QS"), 0x51530000U);
    EXPECT_EQ(fourCharCode(""), 0U);
}

} // namespace
} // namespace Quillstacks
