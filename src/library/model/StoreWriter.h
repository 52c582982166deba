#pragma once

#include "PendingChanges.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <QHash>

namespace Quillstacks {

class PromptVersion;

/// Writes changes with statements that are prepared once. Throws SQLite::Exception, with nothing written then.
class StoreWriter final {
public:
    explicit StoreWriter(SQLite::Database& open);

    void write(const PendingChanges& changes);

private:
    struct LinkPlace {
        qint64 position = 0;
        qint64 taken = 0;
        bool operator==(const LinkPlace&) const = default;
    };

    void removeRows(const PendingChanges& changes);
    void writeRecords(const PendingChanges& changes);
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

} // namespace Quillstacks
