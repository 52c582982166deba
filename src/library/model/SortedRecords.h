#pragma once

#include "foundation/Text.h"
#include "RecordAccess.h"

#include <QList>
#include <QSet>

#include <algorithm>

namespace Quillstacks {

[[nodiscard]] inline bool goesBefore(const Prompt* a, const Prompt* b) {
    return a->updatedAt() != b->updatedAt() ? a->updatedAt() > b->updatedAt()
                                            : RecordAccess::row(*a) < RecordAccess::row(*b);
}

[[nodiscard]] inline bool goesBefore(const Tag* a, const Tag* b) {
    const int compared = Text::localizedStandardCompare(a->name(), b->name());
    return compared != 0 ? compared < 0 : RecordAccess::row(*a) < RecordAccess::row(*b);
}

/// A list that stays sorted while its records change: a record is taken out before its sort key changes, and put back
/// by binary search when the list is next read.
template <typename T>
class SortedRecords final {
public:
    explicit SortedRecords(QList<T*> all) : list(std::move(all)) {
        std::sort(list.begin(), list.end(), [](const T* a, const T* b) { return goesBefore(a, b); });
    }

    void add(T* record) { waiting.insert(record); }
    /// Must be called while the record's sort key is still the old one.
    void takeOut(T* record) {
        if (waiting.contains(record))
            return;
        removeFromList(record);
        waiting.insert(record);
    }
    void remove(T* record) {
        if (!waiting.remove(record))
            removeFromList(record);
    }
    void clear() {
        list.clear();
        waiting.clear();
    }
    [[nodiscard]] const QList<T*>& current() {
        if (!waiting.isEmpty())
            putBack();
        return list;
    }

private:
    static constexpr qsizetype fewRecords = 8; // from here on one merge is cheaper than single insertions

    static bool before(const T* a, const T* b) { return goesBefore(a, b); }
    void removeFromList(T* record) {
        const auto found = std::lower_bound(list.cbegin(), list.cend(), record, before);
        const bool isThere = found != list.cend() && *found == record;
        Q_ASSERT(isThere);
        if (isThere)
            list.erase(found);
        else
            list.removeOne(record); // a key that changed unannounced must not cost another record its place
    }
    void putBack() {
        if (waiting.size() <= fewRecords) {
            for (T* record : std::as_const(waiting))
                list.insert(std::lower_bound(list.cbegin(), list.cend(), record, before) - list.cbegin(), record);
        } else {
            const auto sortedCount = list.size();
            for (T* record : std::as_const(waiting))
                list.append(record);
            std::sort(list.begin() + sortedCount, list.end(), before);
            std::inplace_merge(list.begin(), list.begin() + sortedCount, list.end(), before);
        }
        waiting.clear();
    }

    QList<T*> list;
    QSet<T*> waiting;
};

} // namespace Quillstacks
