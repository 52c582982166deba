// Stores that can't be opened: each is refused with its reason, and every byte of it stays as it was.
#include "StoreFiles.h"
#include "TestLibrary.h"

#include "library/model/StoreError.h"

#include <QRandomGenerator>

#include <sqlite3.h>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sys/mount.h>

#include <functional>
#include <optional>

using namespace Quillstacks;
using Kind = StoreError::Kind;

namespace {

std::optional<StoreError> failureOf(const QString& path, const Schema& schema = Schema::current()) {
    try {
        const ModelContainer container(schema, {path});
    } catch (const StoreError& error) {
        return error;
    }
    return std::nullopt;
}

struct StoreOpening : testing::Test {
    StoreOpening() {
        Tag* tag = library.addTag(QStringLiteral("tag"));
        for (int number = 0; number < 100; ++number) {
            Prompt* prompt = library.addPrompt(QString::number(number), QString(500, QLatin1Char('x')), {tag});
            library.addVersion(prompt, QStringLiteral("v"));
        }
        library.context().save();
        library.close();
    }

    void expectRefused(Kind kind, const QString& store) {
        const FolderBytes before = bytesOf(library.folderPath());
        const auto failure = failureOf(store);
        ASSERT_TRUE(failure.has_value());
        EXPECT_EQ(failure->kind(), kind) << qPrintable(failure->debugDescription());
        EXPECT_TRUE(failure->errorDescription().contains(store)) << qPrintable(failure->errorDescription());
        EXPECT_TRUE(failure->debugDescription().startsWith(QLatin1String("StoreError.")));
        EXPECT_EQ(bytesOf(library.folderPath()), before);
    }
    void expectRefused(Kind kind) { expectRefused(kind, path); }

    /// Changes the store with SQLite alone. Without a write-back the change is in the log only.
    void alter(const char* statements, bool writeBack = true) {
        SQLite::Database database(QFile::encodeName(path).constData(), SQLite::OPEN_READWRITE);
        sqlite3_db_config(database.getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, writeBack ? 0 : 1, nullptr);
        database.exec(statements);
    }
    void overwrite(qint64 at, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.seek(at);
        file.write(bytes);
    }

    TestLibrary library = TestLibrary();
    const QString path = library.path();
};

QByteArray noise(qsizetype size) {
    QRandomGenerator random(7);
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random.bounded(256));
    return bytes;
}

} // namespace

TEST_F(StoreOpening, aSoundStoreOpens) {
    EXPECT_FALSE(failureOf(path).has_value());
}

