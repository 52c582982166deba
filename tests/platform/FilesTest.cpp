#include "platform/Files.h"

#include "platform/FakeDesktop.h"
#include "platform/FileError.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Quillstacks {

namespace {

class FilesTest : public testing::Test {
protected:
    [[nodiscard]] QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }

    static mode_t modeOf(const QString& name) {
        struct stat there {};
        EXPECT_EQ(::stat(QFile::encodeName(name).constData(), &there), 0) << qPrintable(name);
        return there.st_mode & 07777;
    }
    static void write(const QString& name, const QByteArray& bytes) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    static QByteArray read(const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }

    QTemporaryDir folder;
};

TEST_F(FilesTest, createDirectoryMakesAllParentsForTheUserAlone) {
    const mode_t before = ::umask(022);
    Files::createDirectory(path("a/b/c"));
    ::umask(before);
    for (const char* made : {"a", "a/b", "a/b/c"})
        EXPECT_EQ(modeOf(path(made)), 0700U) << made;
}

TEST_F(FilesTest, createDirectorySucceedsWhenItExistsAndTakesOthersRightsFromIt) {
    ASSERT_EQ(::mkdir(QFile::encodeName(path("there")).constData(), 0700), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(path("there")).constData(), 0755), 0);
    write(path("there/kept"), "x");
    Files::createDirectory(path("there"));
    EXPECT_EQ(modeOf(path("there")), 0700U);
    EXPECT_EQ(read(path("there/kept")), "x");
}

TEST_F(FilesTest, createDirectoryLeavesExistingParentsAsTheyAre) {
    ASSERT_EQ(::mkdir(QFile::encodeName(path("shared")).constData(), 0700), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(path("shared")).constData(), 0755), 0);
    Files::createDirectory(path("shared/own"));
    EXPECT_EQ(modeOf(path("shared")), 0755U);
    EXPECT_EQ(modeOf(path("shared/own")), 0700U);
}

TEST_F(FilesTest, createDirectoryTakesATrailingSlashAndLinksToFolders) {
    Files::createDirectory(path("real/"));
    ASSERT_TRUE(QFile::link(path("real"), path("link")));
    Files::createDirectory(path("link"));
    Files::createDirectory(path("link/below"));
    EXPECT_TRUE(QFileInfo(path("real/below")).isDir());
}

TEST_F(FilesTest, createDirectoryWhereAFileStandsNamesThePath) {
    write(path("file"), "x");
    for (const char* name : {"file", "file/below"}) {
        try {
            Files::createDirectory(path(name));
            FAIL() << name;
        } catch (const FileError& error) {
            EXPECT_TRUE(error.errorDescription().contains(path(name))) << qPrintable(error.errorDescription());
        }
    }
    EXPECT_EQ(read(path("file")), "x");
}

TEST_F(FilesTest, createDirectoryOnALinkToNowhereFails) {
    ASSERT_TRUE(QFile::link(path("nowhere"), path("link")));
    EXPECT_THROW(Files::createDirectory(path("link")), FileError);
}

TEST_F(FilesTest, fileExistsKnowsFilesAndFolders) {
    EXPECT_FALSE(Files::fileExists(path("file")));
    write(path("file"), "");
    EXPECT_TRUE(Files::fileExists(path("file")));
    EXPECT_TRUE(Files::fileExists(folder.path()));
    EXPECT_FALSE(Files::fileExists(QString()));
}

TEST_F(FilesTest, copyItemCopiesEveryByteForTheUserAlone) {
    QByteArray bytes;
    for (int index = 0; index < 3 * 1024 * 1024 + 7; ++index)
        bytes += static_cast<char>(index * 31);
    write(path("from"), bytes);
    ASSERT_EQ(::chmod(QFile::encodeName(path("from")).constData(), 0644), 0);
    Files::copyItem(path("from"), path("to"));
    EXPECT_EQ(read(path("to")), bytes);
    EXPECT_EQ(modeOf(path("to")), 0600U);
    EXPECT_EQ(read(path("from")), bytes) << "copied, never moved";
}

TEST_F(FilesTest, copyItemCopiesAnEmptyFile) {
    write(path("from"), "");
    Files::copyItem(path("from"), path("to"));
    EXPECT_EQ(read(path("to")), QByteArray());
}

TEST_F(FilesTest, copyItemNeverReplaces) {
    write(path("from"), "new");
    write(path("to"), "old");
    EXPECT_THROW(Files::copyItem(path("from"), path("to")), FileError);
    EXPECT_EQ(read(path("to")), "old");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), (QStringList{QStringLiteral("from"), QStringLiteral("to")}));
}

TEST_F(FilesTest, copyItemOfNothingNamesWhatIsMissing) {
    try {
        Files::copyItem(path("missing"), path("to"));
        FAIL();
    } catch (const FileError& error) {
        EXPECT_TRUE(error.errorDescription().contains(path("missing")));
    }
    EXPECT_FALSE(Files::fileExists(path("to")));
}

TEST_F(FilesTest, copyItemOfAFolderFailsAndLeavesNothing) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("from")));
    EXPECT_THROW(Files::copyItem(path("from"), path("to")), FileError);
    EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files).isEmpty());
}

TEST_F(FilesTest, copyItemThatFailsMidwayLeavesNothing) {
    // A regular file that opens, and whose first bytes, of no mapped page, refuse to be read.
    EXPECT_THROW(Files::copyItem(QStringLiteral("/proc/self/mem"), path("to")), FileError);
    EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files).isEmpty());
}

TEST_F(FilesTest, copyItemOfAPipeNeitherWaitsNorCopies) {
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("from")).constData(), 0600), 0);
    EXPECT_THROW(Files::copyItem(path("from"), path("to")), FileError);
    EXPECT_FALSE(Files::fileExists(path("to")));
}

TEST_F(FilesTest, copyItemIntoAFolderThatIsNotThereFails) {
    write(path("from"), "x");
    EXPECT_THROW(Files::copyItem(path("from"), path("no/to")), FileError);
}

TEST(FileError, tellsWhatFailedOnWhichPathAndWhy) {
    const FileError error(QStringLiteral("/some/where"), EACCES, QStringLiteral("make the folder"));
    EXPECT_EQ(error.errorDescription(), QStringLiteral("Could not make the folder “/some/where”: Permission denied."));
    EXPECT_EQ(error.debugDescription(), QStringLiteral("FileError(make the folder, path: /some/where, error number: "
                                                       "13, Permission denied)"));
    EXPECT_STREQ(error.what(), error.errorDescription().toUtf8().constData());
}

} // namespace
} // namespace Quillstacks
