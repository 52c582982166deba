#pragma once

#include "Differ/Diff.h"

namespace Differ::detail {

/// Calls back for each pair of sections that remains on the path, in path order: (source section, its position, target
/// section, its position).
template <class Source, class Target, class Callback>
constexpr void forEachKeptSection(const Diff& sections, Source& source, Target& target, Callback callback) {
    auto from = std::ranges::begin(source);
    auto to = std::ranges::begin(target);
    auto difference = sections.begin();
    Index x = 0;
    Index y = 0;
    while (from != std::ranges::end(source) || to != std::ranges::end(target)) {
        const bool isHere = difference != sections.end();
        const bool isDeleted = isHere && difference->isDeletion() && difference->at() == x;
        const bool isInserted = isHere && difference->isInsertion() && difference->at() == y;
        if (isDeleted || isInserted) {
            ++difference;
        } else {
            callback(*from, x, *to, y);
        }
        if (!isInserted) {
            ++from;
            ++x;
        }
        if (!isDeleted) {
            ++to;
            ++y;
        }
    }
}

} // namespace Differ::detail