TEST_F(StoreOpening, aFileOfNoiseIsRefused) {
    writeFile(path, noise(50'000));
    expectRefused(Kind::notADatabase);
}

TEST_F(StoreOpening, aShortTextFileIsRefused) {
    writeFile(path, "hello");
    expectRefused(Kind::notADatabase);
}

TEST_F(StoreOpening, anEmptyFileIsRefusedAndNotMadeANewStore) {
    writeFile(path, {});
    expectRefused(Kind::notADatabase);
}

TEST_F(StoreOpening, anEmptyFileWithALogBesideItIsRefusedAndTheLogStays) {
    writeFile(path, {});
    writeFile(path + QLatin1String("-wal"), noise(10'000));
    expectRefused(Kind::notADatabase);
}

TEST_F(StoreOpening, aTruncatedStoreIsRefused) {
    ASSERT_TRUE(QFile::resize(path, QFileInfo(path).size() / 2));
    expectRefused(Kind::notADatabase);
}

TEST_F(StoreOpening, aStoreWithDamagedPagesIsRefused) {
    overwrite(4096, noise(static_cast<qsizetype>(QFileInfo(path).size()) - 4096));
    expectRefused(Kind::notADatabase);
}

TEST_F(StoreOpening, everySinglePageOfNoiseIsRefusedOrOpensWithoutChangingAByte) {
    const QByteArray sound = bytesOf(library.folderPath()).value(QStringLiteral("Quillstacks.store"));
    int refused = 0;
    for (qsizetype page = 1; page < sound.size() / 4096; ++page) {
        QByteArray damaged = sound;
        damaged.replace(page * 4096, 4096, noise(4096));
        writeFile(path, damaged);
        if (!failureOf(path).has_value())
            continue; // a page of versions, which are read only when asked for
        ++refused;
        ASSERT_EQ(bytesOf(library.folderPath()).value(QStringLiteral("Quillstacks.store")), damaged);
    }
    EXPECT_GT(refused, 10);
}

TEST_F(StoreOpening, rowsThatNoWriterLeavesAreRefused) {
    alter("UPDATE prompts SET id=x'00' WHERE row=50");
    expectRefused(Kind::notADatabase);
    alter("UPDATE prompts SET id=zeroblob(16), updated='soon' WHERE row=50");
    expectRefused(Kind::notADatabase);
}

TEST_F(StoreOpening, aLinkThatLeadsNowhereIsRefused) {
    alter("PRAGMA foreign_keys=OFF; DELETE FROM tags");
    expectRefused(Kind::notADatabase);
}

TEST_F(StoreOpening, damagedVersionsFailWhenTheyAreRead) {
    alter("UPDATE versions SET tag_names=x'01'");
    library.open();
    Prompt* prompt = library.context().prompts().first();

    EXPECT_TRUE(prompt->hasVersions());
    EXPECT_THROW((void)prompt->versions(), StoreError);
    prompt->setTitle(QStringLiteral("still writable"));
    library.saveAndReopen();
    EXPECT_NE(library.prompt(QStringLiteral("still writable")), nullptr);
}

TEST_F(StoreOpening, anotherProgramsDatabaseIsRefused) {
    QFile::remove(path);
    SQLite::Database(QFile::encodeName(path).constData(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec("CREATE TABLE ZPROMPT(ZTITLE TEXT); INSERT INTO ZPROMPT VALUES('mine')");
    expectRefused(Kind::unknownSchema);
}

TEST_F(StoreOpening, aNewerVersionIsRefused) {
    alter("PRAGMA user_version=2");
    expectRefused(Kind::unknownSchema);
}

TEST_F(StoreOpening, aNewerVersionThatOnlyTheLogKnowsOfIsRefused) {
    alter("PRAGMA user_version=2", false);
    ASSERT_GT(QFileInfo(path + QLatin1String("-wal")).size(), 0);
    expectRefused(Kind::unknownSchema);
    QFile::remove(path + QLatin1String("-shm"));
    expectRefused(Kind::unknownSchema);
}

TEST_F(StoreOpening, aVersionOfZeroIsRefused) {
    alter("PRAGMA user_version=0");
    expectRefused(Kind::unknownSchema);
}

TEST_F(StoreOpening, missingTablesAreRefused) {
    alter("DROP TABLE prompt_tags");
    expectRefused(Kind::unknownSchema);
}

TEST_F(StoreOpening, aSchemaThatTheProgramDoesNotKnowIsRefused) {
    for (const Schema& schema : {Schema{Schema::current().models, QStringLiteral("2.0.0")}, Schema{{}, {}}}) {
        const auto failure = failureOf(path, schema);
        ASSERT_TRUE(failure.has_value());
        EXPECT_EQ(failure->kind(), Kind::unknownSchema);
    }
}

TEST_F(StoreOpening, aFolderInItsPlaceIsRefused) {
    QFile::remove(path);
    ASSERT_TRUE(QDir().mkdir(path));
    expectRefused(Kind::cannotOpen);
    EXPECT_TRUE(QFileInfo(path).isDir());
}

TEST_F(StoreOpening, aDanglingLinkInItsPlaceIsRefused) {
    QFile::remove(path);
    ASSERT_TRUE(QFile::link(library.folderPath() + QLatin1String("/nowhere"), path));
    expectRefused(Kind::cannotOpen);
    EXPECT_TRUE(QFileInfo(path).isSymLink());
}

TEST_F(StoreOpening, aMissingFolderIsRefused) {
    expectRefused(Kind::cannotOpen, library.folderPath() + QLatin1String("/missing/Quillstacks.store"));
}

TEST_F(StoreOpening, aReadOnlyFileIsRefused) {
    setMode(path, 0400);
    const OrdinaryUser user(library.folderPath());
    expectRefused(Kind::readOnly);
    EXPECT_EQ(modeOf(path), 0400);
}

TEST_F(StoreOpening, aReadOnlyFolderIsRefused) {
    setMode(library.folderPath(), 0500);
    {
        const OrdinaryUser user(library.folderPath());
        expectRefused(Kind::readOnly);
        expectRefused(Kind::readOnly, library.folderPath() + QLatin1String("/new.store"));
    }
    setMode(library.folderPath(), 0700);
}

TEST_F(StoreOpening, anUnreadableFileIsRefused) {
    setMode(path, 0200);
    const OrdinaryUser user(library.folderPath());
    EXPECT_EQ(failureOf(path)->kind(), Kind::cannotOpen);
}

TEST_F(StoreOpening, aStoreThatAnotherProcessHasOpenIsLocked) {
    StoreProcess other("hold", path);
    ASSERT_EQ(other.line(), QStringLiteral("held"));
    expectRefused(Kind::locked);
    EXPECT_EQ(other.finish(), 0);
    EXPECT_FALSE(failureOf(path).has_value());
}

TEST_F(StoreOpening, aStoreThatAnotherProgramReadsIsLocked) {
    StoreProcess other("read", path);
    ASSERT_EQ(other.line(), QStringLiteral("held"));
    expectRefused(Kind::locked);
    EXPECT_EQ(other.finish(), 0);
    EXPECT_FALSE(failureOf(path).has_value());
}

TEST_F(StoreOpening, nobodyElseCanReadOrWriteAnOpenStore) {
    library.open();
    for (const char* mode : {"hold", "read"}) {
        StoreProcess other(mode, path);
        EXPECT_NE(other.line(), QStringLiteral("held"));
        EXPECT_EQ(other.finish(), 1);
    }
    library.addPrompt(QStringLiteral("after"));
    library.saveAndReopen();
    EXPECT_NE(library.prompt(QStringLiteral("after")), nullptr);
}

TEST_F(StoreOpening, aStoreIsLockedForASecondContainerOfTheSameProcess) {
    library.open();
    const auto failure = failureOf(path);
    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(failure->kind(), Kind::locked);
    // The refused attempt must not have loosened the first one's lock.
    StoreProcess other("hold", path);
    EXPECT_NE(other.line(), QStringLiteral("held"));
}

TEST(StoreCreation, onAFullDiskNothingIsLeftBehind) {
    QTemporaryDir folder;
    const QByteArray name = QFile::encodeName(folder.path());
    if (::mount("tmpfs", name.constData(), "tmpfs", 0, "size=8k") != 0)
        GTEST_SKIP() << "this needs the right to mount a tiny disk";
    const auto failure = failureOf(folder.filePath(QStringLiteral("Quillstacks.store")));
    const FolderBytes left = bytesOf(folder.path());
    ::umount(name.constData());

    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(failure->kind(), Kind::diskFull) << qPrintable(failure->debugDescription());
    EXPECT_TRUE(left.isEmpty());
}

TEST(StoreOnAFullDisk, isRefusedAndStaysAsItWas) {
    QTemporaryDir folder;
    const QByteArray name = QFile::encodeName(folder.path());
    if (::mount("tmpfs", name.constData(), "tmpfs", 0, "size=200k") != 0)
        GTEST_SKIP() << "this needs the right to mount a tiny disk";
    const QString path = folder.filePath(QStringLiteral("Quillstacks.store"));
    { const ModelContainer container(Schema::current(), {path}); }
    {
        QFile filler(folder.filePath(QStringLiteral("filler")));
        ASSERT_TRUE(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        while (filler.write(QByteArray(1024, 'x')) == 1024) {
        }
    }
    const FolderBytes before = bytesOf(folder.path());
    const auto failure = failureOf(path);
    const FolderBytes after = bytesOf(folder.path());
    QFile::remove(folder.filePath(QStringLiteral("filler")));
    const auto later = failureOf(path);
    ::umount(name.constData());

    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(failure->kind(), Kind::diskFull) << qPrintable(failure->debugDescription());
    EXPECT_EQ(after, before);
    EXPECT_FALSE(later.has_value());
}
