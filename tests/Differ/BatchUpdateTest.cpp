#include "Support.h"

#include <unordered_set>

namespace {

using namespace DifferTest;
using Paths = std::vector<IndexPath>;

static_assert(BatchUpdate(extendedDiff("ab"sv, "ba"sv)).moves.size() == 1);

TEST(IndexPath, equalityAndHashUseBothFields) {
    const std::unordered_set<IndexPath> paths{{1, 2}, {2, 1}, {1, 2}, {1, 1}};
    EXPECT_EQ(paths.size(), 3U);
}

TEST(BatchUpdate, sortsTheElementsByKindInTheirOrder) {
    // M(3,0) D(0) I(2) D(5) I(5)
    const ExtendedDiff diff = extendedDiff("abcdef"sv, "dbxceg"sv);
    const BatchUpdate update(diff);
    Paths deletions;
    Paths insertions;
    for (const auto element : diff) {
        if (element.kind() == ExtendedDiff::Element::Kind::deletion) {
            deletions.push_back({element.at(), 0});
        } else if (element.kind() == ExtendedDiff::Element::Kind::insertion) {
            insertions.push_back({element.at(), 0});
        }
    }
    EXPECT_EQ(update.deletions, deletions);
    EXPECT_EQ(update.deletions, (Paths{{0, 0}, {5, 0}}));
    EXPECT_EQ(update.insertions, insertions);
    EXPECT_EQ(update.insertions, (Paths{{2, 0}, {5, 0}}));
    EXPECT_EQ(update.moves, (std::vector<BatchUpdate::MoveStep>{{{3, 0}, {0, 0}}}));
}

TEST(BatchUpdate, ofAnEmptyDiffIsEmpty) {
    EXPECT_TRUE(BatchUpdate(ExtendedDiff{}).empty());
    EXPECT_EQ(BatchUpdate(ExtendedDiff{}), BatchUpdate{});
    EXPECT_FALSE(BatchUpdate(extendedDiff(""sv, "a"sv)).empty());
    EXPECT_FALSE(BatchUpdate(extendedDiff("a"sv, ""sv)).empty());
    EXPECT_FALSE(BatchUpdate(extendedDiff("ab"sv, "ba"sv)).empty());
}

TEST(BatchUpdate, everyPositionPassesThroughTheTransform) {
    const auto below = [](IndexPath path) { return IndexPath{path.item + 10, 7}; };
    const BatchUpdate update(extendedDiff("abcdef"sv, "dbxceg"sv), below);
    EXPECT_EQ(update.deletions, (Paths{{10, 7}, {15, 7}}));
    EXPECT_EQ(update.insertions, (Paths{{12, 7}, {15, 7}}));
    EXPECT_EQ(update.moves, (std::vector<BatchUpdate::MoveStep>{{{13, 7}, {10, 7}}}));
}

/// All at once, as a view does it: what goes is taken out by the places before, what comes is put in by those after.
std::string appliedAtOnce(const BatchUpdate& update, const std::string& source, const std::string& target) {
    std::vector<bool> leaves(source.size());
    std::map<Index, char> comes;
    for (const IndexPath& path : update.deletions) {
        leaves[static_cast<std::size_t>(path.item)] = true;
    }
    for (const IndexPath& path : update.insertions) {
        comes[path.item] = target[static_cast<std::size_t>(path.item)];
    }
    for (const BatchUpdate::MoveStep& move : update.moves) {
        leaves[static_cast<std::size_t>(move.from.item)] = true;
        comes[move.to.item] = source[static_cast<std::size_t>(move.from.item)];
    }
    std::string result;
    for (std::size_t place = 0; place < source.size(); ++place) {
        if (!leaves[place]) {
            result += source[place];
        }
    }
    for (const auto& [place, letter] : comes) {
        result.insert(static_cast<std::size_t>(place), 1, letter);
    }
    return result;
}

TEST(BatchUpdateProperties, allItsChangesAtOnceGiveTheTarget) {
    Random random(36);
    for (int round = 0; round < 1000; ++round) {
        const int letters = 1 + upTo(random, 12);
        const std::string source = randomWord(random, 40, letters);
        const std::string target = edited(random, source, upTo(random, 25), letters);
        const BatchUpdate update(extendedDiff(source, target));
        ASSERT_EQ(appliedAtOnce(update, source, target), target) << source;
        ASSERT_EQ(update.empty(), source == target);
    }
}

TEST(BatchUpdateProperties, noPlaceIsNamedTwice) {
    Random random(37);
    for (int round = 0; round < 500; ++round) {
        const std::string source = randomWord(random, 40, 4);
        const BatchUpdate update(extendedDiff(source, edited(random, source, upTo(random, 25), 4)));
        std::unordered_set<IndexPath> before(update.deletions.begin(), update.deletions.end());
        std::unordered_set<IndexPath> after(update.insertions.begin(), update.insertions.end());
        for (const BatchUpdate::MoveStep& move : update.moves) {
            before.insert(move.from);
            after.insert(move.to);
        }
        ASSERT_EQ(before.size(), update.deletions.size() + update.moves.size());
        ASSERT_EQ(after.size(), update.insertions.size() + update.moves.size());
    }
}

TEST(BatchUpdate, theTransformIsAskedOnceForEachPosition) {
    int asked = 0;
    const auto counting = [&](IndexPath path) {
        ++asked;
        return path;
    };
    const BatchUpdate update(extendedDiff("abcdef"sv, "dbxceg"sv), counting); // M(3,0) D(0) I(2) D(5) I(5)
    EXPECT_EQ(asked, 6);
    EXPECT_EQ(update, BatchUpdate(extendedDiff("abcdef"sv, "dbxceg"sv)));
}

using NXE = NestedExtendedDiff::Element;

NestedExtendedDiff everyKind() {
    NestedExtendedDiff diff;
    diff.elements = {NXE::deleteSection(4),    NXE::insertSection(5),    NXE::moveSection(0, 2),
                     NXE::deleteElement(1, 3), NXE::insertElement(2, 3), NXE::moveElement({1, 2}, {3, 4}),
                     NXE::deleteSection(1),    NXE::insertElement(0, 0)};
    return diff;
}

TEST(NestedBatchUpdate, sortsTheElementsByKind) {
    const NestedBatchUpdate update(everyKind());
    EXPECT_EQ(update.itemDeletions, (Paths{{1, 3}}));
    EXPECT_EQ(update.itemInsertions, (Paths{{2, 3}, {0, 0}}));
    EXPECT_EQ(update.itemMoves, (std::vector<NestedBatchUpdate::ItemMove>{{{1, 2}, {3, 4}}}));
    EXPECT_EQ(update.sectionDeletions, (IndexSet{1, 4}));
    EXPECT_EQ(update.sectionInsertions, (IndexSet{5}));
    EXPECT_EQ(update.sectionMoves, (std::vector<NestedBatchUpdate::SectionMove>{{0, 2}}));
}

TEST(NestedBatchUpdate, itemsAndSectionsPassThroughTheirOwnTransform) {
    const auto path = [](IndexPath place) { return IndexPath{place.item * 10, place.section * 100}; };
    const auto section = [](Index number) { return number + 1; };
    const NestedBatchUpdate update(everyKind(), path, section);
    EXPECT_EQ(update.itemDeletions, (Paths{{10, 300}}));
    EXPECT_EQ(update.itemInsertions, (Paths{{20, 300}, {0, 0}}));
    EXPECT_EQ(update.itemMoves, (std::vector<NestedBatchUpdate::ItemMove>{{{10, 200}, {30, 400}}}));
    EXPECT_EQ(update.sectionDeletions, (IndexSet{2, 5}));
    EXPECT_EQ(update.sectionInsertions, (IndexSet{6}));
    EXPECT_EQ(update.sectionMoves, (std::vector<NestedBatchUpdate::SectionMove>{{1, 3}}));
}

TEST(NestedBatchUpdate, ofAnEmptyDiffIsEmpty) {
    EXPECT_EQ(NestedBatchUpdate(NestedExtendedDiff{}), NestedBatchUpdate{});
}

} // namespace
