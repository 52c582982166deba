#pragma once

#include "Differ/Concepts.h"
#include "Differ/detail/Checked.h"

#include <vector>

namespace Differ::detail {

/// Access by position to any sequence, in constant time: one without random access is walked once, and its iterators
/// are kept. It refers to the sequence and must not outlive it.
template <Sequence R>
class Indexed {
    using Iterator = std::ranges::iterator_t<R>;
    static constexpr bool isDirect = std::ranges::random_access_range<R>;

public:
    constexpr explicit Indexed(R& range) {
        if constexpr (isDirect) {
            place = std::ranges::begin(range);
            length = checkedCount(std::ranges::distance(range));
        } else {
            const auto end = std::ranges::end(range);
            for (Iterator at = std::ranges::begin(range); at != end; ++at) {
                place.push_back(at);
            }
            length = static_cast<Index>(place.size());
        }
    }

    [[nodiscard]] constexpr Index count() const { return length; }

    constexpr decltype(auto) operator[](Index position) const {
        if constexpr (isDirect) {
            return place[static_cast<std::iter_difference_t<Iterator>>(position)];
        } else {
            return *place[static_cast<std::size_t>(position)];
        }
    }

    /// The same for a position that comes from outside; one that the sequence doesn't have ends the process.
    constexpr decltype(auto) at(Index position) const {
        if (position < 0 || position >= length) {
            fatalError("Differ/Diff");
        }
        return (*this)[position];
    }

private:
    std::conditional_t<isDirect, Iterator, std::vector<Iterator>> place{};
    Index length = 0;
};

template <class R>
Indexed(R&) -> Indexed<R>;

} // namespace Differ::detail
