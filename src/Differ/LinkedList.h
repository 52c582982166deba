#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <ranges>
#include <utility>

namespace Differ {

/// Walks the values of a linked list from a node to the end.
template <class Node>
class LinkedListIterator {
public:
    using value_type = std::remove_cv_t<decltype(Node::value)>;
    using difference_type = std::ptrdiff_t;
    using reference = std::conditional_t<std::is_const_v<Node>, const value_type&, value_type&>;
    using iterator_category = std::forward_iterator_tag;

    LinkedListIterator() = default;
    explicit LinkedListIterator(Node* start) : node(start) {}

    reference operator*() const { return node->value; }
    LinkedListIterator& operator++() {
        node = node->next.get();
        return *this;
    }
    LinkedListIterator operator++(int) { return std::exchange(*this, LinkedListIterator(node->next.get())); }
    friend bool operator==(const LinkedListIterator&, const LinkedListIterator&) = default;

private:
    Node* node = nullptr;
};

namespace detail {

/// Lets go of a chain one node after the other, so that its length doesn't become the depth of a recursion. Stops at
/// the first node that somebody else holds.
template <class Node>
void releaseChain(std::shared_ptr<Node> next) {
    while (next && next.use_count() == 1) {
        next = std::exchange(next->next, nullptr);
    }
}

} // namespace detail

/// A node and all that follow it. Whoever holds a node holds the rest of the list.
template <class T>
class LinkedList final {
public:
    explicit LinkedList(T first) : value(std::move(first)) {}
    LinkedList(const LinkedList&) = delete;
    LinkedList& operator=(const LinkedList&) = delete;
    ~LinkedList() { detail::releaseChain(std::move(next)); }

    /// A list of the values in their order; null for none.
    template <std::ranges::input_range Values>
    [[nodiscard]] static std::shared_ptr<LinkedList> make(Values&& values) {
        std::shared_ptr<LinkedList> head;
        std::shared_ptr<LinkedList>* end = &head;
        for (auto&& value : values) {
            *end = std::make_shared<LinkedList>(value);
            end = &(*end)->next;
        }
        return head;
    }

    [[nodiscard]] auto begin() { return LinkedListIterator<LinkedList>(this); }
    [[nodiscard]] auto end() { return LinkedListIterator<LinkedList>(); }
    [[nodiscard]] auto begin() const { return LinkedListIterator<const LinkedList>(this); }
    [[nodiscard]] auto end() const { return LinkedListIterator<const LinkedList>(); }

    std::shared_ptr<LinkedList> next; ///< null at the end
    T value;
};

} // namespace Differ
