#pragma once

#include "Differ/PatchSteps.h"

namespace Differ {

/// One step from a source to a target, a move being one step. Positions are valid at the moment that the step runs.
template <class T>
class ExtendedPatch {
public:
    enum class Kind { insertion, deletion, move };

    /// Put `element` at `index`.
    [[nodiscard]] static constexpr ExtendedPatch insertion(Index index, T element) {
        return {Kind::insertion, index, index, std::move(element)};
    }
    /// Remove the element at `index`.
    [[nodiscard]] static constexpr ExtendedPatch deletion(Index index) {
        return {Kind::deletion, index, index, std::nullopt};
    }
    /// Take the element at `from` out, and then put it at `to`.
    [[nodiscard]] static constexpr ExtendedPatch move(Index from, Index to) {
        return {Kind::move, from, to, std::nullopt};
    }
    /// The same case of a plain step.
    [[nodiscard]] static constexpr ExtendedPatch of(const Patch<T>& step) {
        return step.isInsertion() ? insertion(step.index(), step.element()) : deletion(step.index());
    }

    [[nodiscard]] constexpr Kind kind() const { return what; }
    /// The position of an insertion or a deletion.
    [[nodiscard]] constexpr Index index() const { return first; }
    [[nodiscard]] constexpr Index from() const { return first; }
    [[nodiscard]] constexpr Index to() const { return second; }
    /// What to insert; only an insertion has it.
    [[nodiscard]] constexpr const T& element() const { return *content; }
    /// "I(3)", "D(3)", "M(0,3)".
    [[nodiscard]] constexpr std::string debugText() const {
        if (what == Kind::move) {
            return detail::debugText('M', first, second);
        }
        return detail::debugText(what == Kind::insertion ? 'I' : 'D', first);
    }

    friend constexpr bool operator==(const ExtendedPatch&, const ExtendedPatch&) = default;

private:
    constexpr ExtendedPatch(Kind kind, Index a, Index b, std::optional<T> element)
        : what(kind), first(a), second(b), content(std::move(element)) {}

    Kind what;
    Index first;
    Index second;
    std::optional<T> content;
};

} // namespace Differ
