#include "Support.h"

#include <array>
#include <tuple>

namespace {

using namespace DifferTest;
using NXE = NestedExtendedDiff::Element;

using Elements = std::vector<NXE>;

TEST(NestedExtendedDiff, equalCollectionsGiveNothing) {
    EXPECT_TRUE(nestedExtendedDiff(Sections{"ab", "cd"}, Sections{"ab", "cd"}).elements.empty());
}

TEST(NestedExtendedDiff, sectionsComeGoAndMove) {
    EXPECT_EQ(nestedExtendedDiff(Sections{"ab", "cd"}, Sections{"cd", "ab"}).elements,
              (Elements{NXE::moveSection(0, 1)}));
    EXPECT_EQ(nestedExtendedDiff(Sections{"ab"}, Sections{"cd"}).elements,
              (Elements{NXE::deleteSection(0), NXE::insertSection(0)}));
}

TEST(NestedExtendedDiff, itemsMoveWithinASectionThatRemains) {
    EXPECT_EQ(nestedExtendedDiff(Sections{"X", "Aabc"}, Sections{"Acab"}, sameName).elements,
              (Elements{NXE::deleteSection(0), NXE::moveElement({3, 1}, {1, 0})}));
}

TEST(NestedExtendedDiff, deletionsCarryTheSourcesSectionAndInsertionsTheTargets) {
    EXPECT_EQ(
        nestedExtendedDiff(Sections{"X", "Y", "Aab"}, Sections{"Aac"}, sameName).elements,
        (Elements{NXE::deleteSection(0), NXE::deleteSection(1), NXE::deleteElement(2, 2), NXE::insertElement(2, 0)}));
}

TEST(NestedExtendedDiff, itemsOfAMovedSectionAreNotCompared) {
    EXPECT_EQ(nestedExtendedDiff(Sections{"Aab", "B"}, Sections{"B", "Axy"}, sameName).elements,
              (Elements{NXE::moveSection(0, 1)}));
}

TEST(NestedExtendedDiff, anItemThatGoesToAnotherSectionDoesNotMove) {
    EXPECT_EQ(nestedExtendedDiff(Sections{"Ax", "B"}, Sections{"A", "Bx"}, sameName).elements,
              (Elements{NXE::deleteElement(1, 0), NXE::insertElement(1, 1)}));
}

TEST(NestedExtendedDiff, itemsByAPredicate) {
    EXPECT_TRUE(nestedExtendedDiff(Sections{"Aab"}, Sections{"AAB"}, sameName, sameLetter).elements.empty());
    EXPECT_EQ(nestedExtendedDiff(Sections{"ab", "c"}, Sections{"c", "ab"}, Equality{}, sameLetter).elements,
              (Elements{NXE::moveSection(0, 1)}));
    EXPECT_EQ(nestedExtendedDiff(Sections{"Aab"}, Sections{"ABA"}, sameName, sameLetter).elements,
              (Elements{NXE::moveElement({1, 0}, {2, 0})}));
}

TEST(NestedExtendedDiff, atCompileTime) {
    using Two = std::array<std::string_view, 2>;
    static_assert(nestedExtendedDiff(Two{"ab", "cd"}, Two{"cd", "ab"}).elements == Elements{NXE::moveSection(0, 1)});
    static_assert(nestedDiff(Two{"ab", "cd"}, Two{"ab", "cx"}).elements.size() == 2);
    static_assert(NestedBatchUpdate(nestedExtendedDiff(Two{"ab", "cd"}, Two{"cd", "ab"})).sectionMoves.size() == 1);
}

/// The slow way: the sections by an extended diff, and each that is on its path by one of its own.
Elements byHand(const Sections& source, const Sections& target, auto isEqualSection) {
    Elements elements;
    for (const auto element : extendedDiff(source, target, isEqualSection)) {
        using Kind = ExtendedDiff::Element::Kind;
        elements.push_back(element.kind() == Kind::move       ? NXE::moveSection(element.from(), element.to())
                           : element.kind() == Kind::deletion ? NXE::deleteSection(element.at())
                                                              : NXE::insertSection(element.at()));
    }
    for (const Trace& trace : diffTraces(source, target, isEqualSection)) {
        if (!trace.isMatch()) {
            continue;
        }
        const Index x = trace.from.x;
        const Index y = trace.from.y;
        const auto items = extendedDiff(source[static_cast<std::size_t>(x)], target[static_cast<std::size_t>(y)]);
        for (const auto element : items) {
            using Kind = ExtendedDiff::Element::Kind;
            elements.push_back(element.kind() == Kind::move ? NXE::moveElement({element.from(), x}, {element.to(), y})
                               : element.kind() == Kind::deletion ? NXE::deleteElement(element.at(), x)
                                                                  : NXE::insertElement(element.at(), y));
        }
    }
    return elements;
}

Sections randomSections(Random& random, int names) {
    Sections sections(static_cast<std::size_t>(upTo(random, 8)));
    for (std::string& section : sections) {
        section = static_cast<char>('A' + upTo(random, names - 1)) + randomWord(random, 8, 4);
    }
    return sections;
}

TEST(NestedExtendedDiffProperties, isTheSectionsDiffAndOneOfEachSectionOnItsPath) {
    Random random(34);
    for (int round = 0; round < 1500; ++round) {
        const int names = 1 + upTo(random, 6);
        const Sections source = randomSections(random, names);
        const Sections target = randomSections(random, names);
        ASSERT_EQ(nestedExtendedDiff(source, target, sameName).elements, byHand(source, target, sameName));
        ASSERT_EQ(nestedExtendedDiff(source, target).elements, byHand(source, target, Equality{}));
    }
}

TEST(NestedExtendedDiffProperties, withItsMovesTakenApartIsTheNestedDiff) {
    Random random(35);
    for (int round = 0; round < 1000; ++round) {
        const Sections source = randomSections(random, 4);
        const Sections target = randomSections(random, 4);
        std::vector<NestedDiff::Element> plain = nestedDiff(source, target, sameName).elements;
        std::vector<NestedDiff::Element> apart;
        using P = NestedDiff::Element;
        for (const NXE& element : nestedExtendedDiff(source, target, sameName).elements) {
            const IndexPath from = element.from();
            const IndexPath to = element.to();
            switch (element.kind()) {
            case NXE::Kind::moveSection:
                apart.push_back(P::insertSection(to.section));
                [[fallthrough]];
            case NXE::Kind::deleteSection:
                apart.push_back(P::deleteSection(from.section));
                break;
            case NXE::Kind::insertSection:
                apart.push_back(P::insertSection(to.section));
                break;
            case NXE::Kind::moveElement:
                apart.push_back(P::insertElement(to.item, to.section));
                [[fallthrough]];
            case NXE::Kind::deleteElement:
                apart.push_back(P::deleteElement(from.item, from.section));
                break;
            case NXE::Kind::insertElement:
                apart.push_back(P::insertElement(to.item, to.section));
                break;
            }
        }
        const auto key = [](const P& element) { return std::tuple(element.kind(), element.section(), element.item()); };
        std::ranges::sort(plain, {}, key);
        std::ranges::sort(apart, {}, key);
        ASSERT_EQ(apart, plain);
    }
}

TEST(NestedExtendedDiff, elementsTellTheirPlaces) {
    EXPECT_EQ(NXE::deleteSection(3).at(), (IndexPath{0, 3}));
    EXPECT_EQ(NXE::insertElement(1, 2).at(), (IndexPath{1, 2}));
    EXPECT_EQ(NXE::moveSection(4, 5).from().section, 4);
    EXPECT_EQ(NXE::moveSection(4, 5).to().section, 5);
    EXPECT_EQ(NXE::moveElement({1, 2}, {3, 4}).from(), (IndexPath{1, 2}));
    EXPECT_EQ(NXE::moveElement({1, 2}, {3, 4}).to(), (IndexPath{3, 4}));
    EXPECT_NE(NXE::deleteSection(3), NXE::insertSection(3));
}

} // namespace
