#pragma once

#include "Differ/Point.h"

#include <algorithm>
#include <vector>

namespace Differ::detail {

/// The places of the elements in the order of the predicate; those that it doesn't tell apart keep their own. A merge
/// sort of our own, because the predicate is a stranger's: std::stable_sort may do anything when its answers contradict
/// each other, and this one only gives some order.
template <class Element, class IsBefore>
constexpr std::vector<Index> orderOf(const std::vector<Element>& elements, IsBefore isBefore) {
    const auto count = static_cast<Index>(elements.size());
    std::vector<Index> order;
    for (Index place = 0; place < count; ++place) {
        order.push_back(place);
    }
    std::vector<Index> merged(order);
    for (Index width = 1; width < count; width *= 2) {
        for (Index start = 0; start < count; start += 2 * width) {
            auto left = order.begin() + start;
            const auto leftEnd = order.begin() + std::min(start + width, count);
            auto right = leftEnd;
            const auto rightEnd = order.begin() + std::min(start + 2 * width, count);
            auto out = merged.begin() + start;
            while (left != leftEnd && right != rightEnd) {
                const bool isRightFirst = static_cast<bool>(
                    isBefore(elements[static_cast<std::size_t>(*right)], elements[static_cast<std::size_t>(*left)]));
                *out++ = isRightFirst ? *right++ : *left++;
            }
            std::copy(right, rightEnd, std::copy(left, leftEnd, out));
        }
        order.swap(merged);
    }
    return order;
}

} // namespace Differ::detail
