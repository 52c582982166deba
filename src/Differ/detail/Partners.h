#pragma once

#include "Differ/Diff.h"
#include "Differ/ExtendedDiffElements.h"

#include <array>
#include <optional>

namespace Differ::detail {

/// The move that a deletion and an insertion of equal elements make, whichever comes first. Nothing for two of a kind.
template <class IsSame>
constexpr std::optional<ExtendedDiff::Element> createMatch(Diff::Element candidate, Diff::Element match,
                                                           const IsSame& isSame) {
    if (candidate.kind() == match.kind()) {
        return {};
    }
    const Index from = candidate.isDeletion() ? candidate.at() : match.at();
    const Index to = candidate.isDeletion() ? match.at() : candidate.at();
    if (!isSame(from, to)) {
        return {};
    }
    return ExtendedDiff::Element::move(from, to);
}

/// One flag for each element of a diff; not vector<bool>, which not every compiler takes at compile time.
using Flags = std::vector<unsigned char>;

struct Partner {
    Index index; ///< in the diff
    ExtendedDiff::Element match;
};

/// Finds partners by asking a test of two positions.
template <class IsSame>
class TestedPartners {
public:
    constexpr TestedPartners(const Diff& ready, IsSame test) : diff(ready), isSame(test) {}

    /// The earliest free element behind the candidate that makes a move with it.
    constexpr std::optional<Partner> firstMatch(const Flags& dirtyIndices, Index candidateIndex) {
        const auto count = static_cast<Index>(diff.size());
        for (Index j = candidateIndex + 1; j < count; ++j) {
            if (dirtyIndices[static_cast<std::size_t>(j)] != 0) {
                continue;
            }
            if (const auto match = createMatch(diff[candidateIndex], diff[j], isSame)) {
                return Partner{j, *match};
            }
        }
        return {};
    }

private:
    const Diff& diff;
    IsSame isSame;
};

/// Finds the same partners by number: the deletions and the insertions of each number stand in a queue, in the diff's
/// order, and what was passed or taken leaves it for good.
class NumberedPartners {
public:
    template <class Source, class Target>
    NumberedPartners(const Diff& ready, const Indexed<Source>& source, const Indexed<Target>& target) : diff(ready) {
        Interning<std::ranges::range_value_t<Source>> interning(static_cast<Index>(diff.size()));
        for (const Diff::Element element : diff) {
            const Index number =
                interning.number(element.isDeletion() ? source.at(element.at()) : target.at(element.at()));
            queues.resize(std::max(queues.size(), static_cast<std::size_t>(number) + 1));
            Queue& queue = queues[static_cast<std::size_t>(number)][element.isDeletion() ? 0 : 1];
            queue.indices.push_back(static_cast<Index>(numbers.size()));
            numbers.push_back(number);
        }
    }

    std::optional<Partner> firstMatch(const Flags& dirtyIndices, Index candidateIndex) {
        const Diff::Element candidate = diff[candidateIndex];
        const Index number = numbers[static_cast<std::size_t>(candidateIndex)];
        Queue& queue = queues[static_cast<std::size_t>(number)][candidate.isDeletion() ? 1 : 0];
        for (; queue.first < queue.indices.size(); ++queue.first) {
            const Index index = queue.indices[queue.first];
            if (index > candidateIndex && dirtyIndices[static_cast<std::size_t>(index)] == 0) {
                return Partner{index, *createMatch(candidate, diff[index], [](Index, Index) { return true; })};
            }
        }
        return {};
    }

private:
    struct Queue {
        std::vector<Index> indices;
        std::size_t first = 0;
    };
    const Diff& diff;
    std::vector<Index> numbers;               ///< of each element of the diff
    std::vector<std::array<Queue, 2>> queues; ///< by number: its deletions, its insertions
};

} // namespace Differ::detail
