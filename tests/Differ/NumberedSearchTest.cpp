#include "Support.h"

#include <numeric>
#include <set>

namespace {

using namespace DifferTest;
using Lines = std::vector<std::string>;
using Numbers = std::vector<int>;

Lines linesOf(const std::string& word) {
    Lines lines;
    for (const char letter : word) {
        lines.emplace_back(1, letter);
    }
    return lines;
}

template <class Elements>
detail::InternedSides sidesOf(const Elements& source, const Elements& target, Index first = 0) {
    return {detail::Indexed(source), detail::Indexed(target), first};
}

using Matches = std::vector<std::pair<Index, Index>>;

/// The matches of the plain search's path.
template <class Elements>
Matches plainMatches(const Elements& source, const Elements& target) {
    Matches matches;
    for (const Trace& trace : diffTraces(source, target)) {
        if (trace.isMatch()) {
            matches.emplace_back(trace.from.x, trace.from.y);
        }
    }
    return matches;
}

/// The matches that the search by pairs finds, at their places in the whole.
template <class Elements>
Matches pairedMatches(const Elements& source, const Elements& target) {
    const detail::CommonElements common(sidesOf(source, target));
    Matches matches;
    detail::PairSearch(common).run([&](Index x, Index y) {
        matches.emplace_back(common.source.places[static_cast<std::size_t>(x)],
                             common.target.places[static_cast<std::size_t>(y)]);
    });
    std::ranges::reverse(matches);
    return matches;
}

Numbers shuffled(Random& random, int count) {
    Numbers numbers(static_cast<std::size_t>(count));
    std::iota(numbers.begin(), numbers.end(), 0);
    std::shuffle(numbers.begin(), numbers.end(), random);
    return numbers;
}

TEST(Interning, equalElementsShareANumberAndOthersDoNot) {
    const detail::InternedSides sides = sidesOf(linesOf("abca"), linesOf("xcb"));
    EXPECT_EQ(sides.source, (std::vector<detail::ElementNumber>{0, 1, 2, 0}));
    EXPECT_EQ(sides.target, (std::vector<detail::ElementNumber>{3, 2, 1}));
    EXPECT_EQ(sides.distinct, 4);
}

TEST(Interning, startsBehindTheElementsThatAreLeftOut) {
    const detail::InternedSides sides = sidesOf(linesOf("aab"), linesOf("aax"), 2);
    EXPECT_EQ(sides.source, (std::vector<detail::ElementNumber>{0}));
    EXPECT_EQ(sides.target, (std::vector<detail::ElementNumber>{1}));
}

TEST(Interning, isForElementsOfOneTypeThatHaveAHashAndStayWhereTheyAre) {
    static_assert(detail::Internable<Lines&, const Lines&, Equality>);
    static_assert(detail::Internable<Numbers&, Numbers&, Equality>);
    static_assert(detail::Internable<std::vector<const char*>&, std::vector<const char*>&, Equality>);
    static_assert(!detail::Internable<std::string&, std::string&, Equality>, "letters are few");
    static_assert(!detail::Internable<Lines&, Lines&, std::equal_to<>>, "a predicate may be anything");
    static_assert(!detail::Internable<Lines&, std::vector<std::string_view>&, Equality>, "hashes may differ");
    static_assert(!detail::Internable<std::vector<bool>&, std::vector<bool>&, Equality>, "made as they are read");
    static_assert(!detail::Internable<std::vector<Numbers>&, std::vector<Numbers>&, Equality>, "no hash");
}

TEST(CommonElements, leaveOutWhatHasNoEqualOnTheOtherSide) {
    const detail::CommonElements common(sidesOf(linesOf("axbya"), linesOf("zbaz")));
    EXPECT_EQ(common.source.places, (std::vector<detail::ElementNumber>{0, 2, 4}));
    EXPECT_EQ(common.target.places, (std::vector<detail::ElementNumber>{1, 2}));
    EXPECT_EQ(common.source.count(), 3);
    EXPECT_EQ(common.target.count(), 2);
    EXPECT_EQ(common.source.numbers.size(), 4U) << "one more closes each side";
    EXPECT_NE(common.source.numbers.back(), common.target.numbers.back());
}

TEST(CommonElements, countThePairsOfEqualElements) {
    EXPECT_EQ(detail::CommonElements(sidesOf(linesOf("aab"), linesOf("abba"))).pairs, 2 * 2 + 1 * 2);
    EXPECT_EQ(detail::CommonElements(sidesOf(linesOf("abc"), linesOf("xyz"))).pairs, 0);
    EXPECT_EQ(detail::CommonElements(sidesOf(linesOf(""), linesOf("x"))).pairs, 0);
}

TEST(PairSearch, findsTheMatchesOfThePlainSearchForAllPairsOfShortTexts) {
    for (const auto& [length, letters] : {std::pair{6, 2}, std::pair{4, 3}}) {
        const auto words = allWords(static_cast<std::size_t>(length), letters);
        for (const auto& source : words) {
            for (const auto& target : words) {
                ASSERT_EQ(pairedMatches(linesOf(source), linesOf(target)), plainMatches(source, target))
                    << source << ' ' << target;
            }
        }
    }
}

TEST(PairSearch, findsTheMatchesOfThePlainSearchForRandomTexts) {
    Random random(21);
    for (int round = 0; round < 1500; ++round) {
        const int letters = 1 + upTo(random, 25);
        const std::string source = randomWord(random, 60, letters);
        const std::string target =
            round % 2 == 0 ? randomWord(random, 60, letters) : edited(random, source, upTo(random, 20), letters);
        ASSERT_EQ(pairedMatches(linesOf(source), linesOf(target)), plainMatches(source, target))
            << source << ' ' << target;
    }
}

TEST(PairSearch, ofTextsWithNothingInCommonFindsNothing) {
    EXPECT_TRUE(pairedMatches(linesOf("abc"), linesOf("xyz")).empty());
    EXPECT_TRUE(pairedMatches(linesOf(""), linesOf("")).empty());
}

TEST(PairSearch, takesAnElementOnceHoweverManyEqualsItHas) {
    EXPECT_EQ(pairedMatches(linesOf("a"), linesOf("aaaa")), (Matches{{0, 0}}));
    EXPECT_EQ(pairedMatches(linesOf("aaaa"), linesOf("a")), (Matches{{0, 0}}));
    EXPECT_EQ(pairedMatches(linesOf("aab"), linesOf("abb")), (Matches{{0, 0}, {2, 1}}));
}

/// The search of the path with a bound, by positions.
template <class Number>
std::optional<std::vector<detail::Step>> bounded(const std::string& source, const std::string& target, Index most) {
    const auto N = static_cast<Number>(source.size());
    const auto M = static_cast<Number>(target.size());
    const auto slide = [&](Number x, Number y) {
        Number length = 0;
        while (x + length < N && y + length < M &&
               source[static_cast<std::size_t>(x + length)] == target[static_cast<std::size_t>(y + length)]) {
            ++length;
        }
        return length;
    };
    return detail::PathSearch<Number, decltype(slide)>(N, M, slide).run(most);
}

TEST(PathSearch, givesUpOnceItHasGoneThroughMoreDiagonalsThanItMay) {
    const std::string source = "abcdefgh";
    const std::string target = "stuvwxyz";
    std::set<Index> enough;
    for (Index most = 0; most < 200; ++most) {
        const auto steps = bounded<std::int32_t>(source, target, most);
        if (steps) {
            enough.insert(most);
            ASSERT_EQ(steps->size(), 16U);
        } else {
            ASSERT_TRUE(enough.empty()) << "what was enough is enough with more";
        }
    }
    EXPECT_FALSE(enough.empty());
    EXPECT_FALSE(enough.contains(0));
    EXPECT_EQ(bounded<std::int32_t>("same", "same", 0), std::vector<detail::Step>{}) << "equal texts need no round";
}

TEST(PathSearch, givesTheSameWithNumbersOfAnyWidth) {
    Random random(22);
    constexpr Index any = std::numeric_limits<Index>::max();
    for (int round = 0; round < 500; ++round) {
        const std::string source = randomWord(random, 50, 4);
        const std::string target = randomWord(random, 50, 4);
        const auto narrow = bounded<std::int16_t>(source, target, any);
        ASSERT_TRUE(narrow);
        ASSERT_EQ(narrow, bounded<std::int32_t>(source, target, any));
        ASSERT_EQ(narrow, bounded<std::int64_t>(source, target, any));
        ASSERT_EQ(narrow->size(), distance(source, target));
    }
}

void checkNumbers(const Numbers& source, const Numbers& target) {
    const Diff result = diff(source, target);
    ASSERT_EQ(result, plainDiff(source, target));
    ASSERT_EQ(applied(result, source, target), target);
}

TEST(NumberedSearch, ofAShuffledListIsThePlainFormsResult) {
    Random random(23);
    for (const int count : {2, 10, 100, 400, 700}) {
        const Numbers source = shuffled(random, count);
        Numbers target = shuffled(random, count);
        ASSERT_NO_FATAL_FAILURE(checkNumbers(source, target));
        target.resize(target.size() / 2);
        ASSERT_NO_FATAL_FAILURE(checkNumbers(source, target));
        ASSERT_NO_FATAL_FAILURE(checkNumbers(target, source));
    }
}

TEST(NumberedSearch, ofAReversedListKeepsTheElementThatThePlainFormKeeps) {
    Random random(24);
    const Numbers source = shuffled(random, 500);
    const Numbers target(source.rbegin(), source.rend());
    ASSERT_NO_FATAL_FAILURE(checkNumbers(source, target));
    EXPECT_EQ(diff(source, target).size(), 998U);
}

TEST(NumberedSearch, ofShuffledLinesWithBlankOnesBetweenIsThePlainFormsResult) {
    Random random(25);
    for (const int percent : {5, 20, 50, 90}) {
        Numbers source = shuffled(random, 400);
        Numbers target = shuffled(random, 400);
        for (Numbers* side : {&source, &target}) {
            for (int& number : *side) {
                number = upTo(random, 99) < percent ? -1 : number;
            }
        }
        ASSERT_NO_FATAL_FAILURE(checkNumbers(source, target));
    }
}

TEST(NumberedSearch, elementsWithoutAnEqualAnywhereBetweenTheOthersChangeNoDecision) {
    Random random(26);
    for (int round = 0; round < 500; ++round) {
        // Capitals are the source's own, digits the target's.
        std::string source = randomWord(random, 30, 3);
        std::string target = randomWord(random, 30, 3);
        for (int own = upTo(random, 30); own > 0; --own) {
            source.insert(static_cast<std::size_t>(upTo(random, static_cast<int>(source.size()))), 1,
                          static_cast<char>('A' + upTo(random, 25)));
            target.insert(static_cast<std::size_t>(upTo(random, static_cast<int>(target.size()))), 1,
                          static_cast<char>('0' + upTo(random, 9)));
        }
        ASSERT_EQ(diff(linesOf(source), linesOf(target)), plainDiff(source, target)) << source << ' ' << target;
    }
}

/// What a diff leaves of one side.
Numbers rest(Numbers numbers, const Diff& diff, Diff::Element::Kind kind) {
    for (const auto element : diff) {
        if (element.kind() == kind) {
            numbers[static_cast<std::size_t>(element.at())] = -1;
        }
    }
    std::erase(numbers, -1);
    return numbers;
}

TEST(NumberedSearch, aHundredThousandLinesInAnotherOrderAreComparedAtOnce) {
    Random random(27);
    const Numbers source = shuffled(random, 100000);
    const Numbers target = shuffled(random, 100000);
    const Diff result = diff(source, target);
    const Numbers kept = rest(source, result, Diff::Element::Kind::deletion);
    EXPECT_EQ(kept, rest(target, result, Diff::Element::Kind::insertion));
    EXPECT_EQ(2 * kept.size() + result.size(), 200000U);
    // The longest rising subsequence of so long a random order is a little short of twice the root of its length.
    EXPECT_GT(kept.size(), 580U);
    EXPECT_LT(kept.size(), 640U);
}

TEST(NumberedSearch, aHundredThousandLinesWithNothingInCommonAreComparedAtOnce) {
    Numbers source(100000);
    std::iota(source.begin(), source.end(), 0);
    Numbers target(100000);
    std::iota(target.begin(), target.end(), 100000);
    const Diff result = diff(source, target);
    ASSERT_EQ(result.size(), 200000U);
    EXPECT_EQ(result[99999], Diff::Element::deleteAt(99999));
    EXPECT_EQ(result[100000], Diff::Element::insertAt(0));
}

} // namespace
