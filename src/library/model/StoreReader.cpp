#include "StoreReader.h"

#include "RecordAccess.h"
#include "StoreText.h"

#include <sqlite3.h>
#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>

#include <algorithm>

namespace Quillstacks::StoreReader {

namespace {

void take(Record& record, qint64 row, const Uuid& id, Date created) {
    RecordAccess::setRow(record, row);
    RecordAccess::setStored(record);
    RecordAccess::setIdentity(record, id, created);
}

void readTags(SQLite::Database& database, StoredRecords& into) {
    SQLite::Statement rows(database, "SELECT row, id, name, color, created, updated FROM tags ORDER BY row");
    while (rows.executeStep()) {
        auto tag = RecordAccess::blankTag();
        take(*tag, rows.getColumn(0).getInt64(), StoreText::uuid(rows.getColumn(1)),
             StoreText::date(rows.getColumn(4)));
        RecordAccess::fill(*tag, StoreText::text(rows.getColumn(2)), StoreText::text(rows.getColumn(3)),
                           StoreText::date(rows.getColumn(5)));
        into.tags.push_back(std::move(tag));
    }
}

void readPrompts(SQLite::Database& database, StoredRecords& into) {
    SQLite::Statement rows(
        database, "SELECT row, id, title, body, created, updated, pinned, pinned_at FROM prompts ORDER BY row");
    while (rows.executeStep()) {
        auto prompt = RecordAccess::blankPrompt();
        take(*prompt, rows.getColumn(0).getInt64(), StoreText::uuid(rows.getColumn(1)),
             StoreText::date(rows.getColumn(4)));
        RecordAccess::fill(*prompt, StoreText::text(rows.getColumn(2)), StoreText::text(rows.getColumn(3)),
                           StoreText::date(rows.getColumn(5)), StoreText::optionalDate(rows.getColumn(7)),
                           StoreText::integer(rows.getColumn(6)) != 0);
        into.prompts.push_back(std::move(prompt));
    }
}

/// The record of a row, in a list that is sorted by row.
template <typename T>
T* withRow(const std::vector<std::unique_ptr<T>>& records, qint64 row) {
    const auto before = [](const std::unique_ptr<T>& record, qint64 wanted) {
        return RecordAccess::row(*record) < wanted;
    };
    const auto found = std::lower_bound(records.begin(), records.end(), row, before);
    if (found == records.end() || RecordAccess::row(**found) != row)
        throw SQLite::Exception("a tag's link leads nowhere", SQLITE_CORRUPT);
    return found->get();
}

struct Link {
    Prompt* prompt;
    Tag* tag;
    qint64 position;
    qint64 taken;
};

std::vector<Link> readLinks(SQLite::Database& database, const StoredRecords& records) {
    std::vector<Link> links;
    SQLite::Statement rows(database, "SELECT prompt, tag, position, taken FROM prompt_tags");
    while (rows.executeStep()) {
        links.push_back({withRow(records.prompts, StoreText::integer(rows.getColumn(0))),
                         withRow(records.tags, StoreText::integer(rows.getColumn(1))),
                         StoreText::integer(rows.getColumn(2)), StoreText::integer(rows.getColumn(3))});
    }
    return links;
}

void setLists(std::vector<Link> links, StoredRecords& into) {
    std::sort(links.begin(), links.end(), [](const Link& a, const Link& b) { return a.position < b.position; });
    for (const Link& link : links)
        RecordAccess::tags(*link.prompt).append(link.tag);
    std::sort(links.begin(), links.end(), [](const Link& a, const Link& b) { return a.taken < b.taken; });
    for (const Link& link : links)
        RecordAccess::prompts(*link.tag).append(link.prompt);
    if (!links.empty())
        into.lastLinkOrder = links.back().taken;
}

} // namespace

StoredRecords readAll(SQLite::Database& database) {
    StoredRecords records;
    readTags(database, records);
    readPrompts(database, records);
    setLists(readLinks(database, records), records);
    records.lastVersionRow = database.execAndGet("SELECT coalesce(max(row), 0) FROM versions").getInt64();
    return records;
}

std::vector<std::unique_ptr<PromptVersion>> readVersions(SQLite::Statement& rows) {
    std::vector<std::unique_ptr<PromptVersion>> versions;
    while (rows.executeStep()) {
        auto version = RecordAccess::blankVersion();
        take(*version, rows.getColumn(0).getInt64(), StoreText::uuid(rows.getColumn(2)),
             StoreText::date(rows.getColumn(8)));
        RecordAccess::fill(*version, StoreText::uuid(rows.getColumn(3)), StoreText::text(rows.getColumn(4)),
                           StoreText::text(rows.getColumn(5)), StoreText::textList(rows.getColumn(6)),
                           StoreText::textList(rows.getColumn(7)), StoreText::integer(rows.getColumn(1)));
        versions.push_back(std::move(version));
    }
    return versions;
}

} // namespace Quillstacks::StoreReader
