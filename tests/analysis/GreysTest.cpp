#include "Greys.h"

#include <gtest/gtest.h>

#include <limits>

namespace Quillstacks {
namespace {

void expectQuality(qint64 rating, qint64 maxRating, const char* word, float level) {
    const Quality quality = Quality::of(rating, maxRating);
    EXPECT_EQ(quality.word, QLatin1String(word)) << rating << "/" << maxRating;
    EXPECT_EQ(quality.color, QColor::fromRgbF(level, level, level)) << rating << "/" << maxRating;
}

} // namespace

TEST(Quality, theThresholdsAreInclusive) {
    expectQuality(10, 10, "Good", 0.4F);
    expectQuality(7, 10, "Good", 0.4F);
    expectQuality(69, 100, "Okay", 0.5F);
    expectQuality(4, 10, "Okay", 0.5F);
    expectQuality(39, 100, "Needs Work", 0.6F);
    expectQuality(3, 10, "Needs Work", 0.6F);
}

TEST(Quality, anyRatingOfAScaleOfZeroIsGoodAndZeroOfZeroNeedsWork) {
    expectQuality(1, 0, "Good", 0.4F);
    expectQuality(0, 0, "Needs Work", 0.6F);
    expectQuality(-3, 0, "Needs Work", 0.6F);
}

TEST(Quality, aRatingOutsideTheScaleCountsByItsRatio) {
    expectQuality(11, 10, "Good", 0.4F);
    expectQuality(-3, 10, "Needs Work", 0.6F);
    expectQuality(-3, -3, "Good", 0.4F);
    expectQuality(std::numeric_limits<qint64>::max(), 1, "Good", 0.4F);
}

TEST(PriorityColor, caseDoesNotCountAndAnUnknownOneLooksLikeLow) {
    const auto level = [](const char* priority) { return priorityColor(QLatin1String(priority)).lightnessF(); };
    EXPECT_EQ(priorityColor(QStringLiteral("low")), QColor::fromRgbF(0.6F, 0.6F, 0.6F));
    EXPECT_EQ(priorityColor(QStringLiteral("medium")), QColor::fromRgbF(0.5F, 0.5F, 0.5F));
    EXPECT_EQ(priorityColor(QStringLiteral("high")), QColor::fromRgbF(0.4F, 0.4F, 0.4F));
    EXPECT_EQ(level("HIGH"), level("high"));
    EXPECT_EQ(level("Medium"), level("medium"));
    for (const char* unknown : {"", "urgent", "high ", "hig"})
        EXPECT_EQ(level(unknown), level("low")) << unknown;
}

} // namespace Quillstacks
