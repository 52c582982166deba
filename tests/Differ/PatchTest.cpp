#include "Support.h"

#include <forward_list>
#include <list>
#include <numeric>

namespace {

using namespace DifferTest;
using Step = Patch<char>;
using E = Diff::Element;

static_assert(patch("abc"sv, "abc"sv).empty());
static_assert(patch("abc"sv, "abd"sv) == std::vector{Step::deletion(2), Step::insertion(2, 'd')});

const auto deletionsFirst = [](const auto& a, const auto& b) { return a.isDeletion() && b.isInsertion(); };
const auto insertionsFirst = [](const auto& a, const auto& b) { return a.isInsertion() && b.isDeletion(); };

TEST(Patch, ofTwoEqualCollectionsIsEmpty) {
    EXPECT_TRUE(patch("abc"sv, "abc"sv).empty());
    EXPECT_TRUE(patch(""sv, ""sv).empty());
    EXPECT_TRUE(patch("abc"sv, "abc"sv, deletionsFirst).empty());
}

TEST(Patch, correctsEachPositionForTheStepsBeforeIt) {
    EXPECT_EQ(text(patch("abcdef"sv, "uvw"sv)), "D(0) D(0) D(0) D(0) D(0) D(0) I(0) I(1) I(2)");
    EXPECT_EQ(text(patch("kitten"sv, "sitting"sv)), "D(0) I(0) D(4) I(4) I(6)");
}

TEST(Patch, carriesTheElementsToInsert) {
    const auto steps = patch("ac"sv, "abcd"sv);
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_EQ(steps[0], Step::insertion(1, 'b'));
    EXPECT_EQ(steps[1], Step::insertion(3, 'd'));
    EXPECT_EQ(steps[1].element(), 'd');
    EXPECT_NE(steps[1], Step::insertion(3, 'e'));
    EXPECT_NE(steps[1], Step::deletion(3));
}

TEST(Patch, fromAReadyDiff) {
    const std::vector<std::string> source{"a", "b"};
    const std::vector<std::string> target{"b", "c"};
    const Diff ready = diff(source, target);
    EXPECT_EQ(patch(ready, source, target), patch(source, target));
    EXPECT_EQ(patch(ready, source, target, insertionsFirst), patch(source, target, insertionsFirst));
}

TEST(Patch, withDeletionsFirst) {
    EXPECT_EQ(text(patch("kitten"sv, "sitting"sv)), "D(0) I(0) D(4) I(4) I(6)");
    EXPECT_EQ(text(patch("kitten"sv, "sitting"sv, deletionsFirst)), "D(0) D(3) I(0) I(4) I(6)");
}

TEST(Patch, withInsertionsFirst) {
    EXPECT_EQ(text(patch("kitten"sv, "sitting"sv, insertionsFirst)), "I(1) I(6) I(8) D(0) D(4)");
}

TEST(Patch, aPredicateThatTellsNothingApartKeepsPathOrder) {
    const auto never = [](const auto&, const auto&) { return false; };
    EXPECT_EQ(patch("kitten"sv, "sitting"sv, never), patch("kitten"sv, "sitting"sv));
}

TEST(Patch, aLowStepThatHidesAHighOneStillCorrectsIt) {
    // The order third, first, second: the second step meets the first on its way back, with the third behind it.
    const auto thirdFirstSecond = [](const E& a, const E& b) { return (a.at() + 1) % 3 < (b.at() + 1) % 3; };
    EXPECT_EQ(text(patch("abcd"sv, "d"sv)), "D(0) D(0) D(0)");
    EXPECT_EQ(text(patch("abcd"sv, "d"sv, thirdFirstSecond)), "D(2) D(0) D(0)");
}

/// The patch with each position counted anew.
std::vector<Step> patchByHand(const std::string& source, const std::string& target, auto isBefore) {
    const Diff plain = diff(source, target);
    std::vector<Index> order(plain.size());
    std::iota(order.begin(), order.end(), Index{0});
    std::ranges::stable_sort(order, [&](Index a, Index b) { return isBefore(plain[a], plain[b]); });
    SequenceOnItsWay sequence(source, target);
    std::vector<Step> steps;
    for (const Index index : order) {
        const E element = plain[index];
        const Index position = sequence.apply(index);
        steps.push_back(element.isDeletion()
                            ? Step::deletion(position)
                            : Step::insertion(position, target[static_cast<std::size_t>(element.at())]));
    }
    return steps;
}

TEST(PatchProperties, positionsAreThoseOfTheMomentInAnyOrder) {
    Random random(28);
    for (int round = 0; round < 1000; ++round) {
        const int letters = 1 + upTo(random, 8);
        const std::string source = randomWord(random, 30, letters);
        const std::string target = edited(random, source, upTo(random, 20), letters);
        const auto never = [](const E&, const E&) { return false; };
        const auto highestFirst = [](const E& a, const E& b) { return a.at() > b.at(); };
        const int modulus = 2 + upTo(random, 5);
        const auto byRest = [&](const E& a, const E& b) { return a.at() % modulus < b.at() % modulus; };
        ASSERT_EQ(patch(source, target), patchByHand(source, target, never)) << source << ' ' << target;
        ASSERT_EQ(patch(source, target, deletionsFirst), patchByHand(source, target, deletionsFirst));
        ASSERT_EQ(patch(source, target, insertionsFirst), patchByHand(source, target, insertionsFirst));
        ASSERT_EQ(patch(source, target, highestFirst), patchByHand(source, target, highestFirst));
        ASSERT_EQ(patch(source, target, byRest), patchByHand(source, target, byRest)) << source << ' ' << target;
    }
}

TEST(PatchProperties, thePatchBackUndoesIt) {
    Random random(29);
    for (int round = 0; round < 500; ++round) {
        const std::string source = randomWord(random, 40, 6);
        const std::string target = edited(random, source, upTo(random, 15), 6);
        const std::string there = applied(patch(source, target, insertionsFirst), source);
        ASSERT_EQ(applied(patch(target, source, deletionsFirst), there), source);
        ASSERT_EQ(patch(source, target).size(), patch(target, source).size());
    }
}

TEST(PatchProperties, aPatchOfAPatchedSequenceIsEmpty) {
    Random random(30);
    for (int round = 0; round < 300; ++round) {
        const std::string source = randomWord(random, 40, 6);
        const std::string target = randomWord(random, 40, 6);
        ASSERT_TRUE(patch(applied(patch(source, target), source), target).empty());
    }
}

/// Every order there is of up to six steps.
TEST(PatchProperties, applyingItInEveryOrderGivesTheTarget) {
    for (const auto& [source, target] :
         {std::pair{"abcabba"sv, "cbabac"sv}, {"abc"sv, "xyz"sv}, {"kitten"sv, "sitting"sv}}) {
        const Diff ready = diff(source, target);
        std::vector<std::size_t> ranks(ready.size());
        std::iota(ranks.begin(), ranks.end(), 0U);
        do {
            const auto rank = [&](const E& element) {
                return ranks[static_cast<std::size_t>(std::ranges::find(ready.elements, element) -
                                                      ready.elements.begin())];
            };
            const auto steps = patch(source, target, [&](const E& a, const E& b) { return rank(a) < rank(b); });
            ASSERT_EQ(applied(steps, std::string(source)), target);
            for (std::size_t place = 0; place < ready.size(); ++place) {
                const Step& step = steps[ranks[place]];
                ASSERT_EQ(step.isInsertion(), ready.elements[place].isInsertion());
            }
        } while (std::ranges::next_permutation(ranks).found);
    }
}

TEST(PatchProperties, applyingItInAnyOrderGivesTheTarget) {
    Random random(11);
    for (int round = 0; round < 1500; ++round) {
        const int letters = 1 + upTo(random, 8);
        const std::string source = randomWord(random, 30, letters);
        const std::string target = randomWord(random, 30, letters);
        ASSERT_EQ(applied(patch(source, target), source), target);
        ASSERT_EQ(applied(patch(source, target, deletionsFirst), source), target);
        ASSERT_EQ(applied(patch(source, target, insertionsFirst), source), target);
        const auto key = static_cast<std::size_t>(upTo(random, 1 << 20));
        const auto shuffled = [key](const E& a, const E& b) {
            const auto rank = [key](const E& e) {
                return (static_cast<std::size_t>(e.at()) * 2 + (e.isInsertion() ? 1 : 0) + key) * 2654435761U % 1009;
            };
            return rank(a) < rank(b);
        };
        ASSERT_EQ(applied(patch(source, target, shuffled), source), target) << source << ' ' << target << ' ' << key;
    }
}

TEST(PatchProperties, answersThatContradictEachOtherAreSafe) {
    Random random(12);
    for (int round = 0; round < 500; ++round) {
        const std::string source = randomWord(random, 60, 6);
        const std::string target = randomWord(random, 60, 6);
        const auto always = [](const E&, const E&) { return true; };
        const auto whim = [&](const E&, const E&) { return upTo(random, 1) == 1; };
        ASSERT_EQ(applied(patch(source, target, always), source), target);
        ASSERT_EQ(applied(patch(source, target, whim), source), target);
    }
}

TEST(PatchProperties, forAllPairsOfShortTexts) {
    const auto words = allWords(4, 3);
    for (const auto& source : words) {
        for (const auto& target : words) {
            ASSERT_EQ(applied(patch(source, target), source), target);
            ASSERT_EQ(applied(patch(source, target, insertionsFirst), source), target);
        }
    }
}

TEST(Patch, aLongOneInReverseOrder) {
    const std::string source(1000, 'a');
    const std::string target(1000, 'b');
    const auto reversed = [](const E& a, const E& b) {
        return std::pair(a.isInsertion(), a.at()) > std::pair(b.isInsertion(), b.at());
    };
    EXPECT_EQ(applied(patch(source, target, reversed), source), target);
}

TEST(Patch, canBeAppliedInPart) {
    // Whatever order is asked for: what is not done yet changes nothing.
    const auto steps = patch("kitten"sv, "sitting"sv, deletionsFirst);
    EXPECT_EQ(applied(std::vector(steps.begin(), steps.begin() + 2), std::string("kitten")), "ittn");
    EXPECT_EQ(applied(std::vector(steps.begin(), steps.begin() + 3), std::string("kitten")), "sittn");
}

TEST(Patch, anyForwardRangeWillDo) {
    const std::list<std::string> source{"a", "b"};
    const std::forward_list<std::string> target{"b", "c"};
    const auto steps = patch(source, target);
    ASSERT_EQ(text(steps), "D(0) I(1)");
    EXPECT_EQ(steps[1].element(), "c");
    EXPECT_EQ(text(patch(source, target, insertionsFirst)), "I(2) D(0)");
}

TEST(Patch, theStepsOwnWhatTheyInsert) {
    std::vector<Patch<std::string>> steps;
    {
        const std::vector<std::string> target{"a text too long to be kept within the string itself"};
        steps = patch(std::vector<std::string>{}, target);
    }
    ASSERT_EQ(steps.size(), 1U);
    EXPECT_EQ(steps[0].element(), "a text too long to be kept within the string itself");
}

TEST(PatchDeathTest, aReadyDiffOfOtherSequencesEndsTheProcess) {
    const Diff beyond{E::insertAt(3)};
    EXPECT_DEATH(static_cast<void>(patch(beyond, "abc"sv, "abd"sv)), "Fatal error: file Differ/Diff");
    EXPECT_DEATH(static_cast<void>(patch(Diff{E::insertAt(-1)}, "abc"sv, "abd"sv)), "Fatal error: file Differ/Diff");
    EXPECT_DEATH(static_cast<void>(patch(beyond, "abc"sv, "abd"sv, deletionsFirst)), "Fatal error");
}

TEST(PatchDeathTest, aStepThatPassesItselfIsACycleAndEndsTheProcess) {
    SortedPatchElement<char> first{Step::deletion(0), 1, 4};
    const SortedPatchElement<char> second{Step::deletion(0), 0, 4};
    EXPECT_DEATH(detail::shiftPair(first, second), "Fatal error: file Differ/GenericPatch");
}

TEST(StableOrder, sortsAndKeepsTheOrderOfEqualOnes) {
    const auto isBefore = [](int a, int b) { return a / 10 < b / 10; };
    EXPECT_EQ(detail::orderOf(std::vector{31, 11, 32, 12, 21, 13, 1}, isBefore),
              (std::vector<Index>{6, 1, 3, 5, 4, 0, 2}));
    EXPECT_TRUE(detail::orderOf(std::vector<int>{}, isBefore).empty());
}

} // namespace
