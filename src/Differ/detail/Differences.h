#pragma once

#include "Differ/detail/Indexed.h"
#include "Differ/detail/NumberedSearch.h"
#include "Differ/detail/PathSearch.h"
#include "Differ/DiffElements.h"

namespace Differ::detail {

/// How far positions match from (x, y) on, by asking a test of two positions.
template <class IsSame>
class TestedSlide {
public:
    constexpr TestedSlide(Index sourceCount, Index targetCount, IsSame test)
        : N(sourceCount), M(targetCount), isSame(test) {}

    template <class Number>
    constexpr Number operator()(Number x, Number y) const {
        Number length = 0;
        while (x + length < N && y + length < M && isSame(x + length, y + length)) {
            ++length;
        }
        return length;
    }

private:
    Index N;
    Index M;
    IsSame isSame;
};

/// The differences of what lies behind the first `first` elements, which match.
template <class Slide>
constexpr std::vector<Diff::Element> differencesBehind(Index first, Index sourceCount, Index targetCount, Slide slide) {
    const std::vector<Step> steps = *shortestPath(sourceCount, targetCount, slide);
    std::vector<Diff::Element> elements;
    elements.reserve(steps.size());
    Index x = 0;
    Index y = 0;
    for (const Step step : steps) {
        const Index matches = slide(x, y);
        x += matches;
        y += matches;
        if (step == Step::insertion) {
            elements.push_back(Diff::Element::insertAt(first + y++));
        } else {
            elements.push_back(Diff::Element::deleteAt(first + x++));
        }
    }
    return elements;
}

/// The differences where what is left of one side is empty.
constexpr std::vector<Diff::Element> remainder(Index first, Index sourceCount, Index targetCount) {
    std::vector<Diff::Element> elements;
    for (Index x = first; x < sourceCount; ++x) {
        elements.push_back(Diff::Element::deleteAt(x));
    }
    for (Index y = first; y < targetCount; ++y) {
        elements.push_back(Diff::Element::insertAt(y));
    }
    return elements;
}

template <class Source, class Target, class IsEqual>
constexpr std::vector<Diff::Element> differences(std::remove_reference_t<Source>& source,
                                                 std::remove_reference_t<Target>& target, IsEqual& isEqual) {
    const Indexed from(source);
    const Indexed to(target);
    const auto isSame = [&](Index x, Index y) { return static_cast<bool>(isEqual(from[x], to[y])); };
    // The search takes the matches at the beginning at no cost, in its first round, so they may as well be left out.
    const Index first = TestedSlide(from.count(), to.count(), isSame)(Index{0}, Index{0});
    if (first == from.count() || first == to.count()) {
        return remainder(first, from.count(), to.count());
    }
    const Index sourceCount = from.count() - first;
    const Index targetCount = to.count() - first;
    if constexpr (Internable<Source, Target, IsEqual>) {
        if (!std::is_constant_evaluated() && checkedSum(sourceCount, targetCount) <= mostNumbers) {
            return NumberedSearch(InternedSides(from, to, first)).run(first);
        }
    }
    const auto isSameBehind = [&](Index x, Index y) { return isSame(first + x, first + y); };
    return differencesBehind(first, sourceCount, targetCount, TestedSlide(sourceCount, targetCount, isSameBehind));
}

} // namespace Differ::detail
