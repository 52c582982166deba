#include "StoreWriter.h"

#include "RecordAccess.h"
#include "StoreText.h"

#include <SQLiteCpp/Column.h>

#include <limits>

namespace Quillstacks {

namespace {

/// Binds the values from the first parameter on and runs the statement. Bound texts are let go again.
template <typename... Values>
void run(SQLite::Statement& statement, const Values&... values) {
    statement.tryReset(); // its result would be that of an earlier run that failed
    int index = 0;
    (StoreText::bind(statement, ++index, values), ...);
    statement.exec();
    statement.reset();
    statement.clearBindings();
}

} // namespace

StoreWriter::StoreWriter(SQLite::Database& open)
    : database(open), removePrompt(open, "DELETE FROM prompts WHERE row=?"),
      removeTag(open, "DELETE FROM tags WHERE row=?"), removeVersion(open, "DELETE FROM versions WHERE row=?"),
      removeVersionsUpTo(open, "DELETE FROM versions WHERE row<=?"),
      insertTag(open, "INSERT INTO tags(name, color, updated, row, id, created) VALUES(?,?,?,?,?,?)"),
      updateTag(open, "UPDATE tags SET name=?, color=?, updated=? WHERE row=?"),
      insertPrompt(open, "INSERT INTO prompts(title, body, updated, pinned, pinned_at, row, id, created) "
                         "VALUES(?,?,?,?,?,?,?,?)"),
      updatePrompt(open, "UPDATE prompts SET title=?, body=?, updated=?, pinned=?, pinned_at=? WHERE row=?"),
      insertVersion(open, "INSERT INTO versions(row, prompt, position, id, prompt_id, title, body, tag_names, "
                          "tag_colors, created) VALUES(?,nullif(?,0),?,?,?,?,?,?,?,?)"),
      selectLinks(open, "SELECT tag, position, taken FROM prompt_tags WHERE prompt=?"),
      putLink(open, "INSERT INTO prompt_tags(prompt, tag, position, taken) VALUES(?,?,?,?) "
                    "ON CONFLICT DO UPDATE SET position=excluded.position, taken=excluded.taken"),
      removeLink(open, "DELETE FROM prompt_tags WHERE prompt=? AND tag=?") {}

void StoreWriter::write(const PendingChanges& changes) {
    StoreWriting writing(*this, changes);
    while (writing.step(std::numeric_limits<int>::max())) {
    }
}

StoreWriting::StoreWriting(StoreWriter& uses, const PendingChanges& written)
    : writer(uses), changes(written), transaction(uses.database, SQLite::TransactionBehavior::IMMEDIATE) {
    writer.removeRows(changes);
}

bool StoreWriting::step(int records) {
    for (int looked = 0; pass != StoreWriter::Pass::end;) {
        if (next == changes.dirty.size()) {
            pass = static_cast<StoreWriter::Pass>(static_cast<int>(pass) + 1);
            next = 0;
            continue;
        }
        if (looked++ == records)
            return true;
        Record& record = *changes.dirty[next++];
        if (!record.isDeleted())
            writer.writeRecord(pass, record, changes);
    }
    transaction.commit();
    return false;
}

double StoreWriting::fraction() const {
    const auto all = static_cast<double>(changes.dirty.size());
    return all == 0 ? 1 : (static_cast<double>(pass) + static_cast<double>(next) / all) / 4;
}

void StoreWriter::removeRows(const PendingChanges& changes) {
    if (changes.versionsRemovedUpTo > 0)
        run(removeVersionsUpTo, changes.versionsRemovedUpTo);
    for (const qint64 row : changes.removedVersions)
        run(removeVersion, row);
    for (const qint64 row : changes.removedPrompts)
        run(removePrompt, row);
    for (const qint64 row : changes.removedTags)
        run(removeTag, row);
}

void StoreWriter::writeRecord(Pass pass, Record& record, const PendingChanges& changes) {
    const RecordAccess::Kind kind = RecordAccess::kind(record);
    if (pass == Pass::links) {
        if (kind == RecordAccess::Kind::Prompt && RecordAccess::linksDirty(static_cast<Prompt&>(record)))
            writeLinks(static_cast<Prompt&>(record), changes);
    } else if (RecordAccess::fieldsDirty(record)) {
        if (pass == Pass::tags && kind == RecordAccess::Kind::Tag)
            writeTag(static_cast<Tag&>(record));
        else if (pass == Pass::prompts && kind == RecordAccess::Kind::Prompt)
            writePrompt(static_cast<Prompt&>(record));
        else if (pass == Pass::versions && kind == RecordAccess::Kind::PromptVersion)
            writeVersion(static_cast<PromptVersion&>(record));
    }
}

void StoreWriter::writeTag(const Tag& tag) {
    const qint64 row = RecordAccess::row(tag);
    if (RecordAccess::isStored(tag))
        run(updateTag, tag.name(), tag.colorHex(), tag.updatedAt(), row);
    else
        run(insertTag, tag.name(), tag.colorHex(), tag.updatedAt(), row, tag.id(), tag.createdAt());
}

void StoreWriter::writePrompt(const Prompt& prompt) {
    const qint64 row = RecordAccess::row(prompt);
    if (RecordAccess::isStored(prompt))
        run(updatePrompt, prompt.title(), prompt.body(), prompt.updatedAt(), prompt.isPinned(), prompt.pinnedAt(), row);
    else
        run(insertPrompt, prompt.title(), prompt.body(), prompt.updatedAt(), prompt.isPinned(), prompt.pinnedAt(), row,
            prompt.id(), prompt.createdAt());
}

void StoreWriter::writeVersion(const PromptVersion& version) {
    if (RecordAccess::isStored(version))
        return; // never edited
    const Prompt* owner = RecordAccess::owner(version);
    run(insertVersion, RecordAccess::row(version), owner ? RecordAccess::row(*owner) : qint64{0},
        RecordAccess::position(version), version.id(), version.promptId(), version.title(), version.body(),
        version.tagNames(), version.tagColors(), version.createdAt());
}

QHash<qint64, StoreWriter::LinkPlace> StoreWriter::storedLinks(const Prompt& prompt) {
    QHash<qint64, LinkPlace> links;
    if (!RecordAccess::isStored(prompt))
        return links;
    selectLinks.tryReset();
    StoreText::bind(selectLinks, 1, RecordAccess::row(prompt));
    while (selectLinks.executeStep())
        links.insert(selectLinks.getColumn(0).getInt64(),
                     {selectLinks.getColumn(1).getInt64(), selectLinks.getColumn(2).getInt64()});
    selectLinks.reset();
    return links;
}

/// Only rows that differ are written. A place in the prompt's list is kept as long as it grows from tag to tag.
void StoreWriter::writeLinks(Prompt& prompt, const PendingChanges& changes) {
    QHash<qint64, LinkPlace> stored = storedLinks(prompt);
    const qint64 row = RecordAccess::row(prompt);
    qint64 last = -1;
    for (const Tag* tag : prompt.tags()) {
        const auto before = stored.constFind(RecordAccess::row(*tag));
        const bool known = before != stored.constEnd();
        const LinkPlace old = known ? *before : LinkPlace{};
        const LinkPlace place{known && old.position > last ? old.position : last + 1,
                              changes.linkOrder.value({&prompt, tag}, old.taken)};
        last = place.position;
        if (!known || place != old)
            run(putLink, row, RecordAccess::row(*tag), place.position, place.taken);
        stored.remove(RecordAccess::row(*tag));
    }
    for (auto gone = stored.constBegin(); gone != stored.constEnd(); ++gone)
        run(removeLink, row, gone.key());
}

} // namespace Quillstacks
