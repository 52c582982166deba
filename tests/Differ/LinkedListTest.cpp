#include "Support.h"

namespace {

using namespace DifferTest;

/// Both lists are tried alike.
template <class List>
class LinkedLists : public testing::Test {};
using Lists = testing::Types<LinkedList<int>, DoublyLinkedList<int>>;
TYPED_TEST_SUITE(LinkedLists, Lists);

TYPED_TEST(LinkedLists, noValuesMakeNoList) {
    EXPECT_EQ(TypeParam::make(std::vector<int>{}), nullptr);
}

TYPED_TEST(LinkedLists, areSequencesOfTheirValues) {
    const std::vector<int> values{3, 1, 2};
    const auto list = TypeParam::make(values);
    EXPECT_EQ(std::vector<int>(list->begin(), list->end()), values);
    const TypeParam& constant = *list;
    EXPECT_TRUE(std::ranges::equal(constant, values));
    static_assert(std::ranges::forward_range<TypeParam> && std::ranges::forward_range<const TypeParam>);
}

TYPED_TEST(LinkedLists, valuesCanBeChangedThroughThem) {
    const auto list = TypeParam::make(std::vector<int>{1, 2});
    for (int& value : *list) {
        value *= 10;
    }
    EXPECT_EQ(list->value, 10);
    EXPECT_EQ(list->next->value, 20);
    EXPECT_EQ(list->next->next, nullptr);
}

TYPED_TEST(LinkedLists, aLongListFreesItselfWithoutDeepRecursion) {
    std::weak_ptr<TypeParam> last;
    {
        const auto list = TypeParam::make(std::vector<int>(1000000, 7));
        auto node = list;
        while (node->next) {
            node = node->next;
        }
        last = node;
        EXPECT_FALSE(last.expired());
    }
    EXPECT_TRUE(last.expired());
}

TYPED_TEST(LinkedLists, whoHoldsANodeHoldsTheRest) {
    auto list = TypeParam::make(std::vector<int>{1, 2, 3});
    const std::weak_ptr<TypeParam> head = list;
    const auto second = list->next;
    list.reset();
    EXPECT_TRUE(head.expired());
    EXPECT_EQ(std::vector<int>(second->begin(), second->end()), (std::vector<int>{2, 3}));
}

TEST(DoublyLinkedList, leadsBackFromEachNodeToTheOneBefore) {
    const auto list = DoublyLinkedList<int>::make(std::vector<int>{1, 2, 3});
    EXPECT_EQ(list->previous.lock(), nullptr);
    EXPECT_EQ(list->next->previous.lock(), list);
    EXPECT_EQ(list->next->next->previous.lock(), list->next);
}

TEST(DoublyLinkedList, theWayBackKeepsNothingAlive) {
    auto list = DoublyLinkedList<int>::make(std::vector<int>{1, 2});
    const auto second = list->next;
    EXPECT_EQ(list.use_count(), 1);
    list.reset();
    EXPECT_TRUE(second->previous.expired());
    EXPECT_EQ(second->value, 2);
}

} // namespace
