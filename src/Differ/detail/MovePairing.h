#pragma once

#include "Differ/detail/Partners.h"

namespace Differ::detail {

/// Goes through a plain diff and makes an extended one of it.
class MovePairing {
public:
    constexpr explicit MovePairing(const Diff& diff) : dirtyDiffElements(diff.size(), 0) { result.source = diff; }

    template <class Partners>
    constexpr ExtendedDiff run(Partners partners) {
        const Diff& diff = result.source;
        for (Index candidate = 0; candidate < static_cast<Index>(diff.size()); ++candidate) {
            if (dirtyDiffElements[static_cast<std::size_t>(candidate)] != 0) {
                continue;
            }
            if (const auto partner = partners.firstMatch(dirtyDiffElements, candidate)) {
                accept(candidate, partner->index, partner->match);
            } else {
                result.sourceIndex.push_back(candidate);
                result.elements.push_back(ExtendedDiff::Element::of(diff[candidate]));
            }
        }
        result.reorderedIndex.assign(result.sourceIndex.size(), 0);
        for (std::size_t place = 0; place < result.sourceIndex.size(); ++place) {
            result.reorderedIndex[static_cast<std::size_t>(result.sourceIndex[place])] = static_cast<Index>(place);
        }
        return std::move(result);
    }

    /// Takes two elements of the diff for a move. Which of them is first is told by the position alone, so that an
    /// insertion which stands where its deletion does goes first when it is the candidate.
    constexpr void accept(Index candidate, Index partner, ExtendedDiff::Element match) {
        if (match.kind() != ExtendedDiff::Element::Kind::move) {
            fatalError("Differ/ExtendedDiff", 115);
        }
        const bool isCandidateFirst = match.from() == result.source[candidate].at();
        const Index first = isCandidateFirst ? candidate : partner;
        const Index second = isCandidateFirst ? partner : candidate;
        result.sourceIndex.push_back(first);
        result.sourceIndex.push_back(second);
        result.moveIndices.insert(first);
        dirtyDiffElements[static_cast<std::size_t>(first)] = 1;
        dirtyDiffElements[static_cast<std::size_t>(second)] = 1;
        result.elements.push_back(match);
    }

private:
    ExtendedDiff result;
    Flags dirtyDiffElements; ///< what a move has used up, both its parts
};

template <class Source, class Target>
ExtendedDiff pairMovesByNumber(const Diff& diff, const Indexed<Source>& from, const Indexed<Target>& to) {
    return MovePairing(diff).run(NumberedPartners(diff, from, to));
}

} // namespace Differ::detail
