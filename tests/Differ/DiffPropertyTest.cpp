#include "Support.h"

#include <forward_list>

namespace {

using namespace DifferTest;

using Lines = std::vector<std::string>;

Lines lines(const std::string& word) {
    Lines result;
    for (const char letter : word) {
        result.push_back("a line that begins the same, and ends in " + std::string(1, letter));
    }
    return result;
}

/// All that has to hold for any two sequences.
void check(const std::string& source, const std::string& target) {
    const Diff result = diff(source, target);
    ASSERT_EQ(result, plainDiff(source, target)) << source << ' ' << target;
    ASSERT_EQ(result.size(), distance(source, target)) << source << ' ' << target;
    ASSERT_EQ(applied(result, source, target), target) << source << ' ' << target;
}

TEST(DiffProperties, holdForAllPairsOfShortTexts) {
    for (const auto& [length, letters] : {std::pair{6, 2}, std::pair{5, 3}}) {
        const auto words = allWords(static_cast<std::size_t>(length), letters);
        for (const auto& source : words) {
            for (const auto& target : words) {
                ASSERT_NO_FATAL_FAILURE(check(source, target));
            }
        }
    }
}

TEST(DiffProperties, holdForAllPairsOfAShortAndALongText) {
    const auto longer = allWords(10, 2);
    for (const auto& few : allWords(3, 2)) {
        for (const auto& many : longer) {
            ASSERT_NO_FATAL_FAILURE(check(few, many));
            ASSERT_NO_FATAL_FAILURE(check(many, few));
        }
    }
}

TEST(DiffProperties, holdForRandomTexts) {
    Random random(3);
    for (int round = 0; round < 1500; ++round) {
        const int letters = 1 + upTo(random, 25);
        ASSERT_NO_FATAL_FAILURE(check(randomWord(random, 70, letters), randomWord(random, 70, letters)));
    }
}

TEST(DiffProperties, holdForEditedTexts) {
    Random random(4);
    for (int round = 0; round < 500; ++round) {
        const int letters = 1 + upTo(random, 25);
        const std::string source = randomWord(random, 200, letters);
        ASSERT_NO_FATAL_FAILURE(check(source, edited(random, source, upTo(random, 12), letters)));
    }
}

TEST(DiffProperties, hashedElementsAndAnyRangeGiveTheSame) {
    Random random(5);
    for (int round = 0; round < 500; ++round) {
        const int letters = 1 + upTo(random, 25);
        const std::string source = randomWord(random, 60, letters);
        const std::string target = edited(random, source, upTo(random, 30), letters);
        const Diff expected = diff(source, target);
        const Lines from = lines(source);
        const Lines to = lines(target);
        ASSERT_EQ(diff(from, to), expected);
        ASSERT_EQ(diff(from, to, [](const auto& a, const auto& b) { return a == b; }), expected);
        ASSERT_EQ(diff(std::forward_list<std::string>(from.begin(), from.end()), to), expected);
    }
}

TEST(DiffProperties, deletionsAndInsertionsEachRise) {
    Random random(6);
    for (int round = 0; round < 500; ++round) {
        Index lastDeleted = -1;
        Index lastInserted = -1;
        for (const auto element : diff(randomWord(random, 60, 3), randomWord(random, 60, 3))) {
            Index& last = element.isDeletion() ? lastDeleted : lastInserted;
            ASSERT_GT(element.at(), last);
            last = element.at();
        }
    }
}

TEST(DiffProperties, betweenTwoMatchesTheDeletionsGoFirst) {
    Random random(38);
    for (int round = 0; round < 500; ++round) {
        const std::string source = randomWord(random, 60, 4);
        bool hasInsertion = false;
        for (const Trace& trace : diffTraces(source, edited(random, source, upTo(random, 30), 4))) {
            hasInsertion = !trace.isMatch() && (hasInsertion || trace.isInsertion());
            ASSERT_FALSE(hasInsertion && trace.isDeletion());
        }
    }
}

TEST(DiffProperties, theWayBackIsAsLong) {
    Random random(39);
    for (int round = 0; round < 500; ++round) {
        const std::string source = randomWord(random, 60, 6);
        const std::string target = randomWord(random, 60, 6);
        const Diff back = diff(target, source);
        ASSERT_EQ(back.size(), diff(source, target).size());
        ASSERT_EQ(applied(back, target, source), source);
    }
}

TEST(DiffProperties, whatBothBeginWithShiftsThePositionsAndNothingElse) {
    Random random(40);
    for (int round = 0; round < 300; ++round) {
        const std::string source = randomWord(random, 40, 4);
        const std::string target = randomWord(random, 40, 4);
        const std::string begin = randomWord(random, 20, 4);
        Diff expected;
        for (const auto element : diff(source, target)) {
            const Index at = element.at() + static_cast<Index>(begin.size());
            expected.elements.push_back(element.isDeletion() ? Diff::Element::deleteAt(at)
                                                             : Diff::Element::insertAt(at));
        }
        ASSERT_EQ(diff(begin + source, begin + target), expected) << begin << ' ' << source << ' ' << target;
    }
}

TEST(DiffProperties, aThousandLinesWithATenthChangedAreThePlainFormsResult) {
    Random random(8);
    Lines source;
    for (int line = 0; line < 1000; ++line) {
        source.push_back(std::to_string(upTo(random, 400)));
    }
    Lines target = source;
    for (int change = 0; change < 100; ++change) {
        target[static_cast<std::size_t>(upTo(random, 999))] = std::to_string(upTo(random, 400));
    }
    const Diff result = diff(source, target);
    EXPECT_EQ(result, plainDiff(source, target));
    EXPECT_EQ(result.size(), distance(source, target));
    EXPECT_EQ(applied(result, source, target), target);
}

TEST(DiffProperties, fiveThousandLinesWithNothingInCommonAreAllDeletedThenAllInserted) {
    Lines source;
    Lines target;
    for (int line = 0; line < 5000; ++line) {
        source.push_back("old " + std::to_string(line));
        target.push_back("new " + std::to_string(line));
    }
    const Diff result = diff(source, target);
    ASSERT_EQ(result.size(), 10000U);
    for (Index line = 0; line < 5000; ++line) {
        ASSERT_EQ(result[line], Diff::Element::deleteAt(line));
        ASSERT_EQ(result[5000 + line], Diff::Element::insertAt(line));
    }
}

TEST(DiffProperties, aMillionEqualLinesCostNoSearch) {
    const Lines source(1000000, "the same");
    Lines target = source;
    target.emplace_back("one more");
    EXPECT_TRUE(diff(source, source).empty());
    EXPECT_EQ(text(diff(source, target)), "I(1000000)");
    EXPECT_EQ(text(diff(target, source)), "D(1000000)");
}

} // namespace
