#pragma once

#include "Differ/detail/DebugText.h"

#include <optional>
#include <utility>

namespace Differ {

/// One step from a source to a target. Its position is valid at the moment that the step runs, after those before it.
template <class T>
class Patch {
public:
    enum class Kind { insertion, deletion };

    /// Put `element` at `index`.
    [[nodiscard]] static constexpr Patch insertion(Index index, T element) {
        return {Kind::insertion, index, std::move(element)};
    }
    /// Remove the element at `index`.
    [[nodiscard]] static constexpr Patch deletion(Index index) { return {Kind::deletion, index, std::nullopt}; }

    [[nodiscard]] constexpr Kind kind() const { return what; }
    [[nodiscard]] constexpr bool isInsertion() const { return what == Kind::insertion; }
    [[nodiscard]] constexpr Index index() const { return place; }
    /// What to insert; only an insertion has it.
    [[nodiscard]] constexpr const T& element() const { return *content; }
    /// "I(3)", "D(3)".
    [[nodiscard]] constexpr std::string debugText() const {
        return detail::debugText(isInsertion() ? 'I' : 'D', place);
    }

    /// The same step for a sequence that has `by` more elements before it.
    constexpr void shift(Index by) { place += by; }

    friend constexpr bool operator==(const Patch&, const Patch&) = default;

private:
    constexpr Patch(Kind kind, Index index, std::optional<T> element)
        : what(kind), place(index), content(std::move(element)) {}

    Kind what;
    Index place;
    std::optional<T> content;
};

} // namespace Differ
