#include "Store.h"

#include "StoreFailure.h"
#include "StoreSchema.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>
#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Transaction.h>

#include <string>

namespace Quillstacks {

namespace {

/// One thread has the store, so SQLite need not guard itself.
constexpr int openFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;

/// Closing the last connection normally writes the log back into the file; a store that we refuse stays as it is.
void setWriteBackOnClose(SQLite::Database& database, bool on) {
    sqlite3_db_config(database.getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, on ? 0 : 1, nullptr);
}

/// Takes away what only our own opening has put beside the file, when it ends without success.
class SideFiles final {
public:
    explicit SideFiles(const QString& store)
        : path(store), hadWal(QFile::exists(StoreFile::walPath(store))),
          hadShm(QFile::exists(StoreFile::shmPath(store))) {}
    void clear() const {
        const QFileInfo wal(StoreFile::walPath(path));
        if (!hadWal && wal.exists() && wal.size() == 0)
            QFile::remove(wal.filePath());
        if (!hadShm)
            QFile::remove(StoreFile::shmPath(path));
    }

private:
    const QString path;
    const bool hadWal;
    const bool hadShm;
};

std::string textOf(const char* start, const char* columns, const char* end) {
    return std::string(start) + columns + end;
}

void refuseUnknownVersion(SQLite::Database& database, const QString& path) {
    const int version = StoreSchema::version(database);
    if (version < 1 || version > StoreSchema::currentVersion())
        throw StoreError(StoreError::Kind::unknownSchema, path, QStringLiteral("its version is %1").arg(version));
}

/// A statement that SQLite can't make sense of while the store is opened means other tables than ours.
StoreError openingError(const SQLite::Exception& error, const QString& path) {
    if (error.getErrorCode() == SQLITE_ERROR)
        return StoreError(StoreError::Kind::unknownSchema, path, QString::fromUtf8(error.what()));
    return storeError(error, path);
}

} // namespace

Store::Store(const QString& path) : filePath(path) {
    claim.emplace(filePath);
    if (!StoreFile::check(filePath)) {
        StoreFile::create(filePath);
        claim.emplace(filePath);
    }
    const SideFiles sideFiles(filePath);
    try {
        open();
    } catch (const SQLite::Exception& error) {
        const StoreError failure = openingError(error, filePath);
        if (failure.kind() != StoreError::Kind::locked) // what is there then belongs to the other process
            sideFiles.clear();
        throw failure;
    } catch (const StoreError& failure) {
        if (failure.kind() != StoreError::Kind::locked)
            sideFiles.clear();
        throw;
    }
}

void Store::open() {
    if (!lookFirst()) {
        turnLogOn();
        lookFirst();
    }
    const StoreFile::Signature looked = StoreFile::signature(filePath);
    StoreFile::makePrivate(filePath);
    openForGood();
    if (StoreFile::signature(filePath) != looked)
        throw StoreError(StoreError::Kind::locked, filePath, QStringLiteral("it was changed meanwhile"));
    if (StoreSchema::version(*database) < StoreSchema::currentVersion()) {
        StoreSchema::upgrade(*database, filePath, StoreSchema::steps());
        records = StoreReader::readAll(*database);
    }
    selectVersions.emplace(
        *database, textOf("SELECT ", StoreReader::versionColumns, " FROM versions WHERE prompt=? ORDER BY position"));
    selectAnyVersion.emplace(*database, "SELECT 1 FROM versions WHERE prompt=? LIMIT 1");
    writer.emplace(*database);
    setWriteBackOnClose(*database, true);
    StoreFile::makePrivate(filePath);
}

Store::~Store() = default;

/// In the exclusive mode SQLite keeps its index of the log in memory, so this look changes no file; at most it makes an
/// empty log. Tells whether the write-ahead log is on.
bool Store::lookFirst() {
    SQLite::Database look(QFile::encodeName(filePath).constData(), openFlags);
    setWriteBackOnClose(look, false);
    look.exec("PRAGMA locking_mode=EXCLUSIVE");
    look.exec("PRAGMA query_only=ON");
    look.exec("PRAGMA trusted_schema=OFF");
    refuseUnknownVersion(look, filePath);
    if (StoreSchema::version(look) == StoreSchema::currentVersion())
        records = StoreReader::readAll(look);
    return look.execAndGet("PRAGMA journal_mode").getString() == "wal";
}

/// A sound store may be without it, as the copy is that is made before an upgrade.
void Store::turnLogOn() {
    SQLite::Database plain(QFile::encodeName(filePath).constData(), openFlags);
    plain.exec("PRAGMA journal_mode=WAL");
}

void Store::openForGood() {
    database.emplace(QFile::encodeName(filePath).constData(), openFlags);
    setWriteBackOnClose(*database, false);
    hold();
    database->exec("PRAGMA synchronous=FULL");
    database->exec("PRAGMA foreign_keys=ON");
    database->exec("PRAGMA trusted_schema=OFF");
    database->exec("PRAGMA journal_size_limit=16777216"); // a large import does not leave a large log behind
}

/// The first read comes before the exclusive mode: only then does SQLite keep "-shm" in the exclusive mode, too.
void Store::hold() {
    database->execAndGet("SELECT count(*) FROM sqlite_schema");
    database->exec("PRAGMA locking_mode=EXCLUSIVE");
    SQLite::Transaction lock(*database, SQLite::TransactionBehavior::IMMEDIATE);
    lock.commit();
}

std::vector<std::unique_ptr<PromptVersion>> Store::readVersions(qint64 promptRow) {
    try {
        selectVersions->tryReset();
        selectVersions->bind(1, static_cast<int64_t>(promptRow));
        auto versions = StoreReader::readVersions(*selectVersions);
        selectVersions->reset();
        return versions;
    } catch (const SQLite::Exception& error) {
        selectVersions->tryReset(); // an open read would keep the log from being written back
        throw storeError(error, filePath);
    }
}

bool Store::hasVersions(qint64 promptRow) {
    try {
        selectAnyVersion->tryReset();
        selectAnyVersion->bind(1, static_cast<int64_t>(promptRow));
        const bool any = selectAnyVersion->executeStep();
        selectAnyVersion->reset();
        return any;
    } catch (const SQLite::Exception& error) {
        selectAnyVersion->tryReset();
        throw storeError(error, filePath);
    }
}

std::vector<std::unique_ptr<PromptVersion>> Store::readFreeVersions() {
    try {
        SQLite::Statement rows(*database, textOf("SELECT ", StoreReader::versionColumns,
                                                 " FROM versions WHERE prompt IS NULL ORDER BY row"));
        return StoreReader::readVersions(rows);
    } catch (const SQLite::Exception& error) {
        throw storeError(error, filePath);
    }
}

void Store::write(const PendingChanges& changes) {
    try {
        writer->write(changes);
    } catch (const SQLite::Exception& error) {
        throw storeError(error, filePath);
    }
}

std::unique_ptr<StoreWriting> Store::beginWriting(const PendingChanges& changes) {
    try {
        return std::make_unique<StoreWriting>(*writer, changes);
    } catch (const SQLite::Exception& error) {
        throw storeError(error, filePath);
    }
}

bool Store::continueWriting(StoreWriting& writing, int most) {
    try {
        return writing.step(most);
    } catch (const SQLite::Exception& error) {
        throw storeError(error, filePath);
    }
}

} // namespace Quillstacks
