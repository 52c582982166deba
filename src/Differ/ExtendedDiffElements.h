#pragma once

#include "Differ/DiffElements.h"
#include "Differ/IndexSet.h"

namespace Differ {

/// What extendedDiff() gives. Positions are absolute, as those of a Diff.
class ExtendedDiff {
public:
    class Element {
    public:
        enum class Kind { insertion, deletion, move };

        /// `at` is the position in the target.
        [[nodiscard]] static constexpr Element insertAt(Index at) { return {Kind::insertion, at, at}; }
        /// `at` is the position in the source.
        [[nodiscard]] static constexpr Element deleteAt(Index at) { return {Kind::deletion, at, at}; }
        /// `from` is the position in the source, `to` that in the target.
        [[nodiscard]] static constexpr Element move(Index from, Index to) { return {Kind::move, from, to}; }
        /// The same case of a plain diff's element.
        [[nodiscard]] static constexpr Element of(Diff::Element element) {
            return element.isInsertion() ? insertAt(element.at()) : deleteAt(element.at());
        }

        [[nodiscard]] constexpr Kind kind() const { return what; }
        /// The position of an insertion or a deletion.
        [[nodiscard]] constexpr Index at() const { return first; }
        /// Where a move starts, in the source.
        [[nodiscard]] constexpr Index from() const { return first; }
        /// Where a move ends, in the target.
        [[nodiscard]] constexpr Index to() const { return second; }
        /// "I(3)", "D(3)", "M(0,3)".
        [[nodiscard]] constexpr std::string debugText() const {
            if (what == Kind::move) {
                return detail::debugText('M', first, second);
            }
            return detail::debugText(what == Kind::insertion ? 'I' : 'D', first);
        }

        friend constexpr bool operator==(const Element&, const Element&) = default;

    private:
        constexpr Element(Kind kind, Index a, Index b) : what(kind), first(a), second(b) {}

        Kind what;
        Index first;
        Index second;
    };
    using DiffElementType = Element;

    [[nodiscard]] constexpr auto begin() const { return elements.begin(); }
    [[nodiscard]] constexpr auto end() const { return elements.end(); }
    [[nodiscard]] constexpr std::size_t size() const { return elements.size(); }
    [[nodiscard]] constexpr bool empty() const { return elements.empty(); }
    [[nodiscard]] constexpr const Element& operator[](Index at) const { return elements[static_cast<std::size_t>(at)]; }

    friend constexpr bool operator==(const ExtendedDiff&, const ExtendedDiff&) = default;

    Diff source; ///< the plain diff that this one was made from
    /// For each of `elements` in turn the index in `source` that it came from; a move has two entries in a row, its
    /// deletion's and its insertion's. (Where an insertion comes first in `source`, and both stand at one position, the
    /// insertion's is first here too.)
    std::vector<Index> sourceIndex;
    std::vector<Index> reorderedIndex; ///< the inverse of `sourceIndex`: where each index of `source` stands in it
    std::vector<Element> elements;     ///< in the order of the first of their parts in `source`
    IndexSet moveIndices;              ///< of each move, the index in `source` that stands first in `sourceIndex`
};

static_assert(DiffProtocol<ExtendedDiff>);

} // namespace Differ
