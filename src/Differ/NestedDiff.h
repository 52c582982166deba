#pragma once

#include "Differ/detail/KeptSections.h"
#include "Differ/IndexPath.h"

namespace Differ {

/// What nestedDiff() gives: the differences of the sections in path order, then those of the items of one kept section
/// after the other.
class NestedDiff {
public:
    class Element {
    public:
        enum class Kind { deleteSection, insertSection, deleteElement, insertElement };

        /// The position in the source.
        [[nodiscard]] static constexpr Element deleteSection(Index section) {
            return {Kind::deleteSection, {0, section}};
        }
        /// The position in the target.
        [[nodiscard]] static constexpr Element insertSection(Index section) {
            return {Kind::insertSection, {0, section}};
        }
        /// Item and section in the source.
        [[nodiscard]] static constexpr Element deleteElement(Index item, Index section) {
            return {Kind::deleteElement, {item, section}};
        }
        /// Item and section in the target.
        [[nodiscard]] static constexpr Element insertElement(Index item, Index section) {
            return {Kind::insertElement, {item, section}};
        }

        [[nodiscard]] constexpr Kind kind() const { return what; }
        [[nodiscard]] constexpr Index section() const { return path.section; }
        /// Of an item; 0 for a section.
        [[nodiscard]] constexpr Index item() const { return path.item; }

        friend constexpr bool operator==(const Element&, const Element&) = default;

    private:
        constexpr Element(Kind kind, IndexPath place) : what(kind), path(place) {}

        Kind what;
        IndexPath path;
    };

    friend constexpr bool operator==(const NestedDiff&, const NestedDiff&) = default;

    std::vector<Element> elements;
};

/// Compares two sequences of sections: first the sections, then the items of each pair of sections that remains. A
/// predicate that is left out, or given as Equality{}, is `==`:
///
///     nestedDiff(a, b)                                  sections and items by ==
///     nestedDiff(a, b, isEqualSection)                  items by ==
///     nestedDiff(a, b, Equality{}, isEqualElement)      sections by ==
///     nestedDiff(a, b, isEqualSection, isEqualElement)
///
/// Sections that are equal by `==` of all their items have no differing items, of course; a title or an identifier is
/// what `isEqualSection` usually compares. Costs one diff() of the sections and one of each kept section's items.
template <NestedSequence Source, NestedSequence Target, class IsEqualSection = Equality,
          class IsEqualElement = Equality>
requires ElementPredicate<IsEqualSection, Source, Target> && ItemPredicate<IsEqualElement, Source, Target>
constexpr NestedDiff nestedDiff(Source&& source, Target&& target, IsEqualSection isEqualSection = {},
                                IsEqualElement isEqualElement = {}) {
    using Element = NestedDiff::Element;
    NestedDiff result;
    const Diff sections = diff(source, target, isEqualSection);
    for (const Diff::Element element : sections) {
        result.elements.push_back(element.isDeletion() ? Element::deleteSection(element.at())
                                                       : Element::insertSection(element.at()));
    }
    detail::forEachKeptSection(sections, source, target, [&](auto&& from, Index x, auto&& to, Index y) {
        for (const Diff::Element element : diff(from, to, isEqualElement)) {
            result.elements.push_back(element.isDeletion() ? Element::deleteElement(element.at(), x)
                                                           : Element::insertElement(element.at(), y));
        }
    });
    return result;
}

} // namespace Differ
