#include "library/model/StoreError.h"

#include "StoreFailure.h"

#include <QSet>

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <SQLiteCpp/Exception.h>

#include <cerrno>

using namespace Quillstacks;
using Kind = StoreError::Kind;

namespace {

const QString path = QStringLiteral("/tmp/a %2 name/Quillstacks.store");

Kind kindOf(int sqliteCode) {
    return storeError(SQLite::Exception("words", sqliteCode), path).kind();
}

} // namespace

TEST(StoreError, everyKindHasASentenceOfItsOwnThatNamesThePath) {
    QSet<QString> sentences;
    for (const Kind kind : {Kind::cannotOpen, Kind::notADatabase, Kind::unknownSchema, Kind::locked, Kind::diskFull,
                            Kind::readOnly, Kind::failed}) {
        const StoreError error(kind, path, {});
        EXPECT_TRUE(error.errorDescription().contains(path)) << qPrintable(error.errorDescription());
        EXPECT_TRUE(error.debugDescription().contains(path));
        sentences.insert(error.errorDescription());
    }
    EXPECT_EQ(sentences.size(), 7);
}

TEST(StoreError, theSystemsWordsFollowInParentheses) {
    const StoreError error(Kind::locked, path, QStringLiteral("database is locked %1"));

    EXPECT_TRUE(error.errorDescription().endsWith(QLatin1String(" (database is locked %1)")));
    EXPECT_EQ(error.debugDescription(),
              QStringLiteral("StoreError.locked(path: \"/tmp/a %2 name/Quillstacks.store\", detail: \"database is "
                             "locked %1\")"));
}

TEST(StoreError, sqlitesFailuresAreSortedByWhatAPersonCanDo) {
    EXPECT_EQ(kindOf(SQLITE_CORRUPT_INDEX), Kind::notADatabase);
    EXPECT_EQ(kindOf(SQLITE_NOTADB), Kind::notADatabase);
    EXPECT_EQ(kindOf(SQLITE_BUSY_RECOVERY), Kind::locked);
    EXPECT_EQ(kindOf(SQLITE_FULL), Kind::diskFull);
    EXPECT_EQ(kindOf(SQLITE_READONLY_DBMOVED), Kind::readOnly);
    EXPECT_EQ(kindOf(SQLITE_CANTOPEN_ISDIR), Kind::cannotOpen);
    EXPECT_EQ(kindOf(SQLITE_IOERR_WRITE), Kind::failed);
    EXPECT_EQ(kindOf(SQLITE_TOOBIG), Kind::failed);
}

TEST(StoreError, theSystemsFailuresToo) {
    EXPECT_EQ(storeError(EACCES, path).kind(), Kind::cannotOpen);
    EXPECT_EQ(storeError(EROFS, path).kind(), Kind::readOnly);
    EXPECT_EQ(storeError(ENOSPC, path).kind(), Kind::diskFull);
    EXPECT_EQ(storeError(EDQUOT, path).kind(), Kind::diskFull);
}
