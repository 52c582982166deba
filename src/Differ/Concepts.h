#pragma once

#include <concepts>
#include <iterator>
#include <ranges>
#include <type_traits>

namespace Differ {

/// What can be compared: any range that can be read more than once. Lists and generators' views do; a stream doesn't.
template <class R>
concept Sequence = std::ranges::forward_range<R>;

/// A sequence of sequences, such as the sections of a table.
template <class R>
concept NestedSequence = Sequence<R> && Sequence<std::ranges::range_reference_t<R>>;

/// A test of two elements, the source's first. It has to answer the same whenever it is asked about the same two.
template <class P, class Source, class Target>
concept ElementPredicate =
    std::predicate<P&, std::ranges::range_reference_t<Source>, std::ranges::range_reference_t<Target>>;

/// The same for the items of two sections.
template <class P, class Source, class Target>
concept ItemPredicate =
    ElementPredicate<P, std::ranges::range_reference_t<Source>, std::ranges::range_reference_t<Target>>;

/// The predicate where none is given: `==`.
struct Equality {
    template <class A, class B>
    constexpr bool operator()(const A& a, const B& b) const requires requires {
        { a == b } -> std::convertible_to<bool>;
    }
    { return static_cast<bool>(a == b); }
};

/// What the results of comparing have in common: they are ranges of their own `elements`.
template <class D>
concept DiffProtocol = std::ranges::random_access_range<D> && requires(const D& diff) {
    typename D::DiffElementType;
    requires std::ranges::random_access_range<decltype((diff.elements))>;
    requires std::same_as < std::ranges::range_value_t<decltype((diff.elements))>,
    typename D::DiffElementType > ;
    requires std::same_as < std::ranges::range_value_t<D>,
    typename D::DiffElementType > ;
};

} // namespace Differ
