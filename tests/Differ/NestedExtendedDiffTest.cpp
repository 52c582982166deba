#include "Support.h"

namespace {

using namespace DifferTest;
using E = NestedExtendedDiff::Element;
using Sections = std::vector<std::string>;

const auto sameName = [](const std::string& a, const std::string& b) { return a.substr(0, 1) == b.substr(0, 1); };
const auto sameLetter = [](char a, char b) { return std::tolower(a) == std::tolower(b); };
using Elements = std::vector<E>;

TEST(NestedExtendedDiff, equalCollectionsGiveNothing) {
    EXPECT_TRUE(nestedExtendedDiff(Sections{"ab", "cd"}, Sections{"ab", "cd"}).elements.empty());
}

TEST(NestedExtendedDiff, sectionsComeGoAndMove) {
    EXPECT_EQ(nestedExtendedDiff(Sections{"ab", "cd"}, Sections{"cd", "ab"}).elements,
              (Elements{E::moveSection(0, 1)}));
    EXPECT_EQ(nestedExtendedDiff(Sections{"ab"}, Sections{"cd"}).elements,
              (Elements{E::deleteSection(0), E::insertSection(0)}));
}

TEST(NestedExtendedDiff, itemsMoveWithinASectionThatRemains) {
    EXPECT_EQ(nestedExtendedDiff(Sections{"X", "Aabc"}, Sections{"Acab"}, sameName).elements,
              (Elements{E::deleteSection(0), E::moveElement({3, 1}, {1, 0})}));
}

TEST(NestedExtendedDiff, deletionsCarryTheSourcesSectionAndInsertionsTheTargets) {
    EXPECT_EQ(nestedExtendedDiff(Sections{"X", "Y", "Aab"}, Sections{"Aac"}, sameName).elements,
              (Elements{E::deleteSection(0), E::deleteSection(1), E::deleteElement(2, 2), E::insertElement(2, 0)}));
}

TEST(NestedExtendedDiff, itemsOfAMovedSectionAreNotCompared) {
    EXPECT_EQ(nestedExtendedDiff(Sections{"Aab", "B"}, Sections{"B", "Axy"}, sameName).elements,
              (Elements{E::moveSection(0, 1)}));
}

TEST(NestedExtendedDiff, anItemThatGoesToAnotherSectionDoesNotMove) {
    EXPECT_EQ(nestedExtendedDiff(Sections{"Ax", "B"}, Sections{"A", "Bx"}, sameName).elements,
              (Elements{E::deleteElement(1, 0), E::insertElement(1, 1)}));
}

TEST(NestedExtendedDiff, itemsByAPredicate) {
    EXPECT_TRUE(nestedExtendedDiff(Sections{"Aab"}, Sections{"AAB"}, sameName, sameLetter).elements.empty());
    EXPECT_EQ(nestedExtendedDiff(Sections{"ab", "c"}, Sections{"c", "ab"}, Equality{}, sameLetter).elements,
              (Elements{E::moveSection(0, 1)}));
    EXPECT_EQ(nestedExtendedDiff(Sections{"Aab"}, Sections{"ABA"}, sameName, sameLetter).elements,
              (Elements{E::moveElement({1, 0}, {2, 0})}));
}

TEST(NestedExtendedDiff, elementsTellTheirPlaces) {
    EXPECT_EQ(E::deleteSection(3).at(), (IndexPath{0, 3}));
    EXPECT_EQ(E::insertElement(1, 2).at(), (IndexPath{1, 2}));
    EXPECT_EQ(E::moveSection(4, 5).from().section, 4);
    EXPECT_EQ(E::moveSection(4, 5).to().section, 5);
    EXPECT_EQ(E::moveElement({1, 2}, {3, 4}).from(), (IndexPath{1, 2}));
    EXPECT_EQ(E::moveElement({1, 2}, {3, 4}).to(), (IndexPath{3, 4}));
    EXPECT_NE(E::deleteSection(3), E::insertSection(3));
}

} // namespace
