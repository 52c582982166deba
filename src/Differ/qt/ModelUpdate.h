#pragma once

#include "Differ/ExtendedDiff.h"
#include "Differ/NestedBatchUpdate.h"
#include "Differ/qt/RowSteps.h"

#include <QAbstractItemModel>

namespace Differ {

/// Gives a new row its content; the row is named as the view has it in the end.
template <class F>
concept RowFiller = std::invocable<F&, int>;

/// The same for an item of a section; both numbers are those of the end.
template <class F>
concept ItemFiller = std::invocable<F&, IndexPath>;

/// Changes the rows below `parent` by the model's own removeRows(), moveRow() and insertRows(), so that views,
/// selections and persistent indexes follow each row to its new place. New rows come empty and are filled at once.
/// False when the model refuses a step; those before it are done by then.
template <RowFiller Fill>
bool apply(const BatchUpdate& update, QAbstractItemModel& model, Fill fill, const QModelIndex& parent = {}) {
    for (const RowStep& step : rowSteps(update, model.rowCount(parent))) {
        const int first = static_cast<int>(step.first);
        const int last = static_cast<int>(step.last);
        bool isDone = false;
        switch (step.kind) {
        case RowStep::Kind::remove:
            isDone = model.removeRows(first, last - first + 1, parent);
            break;
        case RowStep::Kind::move: // before a row, as counted while the moved one is still in its place
            isDone = model.moveRow(parent, first, parent, last > first ? last + 1 : last);
            break;
        case RowStep::Kind::insert:
            isDone = model.insertRows(first, last - first + 1, parent);
            for (int row = first; isDone && row <= last; ++row) {
                fill(row);
            }
            break;
        }
        if (!isDone) {
            return false;
        }
    }
    return true;
}

/// The same from a ready diff, whose positions become rows by the transform.
template <RowFiller Fill, SectionTransform Transform = std::identity>
bool apply(const ExtendedDiff& diff, QAbstractItemModel& model, Fill fill, Transform rowIndexTransform = {}) {
    const auto path = [&](IndexPath place) { return IndexPath{rowIndexTransform(place.item), 0}; };
    return apply(BatchUpdate(diff, path), model, fill);
}

/// Changes the rows of a model that shows `oldData` to those of `newData`.
template <Sequence Old, Sequence New, RowFiller Fill, class IsEqual = Equality,
          SectionTransform Transform = std::identity>
requires ElementPredicate<IsEqual, Old, New>
bool animateRowChanges(QAbstractItemModel& model, Old&& oldData, New&& newData, Fill fill, IsEqual isEqual = {},
                       Transform rowIndexTransform = {}) {
    return apply(extendedDiff(oldData, newData, isEqual), model, fill, rowIndexTransform);
}

namespace detail {

/// The sections of the source that stay in their order, and where each is in the end.
inline std::map<Index, Index> keptSections(const NestedBatchUpdate& update, Index count) {
    IndexSet leaving = update.sectionDeletions;
    IndexSet coming = update.sectionInsertions;
    for (const NestedBatchUpdate::SectionMove& move : update.sectionMoves) {
        leaving.insert(move.from);
        coming.insert(move.to);
    }
    std::map<Index, Index> kept;
    Index target = 0;
    for (Index source = 0; source < count; ++source) {
        if (leaving.contains(source)) {
            continue;
        }
        while (coming.contains(target)) {
            ++target;
        }
        kept[source] = target++;
    }
    return kept;
}

/// The changes of the items of one section.
inline BatchUpdate itemsOf(const NestedBatchUpdate& update, Index source, Index target) {
    BatchUpdate items;
    std::ranges::copy_if(update.itemDeletions, std::back_inserter(items.deletions),
                         [&](const IndexPath& path) { return path.section == source; });
    std::ranges::copy_if(update.itemInsertions, std::back_inserter(items.insertions),
                         [&](const IndexPath& path) { return path.section == target; });
    for (const NestedBatchUpdate::ItemMove& move : update.itemMoves) {
        if (move.from.section == source) {
            items.moves.push_back({move.from, move.to});
        }
    }
    return items;
}

/// The sections' own changes, as rows.
inline BatchUpdate sectionsOf(const NestedBatchUpdate& update) {
    BatchUpdate sections;
    for (const Index section : update.sectionDeletions) {
        sections.deletions.push_back({section, 0});
    }
    for (const Index section : update.sectionInsertions) {
        sections.insertions.push_back({section, 0});
    }
    for (const NestedBatchUpdate::SectionMove& move : update.sectionMoves) {
        sections.moves.push_back({{move.from, 0}, {move.to, 0}});
    }
    return sections;
}

} // namespace detail

/// Changes a model of two levels, sections and below them their items: first the items of the sections that stay, then
/// the sections. An item moves within its section. `fillSection` fills a new section with its items.
template <RowFiller FillSection, ItemFiller FillItem>
bool apply(const NestedBatchUpdate& update, QAbstractItemModel& model, FillSection fillSection, FillItem fillItem) {
    for (const auto& kept : detail::keptSections(update, model.rowCount())) {
        // By now the section still has its old number; what fills it asks by the new one.
        const auto fill = [&](int row) { fillItem(IndexPath{row, kept.second}); };
        const BatchUpdate items = detail::itemsOf(update, kept.first, kept.second);
        if (!items.empty() && !apply(items, model, fill, model.index(static_cast<int>(kept.first), 0))) {
            return false;
        }
    }
    return apply(detail::sectionsOf(update), model, fillSection);
}

/// Changes the sections and items of a model that shows `oldData` to those of `newData`. What is to be filled is named
/// as the model has it, by the transforms.
template <NestedSequence Old, NestedSequence New, RowFiller FillSection, ItemFiller FillItem,
          class IsEqualSection = Equality, class IsEqualElement = Equality,
          IndexPathTransform PathTransform = std::identity, SectionTransform NumberTransform = std::identity>
bool animateItemAndSectionChanges(QAbstractItemModel& model, Old&& oldData, New&& newData, FillSection fillSection,
                                  FillItem fillItem, IsEqualSection isEqualSection = {},
                                  IsEqualElement isEqualElement = {}, PathTransform indexPathTransform = {},
                                  NumberTransform sectionTransform = {}) {
    const NestedBatchUpdate update(nestedExtendedDiff(oldData, newData, isEqualSection, isEqualElement),
                                   indexPathTransform, sectionTransform);
    return apply(update, model, fillSection, fillItem);
}

} // namespace Differ
