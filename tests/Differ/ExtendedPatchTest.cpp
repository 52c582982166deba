#include "Support.h"

#include <numeric>

namespace {

using namespace DifferTest;
using ExtendedStep = ExtendedPatch<char>;
using XE = ExtendedDiff::Element;
using Kind = XE::Kind;

const auto movesFirst = [](const XE& a, const XE& b) { return a.kind() == Kind::move && b.kind() != Kind::move; };
const auto movesLast = [](const XE& a, const XE& b) { return a.kind() != Kind::move && b.kind() == Kind::move; };

TEST(ExtendedPatch, ofTwoEqualCollectionsIsEmpty) {
    EXPECT_TRUE(extendedPatch("abc"sv, "abc"sv).empty());
    EXPECT_TRUE(extendedPatch(""sv, ""sv, movesFirst).empty());
}

TEST(ExtendedPatch, aMoveIsOneStep) {
    EXPECT_EQ(extendedPatch("abc"sv, "cab"sv), (std::vector{ExtendedStep::move(2, 0)}));
    EXPECT_EQ(extendedPatch("ab"sv, "ba"sv), (std::vector{ExtendedStep::move(0, 1)}));
}

TEST(ExtendedPatch, insertionsAndDeletionsAreThoseOfAPlainPatch) {
    EXPECT_EQ(extendedPatch("abc"sv, "abd"sv),
              (std::vector{ExtendedStep::deletion(2), ExtendedStep::insertion(2, 'd')}));
    EXPECT_EQ(extendedPatch("abc"sv, "abd"sv)[1].element(), 'd');
}

TEST(ExtendedPatch, debugTextsFollowThoseOfTheDiffElements) {
    EXPECT_EQ(ExtendedStep::insertion(1, 'x').debugText(), "I(1)");
    EXPECT_EQ(ExtendedStep::deletion(2).debugText(), "D(2)");
    EXPECT_EQ(ExtendedStep::move(3, 4).debugText(), "M(3,4)");
}

TEST(ExtendedPatch, stepsFollowTheDiffsOwnOrderOrTheOneAskedFor) {
    // D(0) M(1,1) D(5) I(5)
    EXPECT_EQ(text(extendedPatch("abcabba"sv, "cbabac"sv)), "D(0) M(0,1) D(4) I(5)");
    EXPECT_EQ(text(extendedPatch("abcabba"sv, "cbabac"sv, movesFirst)), "M(1,2) D(0) D(4) I(5)");
    EXPECT_EQ(text(extendedPatch("abcabba"sv, "cbabac"sv, movesLast)), "D(0) D(4) I(5) M(0,1)");
}

TEST(ExtendedPatch, fromAReadyDiff) {
    const auto ready = extendedDiff("abcd"sv, "dxab"sv);
    EXPECT_EQ(extendedPatch(ready, "abcd"sv, "dxab"sv), extendedPatch("abcd"sv, "dxab"sv));
    EXPECT_EQ(extendedPatch(ready, "abcd"sv, "dxab"sv, movesLast), extendedPatch("abcd"sv, "dxab"sv, movesLast));
}

TEST(ExtendedPatch, aMoveWhoseInsertionIsNamedFirstIsAppliedAsAnyOther) {
    // The oddity of the pair that stands at one position.
    EXPECT_EQ(text(extendedDiff("aab"sv, "ccbaa"sv)), "I(0) I(1) M(2,2)");
    EXPECT_EQ(applied(extendedPatch("aab"sv, "ccbaa"sv), std::string("aab")), "ccbaa");
    EXPECT_EQ(applied(extendedPatch("aab"sv, "ccbaa"sv, movesFirst), std::string("aab")), "ccbaa");
}

/// The patch with each position counted anew; a move takes out, and then puts in.
std::vector<ExtendedStep> extendedPatchByHand(const std::string& source, const std::string& target, auto isBefore) {
    const ExtendedDiff extended = extendedDiff(source, target);
    std::vector<Index> order(extended.size());
    std::iota(order.begin(), order.end(), Index{0});
    std::ranges::stable_sort(order, [&](Index a, Index b) { return isBefore(extended[a], extended[b]); });
    SequenceOnItsWay sequence(source, target);
    std::vector<ExtendedStep> steps;
    for (const Index place : order) {
        const XE element = extended[place];
        const auto movesBefore = std::count_if(extended.begin(), extended.begin() + place,
                                               [](const XE& earlier) { return earlier.kind() == Kind::move; });
        const auto entry = extended.sourceIndex.begin() + place + movesBefore;
        if (element.kind() == Kind::deletion) {
            steps.push_back(ExtendedStep::deletion(sequence.apply(*entry)));
        } else if (element.kind() == Kind::insertion) {
            steps.push_back(
                ExtendedStep::insertion(sequence.apply(*entry), target[static_cast<std::size_t>(element.at())]));
        } else {
            const bool isDeletionFirst = extended.source[*entry].isDeletion();
            const Index from = sequence.apply(isDeletionFirst ? *entry : *(entry + 1));
            steps.push_back(ExtendedStep::move(from, sequence.apply(isDeletionFirst ? *(entry + 1) : *entry)));
        }
    }
    return steps;
}

TEST(ExtendedPatchProperties, positionsAreThoseOfTheMomentInAnyOrder) {
    Random random(31);
    for (int round = 0; round < 1000; ++round) {
        const int letters = 1 + upTo(random, 12);
        const std::string source = randomWord(random, 30, letters);
        const std::string target = edited(random, source, upTo(random, 20), letters);
        const auto never = [](const XE&, const XE&) { return false; };
        const auto highestFirst = [](const XE& a, const XE& b) { return a.to() > b.to(); };
        ASSERT_EQ(extendedPatch(source, target), extendedPatchByHand(source, target, never)) << source << ' ' << target;
        ASSERT_EQ(extendedPatch(source, target, movesFirst), extendedPatchByHand(source, target, movesFirst));
        ASSERT_EQ(extendedPatch(source, target, movesLast), extendedPatchByHand(source, target, movesLast));
        ASSERT_EQ(extendedPatch(source, target, highestFirst), extendedPatchByHand(source, target, highestFirst));
    }
}

TEST(ExtendedPatchProperties, thePatchBackUndoesIt) {
    Random random(32);
    for (int round = 0; round < 500; ++round) {
        const std::string source = randomWord(random, 40, 6);
        const std::string target = edited(random, source, upTo(random, 15), 6);
        const std::string there = applied(extendedPatch(source, target, movesLast), source);
        ASSERT_EQ(applied(extendedPatch(target, source, movesFirst), there), source);
    }
}

TEST(ExtendedPatch, ofAReversedListKeepsOneElementAndMovesTheOthers) {
    std::vector<int> source(200);
    std::iota(source.begin(), source.end(), 0);
    const std::vector<int> target(source.rbegin(), source.rend());
    const auto steps = extendedPatch(source, target);
    EXPECT_EQ(steps.size(), 199U);
    EXPECT_TRUE(
        std::ranges::all_of(steps, [](const auto& step) { return step.kind() == ExtendedPatch<int>::Kind::move; }));
    EXPECT_EQ(applied(steps, source), target);
}

TEST(ExtendedPatchDeathTest, aReadyDiffOfOtherSequencesEndsTheProcess) {
    const ExtendedDiff ready = extendedDiff("ab"sv, "abcd"sv);
    EXPECT_DEATH(static_cast<void>(extendedPatch(ready, "ab"sv, "abc"sv)), "Fatal error: file Differ/Diff");
}

TEST(BoxedDiffAndPatchElement, carriesADiffElementWithItsOneOrTwoSteps) {
    using Box = BoxedDiffAndPatchElement<char>;
    const SortedPatchElement<char> deletion{Patch<char>::deletion(1), 0, 0};
    const SortedPatchElement<char> insertion{Patch<char>::insertion(2, 'x'), 1, 1};
    const Box move = Box::move(XE::move(1, 2), deletion, insertion);
    EXPECT_TRUE(move.isMove());
    EXPECT_EQ(move.diffElement(), XE::move(1, 2));
    EXPECT_EQ(move.deletion(), deletion);
    EXPECT_EQ(move.insertion(), insertion);
    const Box single = Box::single(XE::deleteAt(1), deletion);
    EXPECT_FALSE(single.isMove());
    EXPECT_EQ(single.diffElement(), XE::deleteAt(1));
    EXPECT_EQ(single.patchElement(), deletion);
}

TEST(ExtendedPatchProperties, applyingItInEveryOrderGivesTheTarget) {
    for (const auto& [source, target] :
         {std::pair{"abcabba"sv, "cbabac"sv}, {"abcdef"sv, "fxdbya"sv}, {"aab"sv, "ccbaa"sv}, {"abcd"sv, "dcba"sv}}) {
        const ExtendedDiff ready = extendedDiff(source, target);
        ASSERT_LE(ready.size(), 7U);
        std::vector<std::size_t> ranks(ready.size());
        std::iota(ranks.begin(), ranks.end(), 0U);
        do {
            const auto rank = [&](const XE& element) {
                return ranks[static_cast<std::size_t>(std::ranges::find(ready.elements, element) -
                                                      ready.elements.begin())];
            };
            const auto isBefore = [&](const XE& a, const XE& b) { return rank(a) < rank(b); };
            ASSERT_EQ(applied(extendedPatch(source, target, isBefore), std::string(source)), target);
        } while (std::ranges::next_permutation(ranks).found);
    }
}

TEST(ExtendedPatchProperties, applyingItInAnyOrderGivesTheTarget) {
    Random random(13);
    for (int round = 0; round < 1500; ++round) {
        const int letters = 1 + upTo(random, 12);
        const std::string source = randomWord(random, 30, letters);
        const std::string target = edited(random, source, upTo(random, 20), letters);
        const auto whim = [&](const XE&, const XE&) { return upTo(random, 1) == 1; };
        ASSERT_EQ(applied(extendedPatch(source, target), source), target) << source << ' ' << target;
        ASSERT_EQ(applied(extendedPatch(source, target, movesFirst), source), target) << source << ' ' << target;
        ASSERT_EQ(applied(extendedPatch(source, target, movesLast), source), target) << source << ' ' << target;
        ASSERT_EQ(applied(extendedPatch(source, target, whim), source), target) << source << ' ' << target;
    }
}

TEST(ExtendedPatchProperties, forAllPairsOfShortTexts) {
    const auto words = allWords(4, 3);
    for (const auto& source : words) {
        for (const auto& target : words) {
            ASSERT_EQ(applied(extendedPatch(source, target), source), target) << source << ' ' << target;
            ASSERT_EQ(applied(extendedPatch(source, target, movesLast), source), target) << source << ' ' << target;
        }
    }
}

} // namespace
