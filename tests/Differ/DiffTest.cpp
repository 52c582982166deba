#include "Support.h"

#include <array>
#include <deque>
#include <forward_list>
#include <list>
#include <span>

namespace {

using namespace DifferTest;
using E = Diff::Element;

// At compile time: the table of examples.
static_assert(diff(""sv, ""sv) == Diff{});
static_assert(diff(""sv, "ab"sv) == Diff{E::insertAt(0), E::insertAt(1)});
static_assert(diff("ab"sv, ""sv) == Diff{E::deleteAt(0), E::deleteAt(1)});
static_assert(diff("x"sv, "x"sv) == Diff{});
static_assert(diff("a"sv, "b"sv) == Diff{E::deleteAt(0), E::insertAt(0)});
static_assert(diff("abc"sv, "abd"sv) == Diff{E::deleteAt(2), E::insertAt(2)});
static_assert(diff("ab"sv, "ba"sv) == Diff{E::deleteAt(0), E::insertAt(1)});
static_assert(diff("aaa"sv, "a"sv) == Diff{E::deleteAt(1), E::deleteAt(2)});
static_assert(diff("abcabba"sv, "cbabac"sv) ==
              Diff{E::deleteAt(0), E::deleteAt(1), E::insertAt(1), E::deleteAt(5), E::insertAt(5)});
static_assert(diff(std::array{1, 2, 3}, std::array{1, 3}) == Diff{E::deleteAt(1)});
static_assert(DiffProtocol<Diff> && DiffProtocol<ExtendedDiff> && !DiffProtocol<std::vector<int>>);

std::string between(std::string_view source, std::string_view target) {
    const Diff result = diff(source, target);
    EXPECT_EQ(result, plainDiff(source, target));
    return text(result);
}

TEST(Diff, twoEmptySequencesGiveNothing) {
    EXPECT_EQ(between("", ""), "");
}

TEST(Diff, anEmptySourceGivesInsertionsOnly) {
    EXPECT_EQ(between("", "ab"), "I(0) I(1)");
}

TEST(Diff, anEmptyTargetGivesDeletionsOnly) {
    EXPECT_EQ(between("ab", ""), "D(0) D(1)");
}

TEST(Diff, equalSequencesGiveNothing) {
    EXPECT_EQ(between("x", "x"), "");
    EXPECT_EQ(between("abcabba", "abcabba"), "");
}

TEST(Diff, aReplacedElementIsDeletedBeforeItsSuccessorIsInserted) {
    EXPECT_EQ(between("a", "b"), "D(0) I(0)");
    EXPECT_EQ(between("abc", "abd"), "D(2) I(2)");
}

TEST(Diff, aReplacedRunHasItsDeletionsBeforeItsInsertions) {
    EXPECT_EQ(between("xabcx", "xdefx"), "D(1) D(2) D(3) I(1) I(2) I(3)");
    EXPECT_EQ(between("abcdef", "uvw"), "D(0) D(1) D(2) D(3) D(4) D(5) I(0) I(1) I(2)");
}

TEST(Diff, twoSwappedElements) {
    EXPECT_EQ(between("ab", "ba"), "D(0) I(1)");
}

TEST(Diff, ofARunTheLastOnesGo) {
    EXPECT_EQ(between("aaa", "a"), "D(1) D(2)");
}

TEST(Diff, ofARunTheLastOnesCome) {
    EXPECT_EQ(between("a", "aaa"), "I(1) I(2)");
}

TEST(Diff, theExampleOfMyersPaper) {
    EXPECT_EQ(between("abcabba", "cbabac"), "D(0) D(1) I(1) D(5) I(5)");
}

TEST(Diff, positionsAreAbsolute) {
    EXPECT_EQ(between("0123456789", "01x3456789y"), "D(2) I(2) I(10)");
}

TEST(Diff, isACollectionOfItsElements) {
    const Diff result = diff("a"sv, "b"sv);
    EXPECT_EQ(result.size(), 2U);
    EXPECT_FALSE(result.empty());
    EXPECT_EQ(result[0], E::deleteAt(0));
    EXPECT_EQ(result[1], E::insertAt(0));
    EXPECT_TRUE(std::ranges::equal(result, result.elements));
    EXPECT_TRUE(Diff{}.empty());
}

TEST(Diff, canBeWrittenAsAList) {
    const Diff result{E::deleteAt(3), E::insertAt(4)};
    EXPECT_EQ(text(result), "D(3) I(4)");
    EXPECT_NE(result, (Diff{E::insertAt(4), E::deleteAt(3)}));
}

TEST(Diff, debugTextsOfElements) {
    EXPECT_EQ(E::insertAt(0).debugText(), "I(0)");
    EXPECT_EQ(E::deleteAt(1234567890123).debugText(), "D(1234567890123)");
    EXPECT_EQ(E::insertAt(-5).debugText(), "I(-5)");
}

TEST(Diff, elementsOfDifferentKindsDiffer) {
    EXPECT_NE(E::insertAt(1), E::deleteAt(1));
    EXPECT_EQ(E::insertAt(1), E::insertAt(1));
    EXPECT_NE(E::insertAt(1), E::insertAt(2));
}

TEST(Diff, thePredicateGetsTheSourceElementFirst) {
    const std::vector<int> numbers{1, 2, 3};
    const std::vector<std::string> words{"1", "3", "4"};
    const auto isEqual = [](int number, const std::string& word) { return std::to_string(number) == word; };
    EXPECT_EQ(text(diff(numbers, words, isEqual)), "D(1) I(2)");
    EXPECT_EQ(diff(numbers, words, isEqual), plainDiff(numbers, words, isEqual));
}

TEST(Diff, aPredicateDecidesAgainstEquality) {
    const auto isSameLetter = [](char a, char b) { return std::tolower(a) == std::tolower(b); };
    EXPECT_EQ(text(diff("aBc"sv, "AbD"sv, isSameLetter)), "D(2) I(2)");
    EXPECT_EQ(text(diff("ab"sv, "ab"sv, [](char, char) { return false; })), "D(0) D(1) I(0) I(1)");
    EXPECT_TRUE(diff("ab"sv, "xy"sv, [](char, char) { return true; }).empty());
}

TEST(Diff, aPredicateThatIsNoEquivalenceGivesThePlainFormsResult) {
    Random random(7);
    for (int round = 0; round < 2000; ++round) {
        const std::string source = randomWord(random, 20, 6);
        const std::string target = randomWord(random, 20, 6);
        const auto isNear = [](char a, char b) { return a - b <= 1 && b - a <= 2; };
        ASSERT_EQ(diff(source, target, isNear), plainDiff(source, target, isNear)) << source << ' ' << target;
    }
}

TEST(Diff, elementsOfDifferentTypesAreComparedByTheirEquality) {
    const std::vector<std::string> source{"a", "b"};
    const std::vector<std::string_view> target{"b", "c"};
    EXPECT_EQ(text(diff(source, target)), "D(0) I(1)");
}

TEST(Diff, anyForwardRangeWillDo) {
    const std::forward_list<std::string> forward{"a", "b", "c"};
    const std::list<std::string> list{"b", "c", "d"};
    const std::deque<std::string> deque{"c"};
    const std::string array[] = {"a", "c"};
    EXPECT_EQ(text(diff(forward, list)), "D(0) I(2)");
    EXPECT_EQ(text(diff(list, deque)), "D(0) D(2)");
    EXPECT_EQ(text(diff(array, forward)), "I(1)");
    EXPECT_EQ(text(diff(std::span(array), deque)), "D(0)");
    EXPECT_EQ(text(diff(std::vector<bool>{true, false}, std::vector<bool>{false})), "D(0)");
    EXPECT_EQ(text(diff(std::map<int, int>{{1, 1}, {2, 2}}, std::map<int, int>{{2, 2}})), "D(0)");
}

TEST(Diff, elementsThatCannotBeCopiedAreCompared) {
    std::vector<std::unique_ptr<int>> source;
    source.push_back(std::make_unique<int>(1));
    source.push_back(std::make_unique<int>(2));
    const auto isEqual = [](const auto& a, const auto& b) { return *a == *b; };
    EXPECT_TRUE(diff(source, source, isEqual).empty());
}

TEST(Diff, aNumberThatIsNotEqualToItselfIsNoMatch) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(text(diff(std::vector{none, 1.0}, std::vector{none, 1.0})), "D(0) I(0)");
}

