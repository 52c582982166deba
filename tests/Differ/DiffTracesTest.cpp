#include "Support.h"

namespace {

using namespace DifferTest;
using Traces = std::vector<Trace>;

// At compile time too.
static_assert(outputDiffPathTraces(""sv, ""sv).empty());
static_assert(diffTraces("x"sv, "x"sv) == Traces{{{0, 0}, {1, 1}, 0}});

/// The search once more, told the long way: a map for what each diagonal reached.
Traces searchByHand(const std::string& source, const std::string& target) {
    const auto N = static_cast<Index>(source.size());
    const auto M = static_cast<Index>(target.size());
    std::map<Index, Index> V;
    for (Index k = -M; k <= N; ++k) {
        V[k] = -1;
    }
    V[1] = 0;
    Traces traces;
    for (Index D = 0; D <= N + M; ++D) {
        for (Index k = -D; k <= D; k += 2) {
            if (!V.contains(k)) {
                continue;
            }
            bool isDown = k == -D;
            if (!isDown && k != D && V.contains(k - 1) && V.contains(k + 1)) {
                isDown = V[k - 1] < V[k + 1];
            }
            Point from;
            if (isDown) {
                from.x = V.contains(k + 1) ? V[k + 1] : -1;
                from.y = from.x - k - 1;
            } else {
                from.x = V.contains(k - 1) ? V[k - 1] : 0;
                from.y = from.x + 1 - k;
            }
            Point to{from.x + (isDown ? 0 : 1), from.y + (isDown ? 1 : 0)};
            if (to.x > N || to.y > M) {
                continue;
            }
            traces.push_back({from, to, D});
            while (to.x >= 0 && to.x < N && to.y >= 0 && to.y < M &&
                   source[static_cast<std::size_t>(to.x)] == target[static_cast<std::size_t>(to.y)]) {
                const Point next{to.x + 1, to.y + 1};
                traces.push_back({to, next, D});
                to = next;
            }
            V[k] = to.x;
            if (to == Point{N, M}) {
                return traces;
            }
        }
    }
    return {};
}

TEST(OutputDiffPathTraces, twoEmptySequencesGiveNone) {
    EXPECT_EQ(outputDiffPathTraces(""sv, ""sv), Traces{});
}

TEST(OutputDiffPathTraces, anEmptySourceGivesAllInsertionsAtNoDifference) {
    EXPECT_EQ(outputDiffPathTraces(""sv, "ab"sv), (Traces{{{0, 0}, {0, 1}, 0}, {{0, 1}, {0, 2}, 0}}));
}

TEST(OutputDiffPathTraces, anEmptyTargetGivesAllDeletionsAtNoDifference) {
    EXPECT_EQ(outputDiffPathTraces("ab"sv, ""sv), (Traces{{{0, 0}, {1, 0}, 0}, {{1, 0}, {2, 0}, 0}}));
}

TEST(OutputDiffPathTraces, startAtTheVirtualPointAboveTheOrigin) {
    EXPECT_EQ(outputDiffPathTraces("x"sv, "x"sv), (Traces{{{0, -1}, {0, 0}, 0}, {{0, 0}, {1, 1}, 0}}));
}

TEST(OutputDiffPathTraces, ofOneReplacedElement) {
    EXPECT_EQ(outputDiffPathTraces("a"sv, "b"sv),
              (Traces{{{0, -1}, {0, 0}, 0}, {{0, 0}, {0, 1}, 1}, {{0, 0}, {1, 0}, 1}, {{1, 0}, {1, 1}, 2}}));
}

TEST(OutputDiffPathTraces, runFromTheLowestDiagonalUpwardAndTakeMatchesAtOnce) {
    EXPECT_EQ(outputDiffPathTraces("ab"sv, "ba"sv), (Traces{{{0, -1}, {0, 0}, 0},
                                                            {{0, 0}, {0, 1}, 1},
                                                            {{0, 1}, {1, 2}, 1},
                                                            {{0, 0}, {1, 0}, 1},
                                                            {{1, 0}, {2, 1}, 1},
                                                            {{2, 1}, {2, 2}, 2}}));
}

TEST(OutputDiffPathTraces, areThoseOfTheSearchToldTheLongWay) {
    const auto words = allWords(4, 3);
    for (const auto& source : words) {
        for (const auto& target : words) {
            if (!source.empty() && !target.empty()) {
                ASSERT_EQ(outputDiffPathTraces(source, target), searchByHand(source, target))
                    << source << ' ' << target;
            }
        }
    }
    Random random(1);
    for (int round = 0; round < 200; ++round) {
        const std::string source = 'a' + randomWord(random, 80, 4);
        const std::string target = 'b' + randomWord(random, 80, 4);
        ASSERT_EQ(outputDiffPathTraces(source, target), searchByHand(source, target)) << source << ' ' << target;
    }
}

TEST(OutputDiffPathTraces, everyMatchIsOfEqualElementsAndEveryStepOfOne) {
    Random random(2);
    for (int round = 0; round < 300; ++round) {
        const std::string source = 'a' + randomWord(random, 40, 3);
        const std::string target = 'b' + randomWord(random, 40, 3);
        for (const Trace& trace : outputDiffPathTraces(source, target)) {
            const Point step{trace.to.x - trace.from.x, trace.to.y - trace.from.y};
            ASSERT_TRUE(step == (Point{1, 1}) || step == (Point{0, 1}) || step == (Point{1, 0}));
            if (trace.isMatch()) {
                ASSERT_EQ(source[static_cast<std::size_t>(trace.from.x)],
                          target[static_cast<std::size_t>(trace.from.y)]);
            }
        }
    }
}

TEST(DiffTraces, twoEmptySequencesGiveNone) {
    EXPECT_EQ(diffTraces(""sv, ""sv), Traces{});
}

TEST(DiffTraces, ofOneEmptySideAreAllTraces) {
    EXPECT_EQ(diffTraces(""sv, "abc"sv), outputDiffPathTraces(""sv, "abc"sv));
    EXPECT_EQ(diffTraces("abc"sv, ""sv), outputDiffPathTraces("abc"sv, ""sv));
}

TEST(DiffTraces, includeMatchesAndLeaveOutTheVirtualStep) {
    EXPECT_EQ(diffTraces("ab"sv, "ab"sv), (Traces{{{0, 0}, {1, 1}, 0}, {{1, 1}, {2, 2}, 0}}));
    EXPECT_EQ(diffTraces("ab"sv, "b"sv), (Traces{{{0, 0}, {1, 0}, 1}, {{1, 0}, {2, 1}, 1}}));
}

TEST(DiffTraces, aPathOfOneTraceIsThatTrace) {
    EXPECT_EQ(diffTraces("x"sv, "x"sv), (Traces{{{0, 0}, {1, 1}, 0}}));
    EXPECT_EQ(diffTraces(""sv, "x"sv), (Traces{{{0, 0}, {0, 1}, 0}}));
}

TEST(DiffTraces, carryTheNumberOfDifferencesOfTheirStep) {
    EXPECT_EQ(diffTraces("a"sv, "b"sv), (Traces{{{0, 0}, {1, 0}, 1}, {{1, 0}, {1, 1}, 2}}));
}

TEST(DiffTraces, takeAPredicate) {
    const auto isSameLetter = [](char a, char b) { return std::tolower(a) == std::tolower(b); };
    EXPECT_EQ(diffTraces("A"sv, "a"sv, isSameLetter), (Traces{{{0, 0}, {1, 1}, 0}}));
    EXPECT_EQ(outputDiffPathTraces("A"sv, "a"sv, isSameLetter).size(), 2U);
}

TEST(DiffTraces, runWithoutAGapFromTheOriginToTheEndOfBoth) {
    for (const auto& source : allWords(5, 2)) {
        for (const auto& target : allWords(5, 2)) {
            const Traces path = diffTraces(source, target);
            Point at;
            Index differences = 0;
            for (const Trace& trace : path) {
                ASSERT_EQ(trace.from, at);
                at = trace.to;
                differences += trace.isMatch() ? 0 : 1;
                if (!source.empty() && !target.empty()) {
                    ASSERT_EQ(trace.D, differences);
                }
            }
            ASSERT_EQ(at, (Point{static_cast<Index>(source.size()), static_cast<Index>(target.size())}));
            ASSERT_EQ(static_cast<std::size_t>(differences), distance(source, target));
        }
    }
}

} // namespace
