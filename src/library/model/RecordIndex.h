#pragma once

#include "RecordAccess.h"

#include <QHash>
#include <QList>

#include <algorithm>

namespace Quillstacks {

/// Records by a key that several may share; those of one key stay in the order of insertion.
template <typename Key, typename T>
class RecordIndex final {
public:
    void add(const Key& key, T* record) {
        QList<T*>& bucket = buckets[key];
        bucket.insert(place(bucket, record), record);
    }
    void remove(const Key& key, T* record) {
        const auto found = buckets.find(key);
        if (found == buckets.end())
            return;
        const auto at = place(*found, record);
        if (at < found->size() && found->at(at) == record)
            found->removeAt(at);
        if (found->isEmpty())
            buckets.erase(found);
    }
    [[nodiscard]] QList<T*> all(const Key& key) const { return buckets.value(key); }
    [[nodiscard]] T* first(const Key& key) const {
        const auto found = buckets.constFind(key);
        return found == buckets.constEnd() ? nullptr : found->first();
    }

private:
    static qsizetype place(const QList<T*>& bucket, const T* record) {
        const auto before = [](const T* a, const T* b) { return RecordAccess::row(*a) < RecordAccess::row(*b); };
        return std::lower_bound(bucket.cbegin(), bucket.cend(), record, before) - bucket.cbegin();
    }

    QHash<Key, QList<T*>> buckets;
};

} // namespace Quillstacks