struct Collider {
    int value = 0;
    friend bool operator==(const Collider&, const Collider&) = default;
};

} // namespace

template <>
struct std::hash<Collider> {
    std::size_t operator()(const Collider&) const noexcept { return 42; }
};

namespace {

TEST(Diff, elementsWithOneHashAreToldApart) {
    std::vector<Collider> source;
    std::vector<Collider> target;
    for (int value = 0; value < 100; ++value) {
        source.push_back({value});
        target.push_back({value * 7 % 100});
    }
    EXPECT_EQ(diff(source, target), plainDiff(source, target));
    EXPECT_EQ(diff(source, target).size(), distance(source, target));
}

/// As many equal elements as asked for, of no memory.
struct Endless {
    struct Iterator {
        using value_type = int;
        using difference_type = std::ptrdiff_t;
        int operator*() const { return 0; }
        int operator[](std::ptrdiff_t) const { return 0; }
        Iterator& operator++() { return *this += 1; }
        Iterator operator++(int) { return std::exchange(*this, *this + 1); }
        Iterator& operator--() { return *this -= 1; }
        Iterator operator--(int) { return std::exchange(*this, *this - 1); }
        Iterator& operator+=(std::ptrdiff_t by) {
            at += by;
            return *this;
        }
        Iterator& operator-=(std::ptrdiff_t by) { return *this += -by; }
        friend Iterator operator+(Iterator i, std::ptrdiff_t by) { return i += by; }
        friend Iterator operator+(std::ptrdiff_t by, Iterator i) { return i += by; }
        friend Iterator operator-(Iterator i, std::ptrdiff_t by) { return i -= by; }
        friend std::ptrdiff_t operator-(Iterator a, Iterator b) { return a.at - b.at; }
        friend auto operator<=>(const Iterator&, const Iterator&) = default;
        std::ptrdiff_t at = 0;
    };
    Iterator begin() const { return {}; }
    Iterator end() const { return {count}; }
    std::ptrdiff_t count = 0;
};
static_assert(std::ranges::random_access_range<Endless>);

TEST(DiffDeathTest, aSumOfCountsThatOverflowsEndsTheProcess) {
    const Endless most{std::numeric_limits<std::ptrdiff_t>::max()};
    const std::vector<int> one{1};
    EXPECT_DEATH(static_cast<void>(diff(most, one)), "Fatal error");
    EXPECT_DEATH(static_cast<void>(outputDiffPathTraces(one, most)), "Fatal error");
}

} // namespace
