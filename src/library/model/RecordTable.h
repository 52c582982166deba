#pragma once

#include "RecordIndex.h"

#include <memory>
#include <optional>
#include <vector>

namespace Quillstacks {

/// Owns all records of one kind, in the order of insertion, and finds them by id and by text. Each index is built when
/// it is first asked, as opening the store should not wait for what only an import needs.
template <typename T>
class RecordTable final {
public:
    using TextOf = const QString& (T::*)() const;
    /// `text` gives the text that withText() looks for.
    RecordTable(std::vector<std::unique_ptr<T>> stored, TextOf text) : records(std::move(stored)), textOf(text) {
        lastRow = records.empty() ? 0 : RecordAccess::row(*records.back());
    }

    [[nodiscard]] const std::vector<std::unique_ptr<T>>& everything() const { return records; }

    T* add(std::unique_ptr<T> record) {
        RecordAccess::setRow(*record, ++lastRow);
        T* added = records.emplace_back(std::move(record)).get();
        if (ids)
            ids->add(added->id(), added);
        if (texts)
            texts->add((added->*textOf)(), added);
        return added;
    }
    /// Takes the record out of the indexes; to be called while its text is still there.
    void forget(T* record) {
        if (ids)
            ids->remove(record->id(), record);
        if (texts)
            texts->remove((record->*textOf)(), record);
    }
    void textChanged(T* record, const QString& old) {
        if (!texts)
            return;
        texts->remove(old, record);
        texts->add((record->*textOf)(), record);
    }

    [[nodiscard]] QList<T*> all() const {
        QList<T*> result;
        result.reserve(static_cast<qsizetype>(records.size()));
        for (const auto& record : records) {
            if (!record->isDeleted())
                result.append(record.get());
        }
        return result;
    }
    [[nodiscard]] T* withId(const Uuid& id) const {
        if (!ids)
            build(ids, [](const T* record) { return record->id(); });
        return ids->first(id);
    }
    [[nodiscard]] QList<T*> withText(const QString& text) const {
        if (!texts)
            build(texts, [this](const T* record) { return (record->*textOf)(); });
        return texts->all(text);
    }

private:
    template <typename Key, typename KeyOf>
    void build(std::optional<RecordIndex<Key, T>>& index, KeyOf keyOf) const {
        index.emplace();
        for (T* record : all())
            index->add(keyOf(record), record);
    }

    std::vector<std::unique_ptr<T>> records;
    TextOf textOf;
    qint64 lastRow = 0;
    mutable std::optional<RecordIndex<Uuid, T>> ids;
    mutable std::optional<RecordIndex<QString, T>> texts;
};

} // namespace Quillstacks
