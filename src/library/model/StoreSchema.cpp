#include "StoreSchema.h"

#include "StoreFailure.h"

#include <QFile>

#include <fcntl.h>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <unistd.h>

#include <cerrno>
#include <string>

namespace Quillstacks::StoreSchema {

namespace {

// Row ids grow with the insertion, so that they also tell the order of insertion. prompt_tags holds both sides' order:
// "position" within the prompt's tags, "taken" within the tag's prompts.
constexpr const char* firstTables = R"sql(
CREATE TABLE tags(
    row INTEGER PRIMARY KEY, id BLOB NOT NULL, name TEXT NOT NULL, color TEXT NOT NULL,
    created INTEGER NOT NULL, updated INTEGER NOT NULL);
CREATE TABLE prompts(
    row INTEGER PRIMARY KEY, id BLOB NOT NULL, title TEXT NOT NULL, body TEXT NOT NULL,
    created INTEGER NOT NULL, updated INTEGER NOT NULL, pinned INTEGER NOT NULL, pinned_at INTEGER);
CREATE TABLE prompt_tags(
    prompt INTEGER NOT NULL REFERENCES prompts ON DELETE CASCADE,
    tag INTEGER NOT NULL REFERENCES tags ON DELETE CASCADE,
    position INTEGER NOT NULL, taken INTEGER NOT NULL,
    PRIMARY KEY(prompt, tag)) WITHOUT ROWID;
CREATE INDEX prompt_tags_by_tag ON prompt_tags(tag);
CREATE TABLE versions(
    row INTEGER PRIMARY KEY, prompt INTEGER REFERENCES prompts ON DELETE CASCADE, position INTEGER NOT NULL,
    id BLOB NOT NULL, prompt_id BLOB NOT NULL, title TEXT NOT NULL, body TEXT NOT NULL,
    tag_names BLOB NOT NULL, tag_colors BLOB NOT NULL, created INTEGER NOT NULL);
CREATE INDEX versions_by_prompt ON versions(prompt, position);
)sql";

/// Numbers in a pragma can't be bound; these are our own.
void setPragma(SQLite::Database& database, const std::string& name, int value) {
    database.exec("PRAGMA " + name + "=" + std::to_string(value));
}

/// An empty file that only its owner may read, where none stood. Gives its name.
QString reserveCopy(const QString& path, int oldVersion) {
    const QString base = QStringLiteral("%1.schema-%2").arg(path).arg(oldVersion);
    for (int number = 1;; ++number) {
        const QString name = number == 1 ? base : base + QLatin1Char('.') + QString::number(number);
        const int file = ::open(QFile::encodeName(name).constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
        if (file >= 0) {
            ::close(file);
            return name;
        }
        if (errno != EEXIST)
            throw storeError(errno, name);
    }
}

void flushToDisk(const QString& name) {
    const int file = ::open(QFile::encodeName(name).constData(), O_RDONLY | O_CLOEXEC);
    const bool flushed = file >= 0 && ::fsync(file) == 0;
    const int failure = errno;
    if (file >= 0)
        ::close(file);
    if (!flushed)
        throw storeError(failure, name);
}

void copyBeside(SQLite::Database& database, const QString& path, int oldVersion) {
    const QString copy = reserveCopy(path, oldVersion);
    try {
        SQLite::Statement vacuum(database, "VACUUM INTO ?");
        vacuum.bind(1, QFile::encodeName(copy).toStdString());
        vacuum.exec();
        flushToDisk(copy);
    } catch (...) {
        QFile::remove(copy);
        throw;
    }
}

void run(SQLite::Database& database, const std::vector<SchemaStep>& steps, int from) {
    for (const SchemaStep& step : steps) {
        if (step.version <= from)
            continue;
        step.apply(database);
        setPragma(database, "user_version", step.version);
    }
}

} // namespace

const std::vector<SchemaStep>& steps() {
    static const std::vector<SchemaStep> all{
        {1, [](SQLite::Database& database) { database.exec(firstTables); }},
    };
    return all;
}

int currentVersion() {
    return steps().back().version;
}

int version(SQLite::Database& database) {
    return database.execAndGet("PRAGMA user_version").getInt();
}

void create(SQLite::Database& database) {
    SQLite::Transaction transaction(database);
    setPragma(database, "application_id", applicationId);
    run(database, steps(), 0);
    transaction.commit();
}

void upgrade(SQLite::Database& database, const QString& path, const std::vector<SchemaStep>& steps) {
    const int from = version(database);
    if (steps.empty() || from >= steps.back().version)
        return;
    copyBeside(database, path, from);
    SQLite::Transaction transaction(database);
    run(database, steps, from);
    transaction.commit();
}

} // namespace Quillstacks::StoreSchema
