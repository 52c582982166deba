#pragma once

#include "PendingChanges.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include <QHash>

namespace Quillstacks {

class PromptVersion;

/// Writes changes with statements that are prepared once. Throws SQLite::Exception, with nothing written then.
class StoreWriter final {
public:
    explicit StoreWriter(SQLite::Database& open);

    void write(const PendingChanges& changes);

private:
    friend class StoreWriting;
    struct LinkPlace {
        qint64 position = 0;
        qint64 taken = 0;
        bool operator==(const LinkPlace&) const = default;
    };

    void removeRows(const PendingChanges& changes);
    /// Tags and prompts first, as versions and links refer to them.
    enum class Pass { tags, prompts, versions, links, end };
    void writeRecord(Pass pass, Record& record, const PendingChanges& changes);
    void writeTag(const Tag& tag);
    void writePrompt(const Prompt& prompt);
    void writeVersion(const PromptVersion& version);
    void writeLinks(Prompt& prompt, const PendingChanges& changes);
    QHash<qint64, LinkPlace> storedLinks(const Prompt& prompt);

    SQLite::Database& database;
    SQLite::Statement removePrompt;
    SQLite::Statement removeTag;
    SQLite::Statement removeVersion;
    SQLite::Statement removeVersionsUpTo;
    SQLite::Statement insertTag;
    SQLite::Statement updateTag;
    SQLite::Statement insertPrompt;
    SQLite::Statement updatePrompt;
    SQLite::Statement insertVersion;
    SQLite::Statement selectLinks;
    SQLite::Statement putLink;
    SQLite::Statement removeLink;
};

/// One transaction, in steps. Rolled back where it ends before its last one.
class StoreWriting final {
public:
    /// Begins the transaction. Both must outlive it.
    StoreWriting(StoreWriter& uses, const PendingChanges& changes);

    /// Looks at so many records, and writes what of them the pass is about; false when all is committed.
    [[nodiscard]] bool step(int records);
    [[nodiscard]] double fraction() const;

private:
    StoreWriter& writer;
    const PendingChanges& changes;
    SQLite::Transaction transaction;
    StoreWriter::Pass pass = StoreWriter::Pass::tags;
    std::size_t next = 0; ///< of this pass's records
};

} // namespace Quillstacks
