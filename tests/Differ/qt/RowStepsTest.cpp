#include "Differ/qt/RowSteps.h"
#include "Differ/Support.h"

namespace {

using namespace DifferTest;
using Kind = RowStep::Kind;

std::vector<RowStep> between(std::string_view source, std::string_view target) {
    return rowSteps(BatchUpdate(extendedDiff(source, target)), static_cast<Index>(source.size()));
}

TEST(RowSteps, neighboursGoInOneStepFromTheBottomUp) {
    EXPECT_EQ(between("abcdef", "ad"), (std::vector<RowStep>{{Kind::remove, 4, 5}, {Kind::remove, 1, 2}}));
}

TEST(RowSteps, neighboursComeInOneStepFromTheTopDown) {
    EXPECT_EQ(between("ad", "abcdef"), (std::vector<RowStep>{{Kind::insert, 1, 2}, {Kind::insert, 4, 5}}));
}

TEST(RowSteps, aMoveNamesWhereTheRowIsInTheEnd) {
    EXPECT_EQ(between("abcd", "bcda"), (std::vector<RowStep>{{Kind::move, 0, 3}}));
    EXPECT_EQ(between("abcd", "dabc"), (std::vector<RowStep>{{Kind::move, 3, 0}}));
}

TEST(RowSteps, aMoveThatOnlyFollowsFromOtherChangesIsNone) {
    const BatchUpdate update(extendedDiff("aab"sv, "ccbaa"sv)); // I(0) I(1) M(2,2): the b goes up, past nothing else
    EXPECT_EQ(rowSteps(update, 3), (std::vector<RowStep>{{Kind::move, 2, 0}, {Kind::insert, 0, 1}}));
    EXPECT_TRUE(between("abc", "abc").empty());
}

TEST(RowSteps, ofAnEmptyBatchAreNone) {
    EXPECT_TRUE(rowSteps(BatchUpdate{}, 0).empty());
    EXPECT_TRUE(rowSteps(BatchUpdate{}, 5).empty());
}

TEST(RowSteps, halfOfAHundredThousandRowsGoAtOnce) {
    std::vector<int> source(100000);
    std::vector<int> target;
    for (int row = 0; row < 100000; ++row) {
        source[static_cast<std::size_t>(row)] = row;
        if (row % 4 < 2) {
            target.push_back(row);
        }
    }
    const auto steps = rowSteps(BatchUpdate(extendedDiff(source, target)), 100000);
    ASSERT_EQ(steps.size(), 25000U);
    EXPECT_EQ(steps.front(), (RowStep{Kind::remove, 99998, 99999}));
    EXPECT_EQ(steps.back(), (RowStep{Kind::remove, 2, 3}));
}

TEST(RowStepsDeathTest, aBatchForOtherRowsEndsTheProcess) {
    BatchUpdate beyond;
    beyond.deletions = {{3, 0}};
    EXPECT_DEATH(static_cast<void>(rowSteps(beyond, 3)), "Fatal error: file Differ/RowSteps");
    BatchUpdate twice;
    twice.deletions = {{1, 0}};
    twice.moves = {{{1, 0}, {0, 0}}};
    EXPECT_DEATH(static_cast<void>(rowSteps(twice, 3)), "Fatal error: file Differ/RowSteps");
    BatchUpdate gap;
    gap.insertions = {{5, 0}};
    EXPECT_DEATH(static_cast<void>(rowSteps(gap, 3)), "Fatal error: file Differ/RowSteps");
    BatchUpdate before;
    before.moves = {{{0, 0}, {-1, 0}}};
    EXPECT_DEATH(static_cast<void>(rowSteps(before, 3)), "Fatal error: file Differ/RowSteps");
}

TEST(RowSteps, appliedOneAfterTheOtherGiveTheTarget) {
    Random random(15);
    for (int round = 0; round < 2000; ++round) {
        const int letters = 1 + upTo(random, 12);
        const std::string source = randomWord(random, 25, letters);
        const std::string target = edited(random, source, upTo(random, 20), letters);
        std::string rows = source;
        for (const RowStep& step : between(source, target)) {
            const auto first = static_cast<std::size_t>(step.first);
            const auto last = static_cast<std::size_t>(step.last);
            switch (step.kind) {
            case Kind::remove:
                ASSERT_LT(last, rows.size());
                rows.erase(first, last - first + 1);
                break;
            case Kind::insert:
                ASSERT_LE(first, rows.size());
                rows.insert(first, target, first, last - first + 1);
                break;
            case Kind::move: {
                const char moved = rows.at(first);
                rows.erase(first, 1);
                ASSERT_LE(last, rows.size());
                rows.insert(last, 1, moved);
                break;
            }
            }
        }
        ASSERT_EQ(rows, target) << source;
    }
}

} // namespace
