#include "Support.h"

#include <list>

namespace {

using namespace DifferTest;
using NE = NestedDiff::Element;

std::string text(const NestedDiff& diff) {
    std::string result;
    for (const NE& element : diff.elements) {
        const std::string section = std::to_string(element.section());
        const std::string place = std::to_string(element.item()) + "," + section;
        switch (element.kind()) {
        case NE::Kind::deleteSection:
            result += "DS(" + section + ") ";
            break;
        case NE::Kind::insertSection:
            result += "IS(" + section + ") ";
            break;
        case NE::Kind::deleteElement:
            result += "DE(" + place + ") ";
            break;
        case NE::Kind::insertElement:
            result += "IE(" + place + ") ";
            break;
        }
    }
    return result;
}

/// Items leave and sections leave by the source's numbers; sections come and items come by the target's.
Sections applied(const NestedDiff& diff, Sections content, const Sections& target) {
    for (auto element = diff.elements.rbegin(); element != diff.elements.rend(); ++element) {
        if (element->kind() == NE::Kind::deleteElement) {
            content[static_cast<std::size_t>(element->section())].erase(static_cast<std::size_t>(element->item()), 1);
        }
    }
    for (auto element = diff.elements.rbegin(); element != diff.elements.rend(); ++element) {
        if (element->kind() == NE::Kind::deleteSection) {
            content.erase(content.begin() + element->section());
        }
    }
    for (const NE& element : diff.elements) {
        if (element.kind() == NE::Kind::insertSection) {
            content.insert(content.begin() + element.section(), target[static_cast<std::size_t>(element.section())]);
        }
    }
    for (const NE& element : diff.elements) {
        if (element.kind() == NE::Kind::insertElement) {
            const auto section = static_cast<std::size_t>(element.section());
            const auto item = static_cast<std::size_t>(element.item());
            content[section].insert(item, 1, target[section][item]);
        }
    }
    return content;
}

Sections randomSections(Random& random) {
    Sections sections(static_cast<std::size_t>(upTo(random, 6)));
    for (std::string& section : sections) {
        section = static_cast<char>('A' + upTo(random, 3)) + randomWord(random, 6, 3);
    }
    return sections;
}

TEST(NestedDiff, equalCollectionsGiveNothing) {
    EXPECT_TRUE(nestedDiff(Sections{"ab", "cd"}, Sections{"ab", "cd"}).elements.empty());
    EXPECT_TRUE(nestedDiff(Sections{}, Sections{}).elements.empty());
}

TEST(NestedDiff, byEqualityOfSectionsAndItemsAChangedSectionIsReplaced) {
    EXPECT_EQ(text(nestedDiff(Sections{"ab", "cd"}, Sections{"ab", "cx"})), "DS(1) IS(1) ");
}

TEST(NestedDiff, itemsOfSectionsThatRemainAreCompared) {
    EXPECT_EQ(text(nestedDiff(Sections{"Aab", "Bcd"}, Sections{"Aab", "Bcx"}, sameName)), "DE(2,1) IE(2,1) ");
}

TEST(NestedDiff, deletionsCarryTheSourcesSectionAndInsertionsTheTargets) {
    EXPECT_EQ(text(nestedDiff(Sections{"X", "Y", "Aab"}, Sections{"Aac"}, sameName)), "DS(0) DS(1) DE(2,2) IE(2,0) ");
    EXPECT_EQ(text(nestedDiff(Sections{"Aab"}, Sections{"X", "Y", "Aac"}, sameName)), "IS(0) IS(1) DE(2,0) IE(2,2) ");
}

TEST(NestedDiff, ofSectionsThatComeOrGoNoItemIsTold) {
    EXPECT_EQ(text(nestedDiff(Sections{}, Sections{"abc"})), "IS(0) ");
    EXPECT_EQ(text(nestedDiff(Sections{"abc"}, Sections{})), "DS(0) ");
}

TEST(NestedDiff, itemsByAPredicateWithSectionsByEquality) {
    struct Named {
        std::string name;
        std::string items;
        auto begin() const { return items.begin(); }
        auto end() const { return items.end(); }
        bool operator==(const Named& other) const { return name == other.name; }
    };
    const std::vector<Named> source{{"one", "ab"}, {"two", "cd"}};
    const std::vector<Named> target{{"one", "AB"}, {"two", "Cx"}};
    EXPECT_EQ(text(nestedDiff(source, target, Equality{}, sameLetter)), "DE(1,1) IE(1,1) ");
    EXPECT_EQ(text(nestedDiff(source, target)), "DE(0,0) DE(1,0) IE(0,0) IE(1,0) DE(0,1) DE(1,1) IE(0,1) IE(1,1) ");
}

TEST(NestedDiff, bothPredicates) {
    EXPECT_EQ(text(nestedDiff(Sections{"Aab", "Bcd"}, Sections{"AAB", "BCx"}, sameName, sameLetter)),
              "DE(2,1) IE(2,1) ");
}

TEST(NestedDiff, anyForwardRangeOfForwardRangesWillDo) {
    const std::list<std::list<int>> source{{1, 2}, {3}};
    const std::vector<std::vector<int>> target{{1, 2, 4}, {3}};
    const auto sameFirst = [](const auto& a, const auto& b) { return a.front() == b.front(); };
    EXPECT_EQ(text(nestedDiff(source, target, sameFirst)), "IE(2,0) ");
}

TEST(NestedDiffProperties, applyingItGivesTheTarget) {
    Random random(14);
    for (int round = 0; round < 2000; ++round) {
        const Sections source = randomSections(random);
        const Sections target = randomSections(random);
        ASSERT_EQ(applied(nestedDiff(source, target), source, target), target);
        ASSERT_EQ(applied(nestedDiff(source, target, sameName), source, target), target);
    }
}

} // namespace
