#pragma once

#include "Differ/ExtendedDiffElements.h"
#include "Differ/SortedPatchElement.h"

#include <optional>

namespace Differ {

/// An element of an extended diff along with the one or two plain steps that it stands for.
template <class T>
class BoxedDiffAndPatchElement {
public:
    using Step = SortedPatchElement<T>;

    [[nodiscard]] static constexpr BoxedDiffAndPatchElement move(ExtendedDiff::Element diffElement, Step deletion,
                                                                 Step insertion) {
        return {diffElement, std::move(deletion), std::move(insertion)};
    }
    [[nodiscard]] static constexpr BoxedDiffAndPatchElement single(ExtendedDiff::Element diffElement,
                                                                   Step patchElement) {
        return {diffElement, std::move(patchElement), std::nullopt};
    }

    [[nodiscard]] constexpr bool isMove() const { return second.has_value(); }
    [[nodiscard]] constexpr ExtendedDiff::Element diffElement() const { return element; }
    /// The step of a single one.
    [[nodiscard]] constexpr const Step& patchElement() const { return first; }
    /// The two steps of a move.
    [[nodiscard]] constexpr const Step& deletion() const { return first; }
    [[nodiscard]] constexpr const Step& insertion() const { return *second; }

private:
    constexpr BoxedDiffAndPatchElement(ExtendedDiff::Element diffElement, Step a, std::optional<Step> b)
        : element(diffElement), first(std::move(a)), second(std::move(b)) {}

    ExtendedDiff::Element element;
    Step first;
    std::optional<Step> second;
};

} // namespace Differ
