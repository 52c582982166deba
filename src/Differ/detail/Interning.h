#pragma once

#include "Differ/Concepts.h"
#include "Differ/detail/Indexed.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace Differ::detail {

/// Whether a number can stand for each element: both sides hold the same type, it has a hash, and it stays where it is.
/// Letters and other bytes are left as they are: there are so few of them that all occur on both sides.
template <class Source, class Target, class IsEqual>
concept Internable =
    std::same_as<IsEqual, Equality> &&
    std::same_as<std::ranges::range_value_t<Source>, std::ranges::range_value_t<Target>> &&
    !(std::is_scalar_v<std::ranges::range_value_t<Source>> && sizeof(std::ranges::range_value_t<Source>) == 1) &&
    std::is_lvalue_reference_v<std::ranges::range_reference_t<Source>> &&
    std::is_lvalue_reference_v<std::ranges::range_reference_t<Target>> &&
    requires(const std::ranges::range_value_t<Source>& element) {
    { std::hash<std::ranges::range_value_t<Source>>{}(element) } -> std::convertible_to<std::size_t>;
};

/// Four bytes each, so that the numbers of both sides stay in the nearest cache.
using ElementNumber = std::int32_t;

/// How many elements can be numbered.
inline constexpr Index mostNumbers = std::numeric_limits<ElementNumber>::max();

/// Gives equal elements the same number and unequal ones different numbers, so that the search compares numbers instead
/// of texts. Elements have to live as long as this does; there may be up to mostNumbers of them.
template <class Element>
class Interning {
public:
    explicit Interning(Index mostElements) {
        std::size_t size = 16;
        while (size < 2 * static_cast<std::size_t>(mostElements)) {
            size *= 2;
        }
        slots.assign(size, Slot{});
    }

    [[nodiscard]] ElementNumber number(const Element& element) {
        const std::size_t hash = std::hash<Element>{}(element)*0x9e3779b97f4a7c15ULL;
        const std::size_t mask = slots.size() - 1;
        std::size_t place = (hash >> 32U) & mask;
        while (slots[place].element != nullptr) {
            if (slots[place].hash == hash && *slots[place].element == element) {
                return slots[place].number;
            }
            place = (place + 1) & mask;
        }
        slots[place] = {std::addressof(element), hash, count};
        return count++;
    }
    /// How many numbers there are by now; they run from 0.
    [[nodiscard]] ElementNumber distinct() const { return count; }

private:
    struct Slot {
        const Element* element = nullptr;
        std::size_t hash = 0;
        ElementNumber number = 0;
    };
    std::vector<Slot> slots; ///< open addressing, a power of two, never more than half full
    ElementNumber count = 0;
};

/// The numbers of both sides from `first` on.
struct InternedSides {
    std::vector<ElementNumber> source;
    std::vector<ElementNumber> target;
    ElementNumber distinct = 0; ///< all numbers are below

    template <class Source, class Target>
    InternedSides(const Indexed<Source>& from, const Indexed<Target>& to, Index first) {
        Interning<std::ranges::range_value_t<Source>> numbers(checkedSum(from.count() - first, to.count() - first));
        source = numbersOf(from, first, numbers);
        target = numbersOf(to, first, numbers);
        distinct = numbers.distinct();
    }

private:
    template <class Side, class Numbers>
    static std::vector<ElementNumber> numbersOf(const Side& side, Index first, Numbers& numbers) {
        std::vector<ElementNumber> result;
        result.reserve(static_cast<std::size_t>(side.count() - first));
        for (Index at = first; at < side.count(); ++at) {
            result.push_back(numbers.number(side[at]));
        }
        return result;
    }
};

} // namespace Differ::detail
