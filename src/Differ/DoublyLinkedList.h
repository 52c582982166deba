#pragma once

#include "Differ/LinkedList.h"

namespace Differ {

/// A node and all that follow it, with the way back. Ownership runs forward only: `previous` keeps nothing alive and is
/// empty once its node is gone, so that a list frees itself from its head.
template <class T>
class DoublyLinkedList final {
public:
    explicit DoublyLinkedList(T first) : value(std::move(first)) {}
    DoublyLinkedList(const DoublyLinkedList&) = delete;
    DoublyLinkedList& operator=(const DoublyLinkedList&) = delete;
    ~DoublyLinkedList() { detail::releaseChain(std::move(next)); }

    /// A list of the values in their order; null for none.
    template <std::ranges::input_range Values>
    [[nodiscard]] static std::shared_ptr<DoublyLinkedList> make(Values&& values) {
        std::shared_ptr<DoublyLinkedList> head;
        std::shared_ptr<DoublyLinkedList> last;
        for (auto&& value : values) {
            auto node = std::make_shared<DoublyLinkedList>(value);
            node->previous = last;
            (last ? last->next : head) = node;
            last = std::move(node);
        }
        return head;
    }

    [[nodiscard]] auto begin() { return LinkedListIterator<DoublyLinkedList>(this); }
    [[nodiscard]] auto end() { return LinkedListIterator<DoublyLinkedList>(); }
    [[nodiscard]] auto begin() const { return LinkedListIterator<const DoublyLinkedList>(this); }
    [[nodiscard]] auto end() const { return LinkedListIterator<const DoublyLinkedList>(); }

    std::shared_ptr<DoublyLinkedList> next;   ///< null at the end
    std::weak_ptr<DoublyLinkedList> previous; ///< empty at the head
    T value;
};

} // namespace Differ
