#include "Support.h"

namespace {

using namespace DifferTest;
using XE = ExtendedDiff::Element;
using Indices = std::vector<Index>;

static_assert(extendedDiff("ab"sv, "ba"sv).elements == std::vector{XE::move(0, 1)});
static_assert(extendedDiff(""sv, ""sv).elements.empty());

std::string extendedBetween(std::string_view source, std::string_view target) {
    return text(extendedDiff(source, target));
}

TEST(ExtendedDiff, twoEqualElementsSwappedGiveOneMoveAndNothingElse) {
    EXPECT_EQ(extendedBetween("ab", "ba"), "M(0,1)");
    EXPECT_EQ(extendedBetween("xaby", "xbay"), "M(1,2)");
}

TEST(ExtendedDiff, aDeletionAndAnEqualInsertionFarApartAreAMove) {
    const std::string middle(300, '-');
    EXPECT_EQ(extendedBetween("a" + middle, middle + "a"), "M(0,300)");
    EXPECT_EQ(extendedBetween(middle + "a", "a" + middle), "M(300,0)");
}

TEST(ExtendedDiff, anEmptyDiffGivesEmptyElementsAndEmptySourceIndex) {
    const ExtendedDiff result = extendedDiff(Diff{}, "same"sv, "same"sv);
    EXPECT_TRUE(result.elements.empty());
    EXPECT_TRUE(result.sourceIndex.empty());
    EXPECT_TRUE(result.reorderedIndex.empty());
    EXPECT_TRUE(result.moveIndices.empty());
    EXPECT_TRUE(result.source.empty());
}

TEST(ExtendedDiff, whatHasNoPartnerStaysAsItIs) {
    EXPECT_EQ(extendedBetween("abc", "abd"), "D(2) I(2)");
    EXPECT_EQ(extendedBetween("", "ab"), "I(0) I(1)");
    EXPECT_EQ(extendedBetween("ab", ""), "D(0) D(1)");
    EXPECT_EQ(extendedBetween("aab", "ba"), "M(0,1) D(1)");
}

TEST(ExtendedDiff, keepsThePlainDiffItWasMadeFrom) {
    EXPECT_EQ(extendedDiff("abcabba"sv, "cbabac"sv).source, diff("abcabba"sv, "cbabac"sv));
}

TEST(ExtendedDiff, indexFieldsOfTheExampleOfMyersPaper) {
    // D(0)=a D(1)=b I(1)=b D(5)=b I(5)=c: the second deletion and the insertion behind it pair.
    const ExtendedDiff result = extendedDiff("abcabba"sv, "cbabac"sv);
    EXPECT_EQ(text(result), "D(0) M(1,1) D(5) I(5)");
    EXPECT_EQ(result.sourceIndex, (Indices{0, 1, 2, 3, 4}));
    EXPECT_EQ(result.reorderedIndex, (Indices{0, 1, 2, 3, 4}));
    EXPECT_EQ(result.moveIndices, (IndexSet{1}));
}

TEST(ExtendedDiff, aCandidateThatIsTheDeletionStandsFirst) {
    // D(0)=a D(1)=x I(2)=a
    const ExtendedDiff result = extendedDiff("axbc"sv, "bca"sv);
    EXPECT_EQ(text(result.source), "D(0) D(1) I(2)");
    EXPECT_EQ(text(result), "M(0,2) D(1)");
    EXPECT_EQ(result.sourceIndex, (Indices{0, 2, 1}));
    EXPECT_EQ(result.reorderedIndex, (Indices{0, 2, 1}));
    EXPECT_EQ(result.moveIndices, (IndexSet{0}));
}

TEST(ExtendedDiff, aCandidateThatIsTheInsertionStandsBehindItsDeletion) {
    // I(0)=a I(1)=x D(2)=a
    const ExtendedDiff result = extendedDiff("bca"sv, "axbc"sv);
    EXPECT_EQ(text(result.source), "I(0) I(1) D(2)");
    EXPECT_EQ(text(result), "M(2,0) I(1)");
    EXPECT_EQ(result.sourceIndex, (Indices{2, 0, 1}));
    EXPECT_EQ(result.reorderedIndex, (Indices{1, 2, 0}));
    EXPECT_EQ(result.moveIndices, (IndexSet{2}));
}

TEST(ExtendedDiff, anInsertionWhoseDeletionStandsAtTheSamePositionIsTakenForTheDeletion) {
    // The oddity: which of the two goes first is told by the position alone.
    const ExtendedDiff result = extendedDiff("aab"sv, "ccbaa"sv);
    EXPECT_EQ(text(result.source), "I(0) I(1) I(2) D(2)");
    EXPECT_EQ(text(result), "I(0) I(1) M(2,2)");
    EXPECT_EQ(result.sourceIndex, (Indices{0, 1, 2, 3}));
    EXPECT_EQ(result.moveIndices, (IndexSet{2}));
}

TEST(ExtendedDiff, anElementPairsWithTheEarliestLaterPartner) {
    const Diff twoPartners{Diff::Element::deleteAt(0), Diff::Element::insertAt(1), Diff::Element::insertAt(3)};
    const ExtendedDiff result = extendedDiff(twoPartners, "abc"sv, "baca"sv);
    EXPECT_EQ(text(result), "M(0,1) I(3)");
    EXPECT_EQ(result.sourceIndex, (Indices{0, 1, 2}));
}

TEST(ExtendedDiff, aPartnerThatIsTakenIsPassedOver) {
    const Diff two{Diff::Element::deleteAt(0), Diff::Element::deleteAt(1), Diff::Element::insertAt(1),
                   Diff::Element::insertAt(2)};
    const ExtendedDiff result = extendedDiff(two, "aab"sv, "baa"sv);
    EXPECT_EQ(text(result), "M(0,1) M(1,2)");
    EXPECT_EQ(result.sourceIndex, (Indices{0, 2, 1, 3}));
    EXPECT_EQ(result.reorderedIndex, (Indices{0, 2, 1, 3}));
    EXPECT_EQ(result.moveIndices, (IndexSet{0, 1}));
}

TEST(ExtendedDiff, twoOfAKindMakeNoMove) {
    const auto always = [](Index, Index) { return true; };
    EXPECT_FALSE(detail::createMatch(Diff::Element::deleteAt(0), Diff::Element::deleteAt(1), always));
    EXPECT_FALSE(detail::createMatch(Diff::Element::insertAt(0), Diff::Element::insertAt(1), always));
}

TEST(ExtendedDiff, aMatchIsMadeInEitherOrderAndOnlyOfEqualElements) {
    const auto asked = [](Index x, Index y) { return x == 3 && y == 5; };
    EXPECT_EQ(detail::createMatch(Diff::Element::deleteAt(3), Diff::Element::insertAt(5), asked), XE::move(3, 5));
    EXPECT_EQ(detail::createMatch(Diff::Element::insertAt(5), Diff::Element::deleteAt(3), asked), XE::move(3, 5));
    EXPECT_FALSE(detail::createMatch(Diff::Element::deleteAt(5), Diff::Element::insertAt(3), asked));
}

TEST(ExtendedDiff, thePredicateGetsTheSourceElementFirst) {
    const std::vector<int> numbers{1, 2};
    const std::vector<std::string> words{"2", "1"};
    const auto isEqual = [](int number, const std::string& word) { return std::to_string(number) == word; };
    EXPECT_EQ(text(extendedDiff(numbers, words, isEqual)), "M(0,1)");
}

TEST(ExtendedDiff, debugTextsOfElements) {
    EXPECT_EQ(XE::insertAt(1).debugText(), "I(1)");
    EXPECT_EQ(XE::deleteAt(2).debugText(), "D(2)");
    EXPECT_EQ(XE::move(3, 10).debugText(), "M(3,10)");
}

TEST(ExtendedDiff, isACollectionOfItsElements) {
    const ExtendedDiff result = extendedDiff("abc"sv, "cad"sv);
    EXPECT_EQ(result.size(), result.elements.size());
    EXPECT_TRUE(std::ranges::equal(result, result.elements));
    EXPECT_EQ(result[0], result.elements[0]);
    EXPECT_FALSE(result.empty());
    EXPECT_EQ(result, extendedDiff("abc"sv, "cad"sv));
}

TEST(ExtendedDiffDeathTest, aReadyDiffOfOtherSequencesEndsTheProcess) {
    const Diff beyond{Diff::Element::deleteAt(0), Diff::Element::insertAt(2)};
    EXPECT_DEATH(static_cast<void>(extendedDiff(beyond, "ab"sv, "ba"sv)), "Fatal error: file Differ/Diff");
    const std::vector<std::string> lines{"a", "b"};
    EXPECT_DEATH(static_cast<void>(extendedDiff(beyond, lines, lines)), "Fatal error: file Differ/Diff");
    const Diff before{Diff::Element::deleteAt(-1), Diff::Element::insertAt(0)};
    EXPECT_DEATH(static_cast<void>(extendedDiff(before, "ab"sv, "ba"sv)), "Fatal error: file Differ/Diff");
}

TEST(ExtendedDiff, aReadyDiffNeedNotBeTheShortest) {
    // Each element out and in again: they all pair.
    Diff whole;
    for (Index at = 0; at < 3; ++at) {
        whole.elements.push_back(Diff::Element::deleteAt(at));
        whole.elements.push_back(Diff::Element::insertAt(at));
    }
    EXPECT_EQ(text(extendedDiff(whole, "abc"sv, "abc"sv)), "M(0,0) M(1,1) M(2,2)");
    EXPECT_EQ(extendedDiff(whole, "abc"sv, "abc"sv).moveIndices, (IndexSet{0, 2, 4}));
}

TEST(ExtendedDiff, aPredicateThatIsNoEqualityPairsByItAlone) {
    EXPECT_EQ(text(extendedDiff("aB"sv, "bA"sv, sameLetter)), "M(0,1)");
    EXPECT_EQ(text(extendedDiff("aB"sv, "bA"sv)), "D(0) D(1) I(0) I(1)");
    EXPECT_EQ(text(extendedDiff("ab"sv, "ab"sv, [](char, char) { return false; })), "D(0) D(1) I(0) I(1)");
}

TEST(ExtendedDiff, ofManyEqualElementsEachIsUsedOnce) {
    // D(0) D(1) D(2) … I(…): three of one letter go, two come.
    const Diff ready{Diff::Element::deleteAt(0), Diff::Element::deleteAt(1), Diff::Element::deleteAt(2),
                     Diff::Element::insertAt(1), Diff::Element::insertAt(2)};
    const ExtendedDiff result = extendedDiff(ready, "aaab"sv, "baa"sv);
    EXPECT_EQ(text(result), "M(0,1) M(1,2) D(2)");
    EXPECT_EQ(result.sourceIndex, (Indices{0, 3, 1, 4, 2}));
    EXPECT_EQ(result.reorderedIndex, (Indices{0, 2, 4, 1, 3}));
    EXPECT_EQ(result.moveIndices, (IndexSet{0, 1}));
}

TEST(ExtendedDiffDeathTest, aMatchThatIsNoMoveEndsTheProcess) {
    const Diff plain{Diff::Element::deleteAt(0), Diff::Element::insertAt(0)};
    EXPECT_DEATH(detail::MovePairing(plain).accept(0, 1, XE::insertAt(0)),
                 "Fatal error: file Differ/ExtendedDiff, line 115");
}

/// The pairing as it is told, with sets and no shortcut.
ExtendedDiff pairByHand(const Diff& plain, const std::string& source, const std::string& target) {
    ExtendedDiff result;
    result.source = plain;
    IndexSet dirty;
    for (Index c = 0; c < static_cast<Index>(plain.size()); ++c) {
        if (dirty.contains(c) || result.moveIndices.contains(c)) {
            continue;
        }
        std::optional<XE> match;
        Index m = c + 1;
        for (; m < static_cast<Index>(plain.size()); ++m) {
            if (!dirty.contains(m) && !result.moveIndices.contains(m)) {
                match = detail::createMatch(plain[c], plain[m], [&](Index x, Index y) {
                    return source[static_cast<std::size_t>(x)] == target[static_cast<std::size_t>(y)];
                });
                if (match) {
                    break;
                }
            }
        }
        if (!match) {
            result.sourceIndex.push_back(c);
            result.elements.push_back(plain[c].isInsertion() ? XE::insertAt(plain[c].at())
                                                             : XE::deleteAt(plain[c].at()));
            continue;
        }
        const bool isFirst = match->from() == plain[c].at();
        result.sourceIndex.push_back(isFirst ? c : m);
        result.sourceIndex.push_back(isFirst ? m : c);
        result.moveIndices.insert(isFirst ? c : m);
        dirty.insert(isFirst ? m : c);
        result.elements.push_back(*match);
    }
    std::vector<std::pair<Index, Index>> numbered;
    for (const Index value : result.sourceIndex) {
        numbered.emplace_back(value, static_cast<Index>(numbered.size()));
    }
    std::ranges::sort(numbered);
    for (const auto& [value, number] : numbered) {
        result.reorderedIndex.push_back(number);
    }
    return result;
}

void checkExtended(const std::string& source, const std::string& target) {
    const ExtendedDiff result = extendedDiff(source, target);
    ASSERT_EQ(result, pairByHand(diff(source, target), source, target)) << source << ' ' << target;
    ASSERT_EQ(applied(result, source, target), target) << source << ' ' << target;
    std::vector<std::string> from;
    std::vector<std::string> to;
    for (const char letter : source) {
        from.emplace_back(1, letter);
    }
    for (const char letter : target) {
        to.emplace_back(1, letter);
    }
    ASSERT_EQ(extendedDiff(from, to), result) << source << ' ' << target;
}

TEST(ExtendedDiffProperties, holdForAllPairsOfShortTexts) {
    for (const auto& [length, letters] : {std::pair{6, 2}, std::pair{4, 3}}) {
        const auto words = allWords(static_cast<std::size_t>(length), letters);
        for (const auto& source : words) {
            for (const auto& target : words) {
                ASSERT_NO_FATAL_FAILURE(checkExtended(source, target));
            }
        }
    }
}

TEST(ExtendedDiffProperties, holdForRandomTexts) {
    Random random(9);
    for (int round = 0; round < 1000; ++round) {
        const int letters = 1 + upTo(random, 25);
        const std::string source = randomWord(random, 60, letters);
        ASSERT_NO_FATAL_FAILURE(checkExtended(source, edited(random, source, upTo(random, 20), letters)));
        ASSERT_NO_FATAL_FAILURE(checkExtended(source, randomWord(random, 60, letters)));
    }
}

TEST(ExtendedDiffProperties, theIndexFieldsAreInverseToEachOther) {
    Random random(33);
    for (int round = 0; round < 500; ++round) {
        const std::string source = randomWord(random, 40, 5);
        const ExtendedDiff result = extendedDiff(source, edited(random, source, upTo(random, 25), 5));
        const auto moves = std::ranges::count(result, XE::Kind::move, &XE::kind);
        ASSERT_EQ(result.sourceIndex.size(), result.source.size());
        ASSERT_EQ(result.sourceIndex.size(), result.size() + static_cast<std::size_t>(moves));
        ASSERT_EQ(result.moveIndices.size(), static_cast<std::size_t>(moves));
        for (std::size_t place = 0; place < result.sourceIndex.size(); ++place) {
            const auto index = static_cast<std::size_t>(result.sourceIndex[place]);
            ASSERT_EQ(result.reorderedIndex.at(index), static_cast<Index>(place));
        }
    }
}

TEST(ExtendedDiffProperties, noMoveIsLeftToMake) {
    Random random(10);
    for (int round = 0; round < 300; ++round) {
        const std::string source = randomWord(random, 40, 5);
        const std::string target = randomWord(random, 40, 5);
        std::map<char, int> deleted;
        std::map<char, int> inserted;
        for (const auto element : extendedDiff(source, target)) {
            if (element.kind() == XE::Kind::deletion) {
                ++deleted[source[static_cast<std::size_t>(element.at())]];
            } else if (element.kind() == XE::Kind::insertion) {
                ++inserted[target[static_cast<std::size_t>(element.at())]];
            }
        }
        for (const auto& [letter, count] : deleted) {
            ASSERT_FALSE(inserted.contains(letter)) << source << ' ' << target;
        }
    }
}

} // namespace
