#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace SQLite {
class Database;
}

namespace Quillstacks {

/// One change of the tables: from the version below to this one. Runs inside the upgrade's transaction.
struct SchemaStep {
    int version = 0;
    std::function<void(SQLite::Database&)> apply;
};

/// The tables of the store and how older ones become them. The version is SQLite's user_version.
namespace StoreSchema {

/// "QSTK": marks the file as a store of this program.
inline constexpr qint32 applicationId = 0x5153544B;

/// All steps, ascending from version 1. A released step is never changed; a new layout is a new step.
[[nodiscard]] const std::vector<SchemaStep>& steps();
[[nodiscard]] int currentVersion();
[[nodiscard]] int version(SQLite::Database& database);

/// Makes the tables in an empty database.
void create(SQLite::Database& database);
/// Copies the store to "<path>.schema-<old version>" (or "….2", "….3" where that is taken), then runs the steps that
/// it lacks, all or none. Throws StoreError or SQLite::Exception; the store is then as it was. Does nothing where no
/// step is due.
void upgrade(SQLite::Database& database, const QString& path, const std::vector<SchemaStep>& steps);

} // namespace StoreSchema
} // namespace Quillstacks
