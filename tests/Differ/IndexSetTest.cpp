#include "Support.h"

namespace {

using namespace DifferTest;

static_assert(IndexSet{3, 1, 3}.size() == 2 && IndexSet{3, 1}.contains(1) && !IndexSet{3, 1}.contains(2));

TEST(IndexSet, holdsEachPositionOnceInRisingOrder) {
    IndexSet set{5, 1, 5, 3};
    set.insert(3);
    set.insert(-2);
    EXPECT_EQ(std::vector<Index>(set.begin(), set.end()), (std::vector<Index>{-2, 1, 3, 5}));
    EXPECT_EQ(set.size(), 4U);
    EXPECT_FALSE(set.empty());
}

TEST(IndexSet, equalSetsAreEqualWhateverTheOrder) {
    EXPECT_EQ((IndexSet{1, 2, 3}), (IndexSet{3, 2, 1}));
    EXPECT_NE((IndexSet{1, 2}), (IndexSet{1, 2, 3}));
    EXPECT_TRUE(IndexSet{}.empty());
}

} // namespace
