#pragma once

#include "Differ/BatchUpdate.h"
#include "Differ/detail/Checked.h"

#include <map>
#include <vector>

namespace Differ {

/// One change of rows that a model can announce on its own. Positions are valid at the moment that the step runs.
struct RowStep {
    enum class Kind { remove, move, insert };

    Kind kind = Kind::remove;
    Index first = 0; ///< the first row that goes or comes, or the one that moves
    Index last = 0;  ///< the last row that goes or comes, or where the one that moves is in the end

    friend bool operator==(const RowStep&, const RowStep&) = default;
};

namespace detail {

/// Makes steps of a batch, whose changes all happen at once: removals from the bottom up, moves, insertions from the
/// top down, neighbours in one step.
class RowSequence {
public:
    RowSequence(const BatchUpdate& batch, Index rowCount) : update(batch), order(static_cast<std::size_t>(rowCount)) {
        for (std::size_t row = 0; row < order.size(); ++row) {
            order[row] = static_cast<Index>(row);
        }
    }

    std::vector<RowStep> run() {
        requireThatAllFits();
        removeDeleted();
        moveMoved();
        insertInserted();
        return std::move(steps);
    }

private:
    static std::vector<Index> rows(const std::vector<IndexPath>& paths) {
        std::vector<Index> result;
        for (const IndexPath& path : paths) {
            result.push_back(path.item);
        }
        std::ranges::sort(result);
        return result;
    }

    /// Each position once, and all of them below the count.
    static void requirePositions(std::vector<Index> positions, Index count) {
        std::ranges::sort(positions);
        const bool isOutside = !positions.empty() && (positions.front() < 0 || positions.back() >= count);
        if (isOutside || std::ranges::adjacent_find(positions) != positions.end()) {
            fatalError("Differ/RowSteps");
        }
    }

    /// A batch for another number of rows would leave the model in any state.
    void requireThatAllFits() const {
        std::vector<Index> leaving = rows(update.deletions);
        std::vector<Index> coming = rows(update.insertions);
        const auto rowCount = static_cast<Index>(order.size());
        const Index countAfter = rowCount - static_cast<Index>(leaving.size()) + static_cast<Index>(coming.size());
        for (const BatchUpdate::MoveStep& move : update.moves) {
            leaving.push_back(move.from.item);
            coming.push_back(move.to.item);
        }
        requirePositions(std::move(leaving), rowCount);
        requirePositions(std::move(coming), countAfter);
    }

    void removeDeleted() {
        const std::vector<Index> deleted = rows(update.deletions);
        std::erase_if(order, [&](Index row) { return std::ranges::binary_search(deleted, row); });
        for (auto row = deleted.rbegin(); row != deleted.rend(); ++row) {
            if (!steps.empty() && steps.back().first == *row + 1) {
                steps.back().first = *row;
            } else {
                steps.push_back({RowStep::Kind::remove, *row, *row});
            }
        }
    }

    /// The rows that stay, by their number in the source, in the order that they have in the end.
    std::vector<Index> finalOrder(const std::map<Index, Index>& sourceOfTarget) const {
        std::vector<Index> staying = order;
        for (const auto& [to, from] : sourceOfTarget) {
            std::erase(staying, from);
        }
        const std::vector<Index> inserted = rows(update.insertions);
        const auto count = static_cast<Index>(order.size() + inserted.size());
        std::vector<Index> result;
        auto nextStaying = staying.begin();
        for (Index row = 0; row < count; ++row) {
            if (const auto moved = sourceOfTarget.find(row); moved != sourceOfTarget.end()) {
                result.push_back(moved->second);
            } else if (!std::ranges::binary_search(inserted, row)) {
                result.push_back(*nextStaying++);
            }
        }
        return result;
    }

    /// Puts each moved row behind the one that precedes it in the end, from the top down.
    void moveMoved() {
        std::map<Index, Index> sourceOfTarget;
        std::map<Index, Index> targetOfSource;
        for (const BatchUpdate::MoveStep& move : update.moves) {
            sourceOfTarget[move.to.item] = move.from.item;
            targetOfSource[move.from.item] = move.to.item;
        }
        const std::vector<Index> wanted = finalOrder(sourceOfTarget);
        for (std::size_t place = 0; place < wanted.size(); ++place) {
            if (!targetOfSource.contains(wanted[place])) {
                continue;
            }
            const auto from = std::ranges::find(order, wanted[place]);
            const Index start = from - order.begin();
            order.erase(from);
            const Index end = place == 0 ? 0 : std::ranges::find(order, wanted[place - 1]) - order.begin() + 1;
            order.insert(order.begin() + end, wanted[place]);
            if (start != end) {
                steps.push_back({RowStep::Kind::move, start, end});
            }
        }
    }

    void insertInserted() {
        for (const Index row : rows(update.insertions)) {
            if (!steps.empty() && steps.back().kind == RowStep::Kind::insert && steps.back().last == row - 1) {
                steps.back().last = row;
            } else {
                steps.push_back({RowStep::Kind::insert, row, row});
            }
        }
    }

    const BatchUpdate& update;
    std::vector<Index> order; ///< the rows as they are by now, each by its number in the source
    std::vector<RowStep> steps;
};

} // namespace detail

/// The batch as single steps for a list of `rowCount` rows, whose positions are items of the batch's index paths. A
/// batch that doesn't fit so many rows ends the process. O(rows) for each row that moves, else O(rows log rows).
[[nodiscard]] inline std::vector<RowStep> rowSteps(const BatchUpdate& update, Index rowCount) {
    return detail::RowSequence(update, rowCount).run();
}

} // namespace Differ
