#pragma once

#include "Differ/detail/KeptSections.h"
#include "Differ/ExtendedDiff.h"
#include "Differ/IndexPath.h"

namespace Differ {

/// What nestedExtendedDiff() gives: the differences of the sections as an extended diff has them, then those of the
/// items of one kept section after the other.
class NestedExtendedDiff {
public:
    class Element {
    public:
        enum class Kind { deleteSection, insertSection, moveSection, deleteElement, insertElement, moveElement };

        /// The position in the source.
        [[nodiscard]] static constexpr Element deleteSection(Index section) {
            return {Kind::deleteSection, {0, section}, {0, section}};
        }
        /// The position in the target.
        [[nodiscard]] static constexpr Element insertSection(Index section) {
            return {Kind::insertSection, {0, section}, {0, section}};
        }
        /// The positions in the source and in the target.
        [[nodiscard]] static constexpr Element moveSection(Index from, Index to) {
            return {Kind::moveSection, {0, from}, {0, to}};
        }
        /// Item and section in the source.
        [[nodiscard]] static constexpr Element deleteElement(Index item, Index section) {
            return {Kind::deleteElement, {item, section}, {item, section}};
        }
        /// Item and section in the target.
        [[nodiscard]] static constexpr Element insertElement(Index item, Index section) {
            return {Kind::insertElement, {item, section}, {item, section}};
        }
        /// Item and section in the source, and in the target.
        [[nodiscard]] static constexpr Element moveElement(IndexPath from, IndexPath to) {
            return {Kind::moveElement, from, to};
        }

        [[nodiscard]] constexpr Kind kind() const { return what; }
        /// The place of an insertion or a deletion; `item` is 0 for a section.
        [[nodiscard]] constexpr IndexPath at() const { return first; }
        /// Where a move starts, in the source.
        [[nodiscard]] constexpr IndexPath from() const { return first; }
        /// Where a move ends, in the target.
        [[nodiscard]] constexpr IndexPath to() const { return second; }

        friend constexpr bool operator==(const Element&, const Element&) = default;

    private:
        constexpr Element(Kind kind, IndexPath a, IndexPath b) : what(kind), first(a), second(b) {}

        Kind what;
        IndexPath first;
        IndexPath second;
    };

    friend constexpr bool operator==(const NestedExtendedDiff&, const NestedExtendedDiff&) = default;

    std::vector<Element> elements;
};

namespace detail {

constexpr NestedExtendedDiff::Element sectionElement(ExtendedDiff::Element element) {
    using Element = NestedExtendedDiff::Element;
    switch (element.kind()) {
    case ExtendedDiff::Element::Kind::insertion:
        return Element::insertSection(element.at());
    case ExtendedDiff::Element::Kind::deletion:
        return Element::deleteSection(element.at());
    default:
        return Element::moveSection(element.from(), element.to());
    }
}

/// x is the section's position in the source, y that in the target.
constexpr NestedExtendedDiff::Element itemElement(ExtendedDiff::Element element, Index x, Index y) {
    using Element = NestedExtendedDiff::Element;
    switch (element.kind()) {
    case ExtendedDiff::Element::Kind::insertion:
        return Element::insertElement(element.at(), y);
    case ExtendedDiff::Element::Kind::deletion:
        return Element::deleteElement(element.at(), x);
    default:
        return Element::moveElement({element.from(), x}, {element.to(), y});
    }
}

} // namespace detail

/// nestedDiff() with moves: of sections, and of items within a section that remains on the path. The items of a moved
/// section are not compared, so a section that moves and changes at once has to be unequal by `isEqualSection`, or its
/// items refreshed by the caller. Items don't move from one section to another.
template <NestedSequence Source, NestedSequence Target, class IsEqualSection = Equality,
          class IsEqualElement = Equality>
requires ElementPredicate<IsEqualSection, Source, Target> && ItemPredicate<IsEqualElement, Source, Target>
constexpr NestedExtendedDiff nestedExtendedDiff(Source&& source, Target&& target, IsEqualSection isEqualSection = {},
                                                IsEqualElement isEqualElement = {}) {
    NestedExtendedDiff result;
    const ExtendedDiff sections = extendedDiff(source, target, isEqualSection);
    for (const ExtendedDiff::Element element : sections) {
        result.elements.push_back(detail::sectionElement(element));
    }
    detail::forEachKeptSection(sections.source, source, target, [&](auto&& from, Index x, auto&& to, Index y) {
        for (const ExtendedDiff::Element element : extendedDiff(from, to, isEqualElement)) {
            result.elements.push_back(detail::itemElement(element, x, y));
        }
    });
    return result;
}

} // namespace Differ
