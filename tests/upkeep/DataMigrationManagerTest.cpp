#include "upkeep/DataMigrationManager.h"

#include "platform/FakeDesktop.h"
#include "support/LogCapture.h"
#include "support/TestPreferences.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

const QString marker = QStringLiteral("DataStoreMigrationCompleted_v3");
const QString checking = QStringLiteral("general info: Checking for data store at default SwiftData location");
const QString migrated = QStringLiteral("general default: Data store migrated successfully to explicit location");
const QString startingFresh = QStringLiteral("general info: No data store found at default locations (starting fresh)");

class DataMigration : public testing::Test {
protected:
    void SetUp() override {
        FakeDesktop::fresh().applicationSupportDirectories = QStringList{support.path()};
        ASSERT_TRUE(QDir(support.path()).mkdir(QStringLiteral("app.Quillstacks")));
    }
    [[nodiscard]] QString path(const QString& relative) const { return support.filePath(relative); }
    void write(const QString& relative, const QByteArray& contents) const {
        QFile file(path(relative));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }
    /// Empty when there is no such file.
    [[nodiscard]] QByteArray read(const QString& relative) const {
        QFile file(path(relative));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void migrate() {
        log.clear();
        DataMigrationManager::shared().migrateIfNeeded(path(target));
    }
    [[nodiscard]] bool isMarked() { return preferences->boolean(marker).value_or(false); }
    static QString found(const QString& location) {
        return QStringLiteral("general info: Found data store at default location: ") + location;
    }

    const QString target = QStringLiteral("app.Quillstacks/Quillstacks.store");
    const QString firstOld = QStringLiteral("default.store");
    const QString secondOld = QStringLiteral("app.Quillstacks/default.store");
    QTemporaryDir support;
    TestPreferences preferences;
    LogCapture log;
};

TEST_F(DataMigration, withNoOldStoreTheLibraryStartsFreshAndTheMarkerIsSet) {
    migrate();
    EXPECT_EQ(log.lines(), (QStringList{checking, startingFresh}));
    EXPECT_FALSE(QFile::exists(path(target)));
    EXPECT_TRUE(isMarked());
}

TEST_F(DataMigration, aStoreWithNoSideFilesMigratesFine) {
    write(firstOld, "library");
    migrate();
    EXPECT_EQ(log.lines(), (QStringList{checking, found(firstOld), migrated}));
    EXPECT_EQ(read(target), "library");
    EXPECT_FALSE(QFile::exists(path(target + QStringLiteral("-shm"))));
    EXPECT_FALSE(QFile::exists(path(target + QStringLiteral("-wal"))));
    EXPECT_TRUE(isMarked());
}

TEST_F(DataMigration, aStoreWithOnlyAWalSideFileHasThatOneCopied) {
    write(firstOld, "library");
    write(firstOld + QStringLiteral("-wal"), "log");
    migrate();
    EXPECT_EQ(read(target + QStringLiteral("-wal")), "log");
    EXPECT_FALSE(QFile::exists(path(target + QStringLiteral("-shm"))));
}

TEST_F(DataMigration, bothSideFilesAreCopied) {
    write(secondOld, "library");
    write(secondOld + QStringLiteral("-shm"), "index");
    write(secondOld + QStringLiteral("-wal"), "log");
    migrate();
    EXPECT_EQ(log.lines(), (QStringList{checking, found(secondOld), migrated}));
    EXPECT_EQ(read(target), "library");
    EXPECT_EQ(read(target + QStringLiteral("-shm")), "index");
    EXPECT_EQ(read(target + QStringLiteral("-wal")), "log");
}

TEST_F(DataMigration, withAStoreAtBothOldLocationsTheFirstIsCopiedAndTheOtherNeverLookedAt) {
    write(firstOld, "first");
    write(secondOld, "second");
    migrate();
    EXPECT_EQ(log.lines(), (QStringList{checking, found(firstOld), migrated}));
    EXPECT_EQ(read(target), "first");
}

TEST_F(DataMigration, withAStoreAtTheTargetNothingIsCopied) {
    write(target, "present");
    write(firstOld, "old");
    migrate();
    EXPECT_EQ(log.lines(), QStringList{QStringLiteral("general info: Data store already exists at explicit location")});
    EXPECT_EQ(read(target), "present");
    EXPECT_TRUE(isMarked());
}

TEST_F(DataMigration, withTheMarkerSetAnOldStoreIsIgnoredEvenIfTheTargetIsMissing) {
    preferences->set(marker, true);
    write(firstOld, "old");
    migrate();
    EXPECT_EQ(log.lines(),
              QStringList{QStringLiteral("general debug: Data store migration check already completed, skipping")});
    EXPECT_FALSE(QFile::exists(path(target)));
}

TEST_F(DataMigration, itCopiesAndNeverMovesOrDeletes) {
    write(firstOld, "library");
    write(firstOld + QStringLiteral("-wal"), "log");
    migrate();
    EXPECT_EQ(read(firstOld), "library");
    EXPECT_EQ(read(firstOld + QStringLiteral("-wal")), "log");
}

TEST_F(DataMigration, withoutAnApplicationSupportDirectoryTheMarkerStaysUnset) {
    FakeDesktop::shared().applicationSupportDirectories = QStringList{};
    migrate();
    EXPECT_EQ(log.lines(),
              (QStringList{checking, QStringLiteral("general error: Could not access Application Support directory")}));
    EXPECT_FALSE(isMarked());

    FakeDesktop::shared().applicationSupportDirectories = QStringList{support.path()};
    migrate();
    EXPECT_EQ(log.lines(), (QStringList{checking, startingFresh})) << "the next start looks again";
}

TEST_F(DataMigration, aStoreThatCannotBeCopiedGivesWayToTheNextLocation) {
    // A folder stands there: it exists, and no file can be read from it.
    ASSERT_TRUE(QDir(support.path()).mkdir(firstOld));
    write(secondOld, "second");
    migrate();
    const QStringList lines = log.lines();
    ASSERT_EQ(lines.size(), 5);
    EXPECT_EQ(lines[1], found(firstOld));
    EXPECT_TRUE(lines[2].startsWith(QStringLiteral("general error: Failed to migrate data store: ")));
    EXPECT_TRUE(lines[2].contains(path(firstOld)));
    EXPECT_EQ(lines[3], found(secondOld));
    EXPECT_EQ(lines[4], migrated);
    EXPECT_EQ(read(target), "second");
}

TEST_F(DataMigration, oddity_aStoreThatCouldNotBeCopiedIsNotTriedAgain) {
    ASSERT_TRUE(QDir(support.path()).mkdir(firstOld));
    migrate();
    EXPECT_EQ(log.lines().last(), startingFresh);
    EXPECT_TRUE(isMarked());
    EXPECT_FALSE(QFile::exists(path(target)));

    ASSERT_TRUE(QDir(support.path()).rmdir(firstOld));
    write(firstOld, "readable now");
    migrate();
    EXPECT_FALSE(QFile::exists(path(target)));
}

TEST_F(DataMigration, aFolderThatCannotBeMadeIsAFailureOfEachLocation) {
    write(firstOld, "first");
    write(QStringLiteral("a file"), "in the way");
    log.clear();
    DataMigrationManager::shared().migrateIfNeeded(path(QStringLiteral("a file/below/Quillstacks.store")));
    EXPECT_EQ(log.messages(QStringLiteral("general"), LogLevel::Error).size(), 1);
    EXPECT_EQ(log.lines().last(), startingFresh);
}

TEST_F(DataMigration, aMissingTargetFolderIsMade) {
    write(firstOld, "library");
    const QString deep = QStringLiteral("elsewhere/deep/Quillstacks.store");
    DataMigrationManager::shared().migrateIfNeeded(path(deep));
    EXPECT_EQ(read(deep), "library");
}

TEST_F(DataMigration, aSideFileThatCannotBeCopiedIsIgnoredInSilence) {
    write(firstOld, "library");
    write(firstOld + QStringLiteral("-wal"), "log");
    ASSERT_TRUE(QDir(support.path()).mkdir(firstOld + QStringLiteral("-shm")));
    migrate();
    EXPECT_EQ(log.lines(), (QStringList{checking, found(firstOld), migrated}));
    EXPECT_EQ(read(target + QStringLiteral("-wal")), "log");
    EXPECT_TRUE(isMarked());
}

TEST_F(DataMigration, sideFilesOfATargetThatIsGoneAreSetAsideAndNotTakenForTheCopys) {
    write(firstOld, "library");
    write(target + QStringLiteral("-wal"), "foreign log");
    write(target + QStringLiteral("-wal.orphan-1"), "an earlier one");
    write(target + QStringLiteral("-shm"), "foreign index");
    migrate();
    EXPECT_EQ(read(target), "library");
    EXPECT_FALSE(QFile::exists(path(target + QStringLiteral("-wal"))));
    EXPECT_FALSE(QFile::exists(path(target + QStringLiteral("-shm"))));
    EXPECT_EQ(read(target + QStringLiteral("-wal.orphan-1")), "an earlier one");
    EXPECT_EQ(read(target + QStringLiteral("-wal.orphan-2")), "foreign log");
    EXPECT_EQ(read(target + QStringLiteral("-shm.orphan-1")), "foreign index");
}

TEST_F(DataMigration, theCopiesAreForTheUserAlone) {
    write(firstOld, "library");
    write(firstOld + QStringLiteral("-wal"), "log");
    QFile::setPermissions(path(firstOld), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    migrate();
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    for (const QString& copy : {target, target + QStringLiteral("-wal")}) {
        const QFile::Permissions rights = QFile::permissions(path(copy));
        EXPECT_TRUE(rights & QFile::ReadOwner) << qPrintable(copy);
        EXPECT_FALSE(rights & others) << qPrintable(copy);
    }
}

TEST_F(DataMigration, whatIsCopiedIsNotLookedInto) {
    const QByteArray noDatabase("\0\xff anything at all", 18);
    write(firstOld, noDatabase);
    migrate();
    EXPECT_EQ(read(target), noDatabase);
}

TEST_F(DataMigration, afterTheMarkerIsClearedTheTargetInPlaceSetsItAgain) {
    write(firstOld, "library");
    migrate();
    preferences->removePersistentDomain();
    write(firstOld, "changed since");
    migrate();
    EXPECT_TRUE(isMarked());
    EXPECT_EQ(read(target), "library");
}

} // namespace
} // namespace Quillstacks
