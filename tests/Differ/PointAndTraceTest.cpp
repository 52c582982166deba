#include "Support.h"

#include <unordered_set>

namespace {

using namespace DifferTest;

static_assert(Point{1, 2} == Point{1, 2} && Point{1, 2} != Point{2, 1});
static_assert(Trace{{0, 0}, {1, 1}, 0}.isMatch());
static_assert(Trace{{0, 0}, {0, 1}, 0}.isInsertion());
static_assert(Trace{{0, 0}, {1, 0}, 0}.isDeletion());

TEST(Point, equalityAndHashUseBothFields) {
    std::unordered_set<Point> points;
    for (Index x = -20; x < 20; ++x) {
        for (Index y = -20; y < 20; ++y) {
            EXPECT_TRUE(points.insert({x, y}).second);
            EXPECT_FALSE(points.insert({x, y}).second);
        }
    }
    EXPECT_EQ(points.size(), 1600U);
    EXPECT_NE(std::hash<Point>{}({1, 2}), std::hash<Point>{}({2, 1}));
    EXPECT_NE(std::hash<Point>{}({1, 2}), std::hash<Point>{}({1, 3}));
}

TEST(Trace, equalityAndHashUseAllFieldsTheDifferencesIncluded) {
    const Trace trace{{1, 2}, {1, 3}, 4};
    const std::vector<Trace> others{
        {{0, 2}, {1, 3}, 4}, {{1, 1}, {1, 3}, 4}, {{1, 2}, {2, 3}, 4}, {{1, 2}, {1, 2}, 4}, {{1, 2}, {1, 3}, 5}};
    for (const Trace& other : others) {
        EXPECT_NE(trace, other);
        EXPECT_NE(std::hash<Trace>{}(trace), std::hash<Trace>{}(other));
    }
    EXPECT_EQ(trace, (Trace{{1, 2}, {1, 3}, 4}));
    EXPECT_EQ(std::hash<Trace>{}(trace), std::hash<Trace>{}({{1, 2}, {1, 3}, 4}));
}

TEST(Trace, hasExactlyOneOfThreeShapes) {
    for (Index x = -1; x < 3; ++x) {
        for (Index y = -1; y < 3; ++y) {
            const Trace trace{{0, 0}, {x, y}, 1};
            EXPECT_EQ(trace.isMatch() + trace.isInsertion() + trace.isDeletion(), 1);
            EXPECT_EQ(trace.isMatch(), x == 1 && y == 1);
        }
    }
}

TEST(Trace, aStepThatIsNoMatchIsAnInsertionWhereTheTargetGoesOn) {
    EXPECT_TRUE((Trace{{4, 0}, {4, 1}, 0}).isInsertion());
    EXPECT_TRUE((Trace{{0, 0}, {2, 2}, 0}).isInsertion());
    EXPECT_TRUE((Trace{{4, 1}, {5, 1}, 0}).isDeletion());
    EXPECT_TRUE((Trace{{4, 1}, {4, 1}, 0}).isDeletion());
}

} // namespace
