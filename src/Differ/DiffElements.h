#pragma once

#include "Differ/Concepts.h"
#include "Differ/detail/DebugText.h"

#include <initializer_list>
#include <utility>
#include <vector>

namespace Differ {

/// What diff() gives. Positions are absolute: a deletion counts in the untouched source and an insertion in the
/// finished target, so that a reader walks both side by side and shifts nothing.
class Diff {
public:
    class Element {
    public:
        enum class Kind { insertion, deletion };

        /// `at` is the position in the target.
        [[nodiscard]] static constexpr Element insertAt(Index at) { return {Kind::insertion, at}; }
        /// `at` is the position in the source.
        [[nodiscard]] static constexpr Element deleteAt(Index at) { return {Kind::deletion, at}; }

        [[nodiscard]] constexpr Kind kind() const { return what; }
        [[nodiscard]] constexpr Index at() const { return place; }
        [[nodiscard]] constexpr bool isInsertion() const { return what == Kind::insertion; }
        [[nodiscard]] constexpr bool isDeletion() const { return what == Kind::deletion; }
        /// "I(3)", "D(3)".
        [[nodiscard]] constexpr std::string debugText() const {
            return detail::debugText(isInsertion() ? 'I' : 'D', place);
        }

        friend constexpr bool operator==(const Element&, const Element&) = default;

    private:
        constexpr Element(Kind kind, Index at) : what(kind), place(at) {}

        Kind what;
        Index place;
    };
    using DiffElementType = Element;

    constexpr Diff() = default;
    constexpr Diff(std::initializer_list<Element> list) : elements(list) {}
    constexpr explicit Diff(std::vector<Element> list) : elements(std::move(list)) {}

    [[nodiscard]] constexpr auto begin() const { return elements.begin(); }
    [[nodiscard]] constexpr auto end() const { return elements.end(); }
    [[nodiscard]] constexpr std::size_t size() const { return elements.size(); }
    [[nodiscard]] constexpr bool empty() const { return elements.empty(); }
    [[nodiscard]] constexpr const Element& operator[](Index at) const { return elements[static_cast<std::size_t>(at)]; }

    friend constexpr bool operator==(const Diff&, const Diff&) = default;

    std::vector<Element> elements; ///< in path order: no element precedes one that lies before it in source or target
};

static_assert(DiffProtocol<Diff>);

} // namespace Differ
