#pragma once

#include "StoreFile.h"
#include "StoreReader.h"
#include "StoreWriter.h"

#include <SQLiteCpp/Database.h>

#include <memory>
#include <optional>
#include <vector>

namespace Quillstacks {

/// The open file. Every function throws StoreError.
///
/// The process holds the store alone: SQLite's own exclusive lock on the file is taken at opening and kept, so that any
/// other SQLite client is refused, ours or not, while the side files stay where they are expected. A first look through
/// a connection that can't write finds out whether the file is sound before anything is changed.
class Store final {
public:
    explicit Store(const QString& path);
    ~Store();
    Q_DISABLE_COPY_MOVE(Store)

    [[nodiscard]] const QString& path() const { return filePath; }
    /// What was read at opening; once.
    [[nodiscard]] StoredRecords takeRecords() { return std::move(records); }
    /// In the order of their list.
    [[nodiscard]] std::vector<std::unique_ptr<PromptVersion>> readVersions(qint64 promptRow);
    [[nodiscard]] bool hasVersions(qint64 promptRow);
    /// Those in no prompt's list, in the order of insertion.
    [[nodiscard]] std::vector<std::unique_ptr<PromptVersion>> readFreeVersions();
    /// All of it or nothing.
    void write(const PendingChanges& changes);
    /// The same in steps. The changes must stay as they are, but for what is added at their end.
    [[nodiscard]] std::unique_ptr<StoreWriting> beginWriting(const PendingChanges& changes);
    /// Looks at so many records; false when all is committed.
    [[nodiscard]] bool continueWriting(StoreWriting& writing, int most);

private:
    void open();
    bool lookFirst();
    void turnLogOn();
    void openForGood();
    void hold();

    QString filePath;
    std::optional<StoreClaim> claim;
    StoredRecords records;
    std::optional<SQLite::Database> database;
    std::optional<SQLite::Statement> selectVersions;
    std::optional<SQLite::Statement> selectAnyVersion;
    std::optional<StoreWriter> writer;
};

} // namespace Quillstacks
