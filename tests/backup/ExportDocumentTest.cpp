#include "backup/ExportDocument.h"

#include "AsNobody.h"
#include "FileReading.h"
#include "FileWriting.h"

#include "backup/format/BackupError.h"
#include "platform/FileError.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Quillstacks {
namespace {

/// While one is alive, no file of this process can grow beyond a size: what a full disk looks like.
class FullDisk final {
public:
    explicit FullDisk(rlim_t bytes) : handler(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before);
        const struct rlimit limit { bytes, before.rlim_max };
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    struct rlimit before {};
    sighandler_t handler;
};

class ExportDocumentTest : public testing::Test {
protected:
    [[nodiscard]] QString path(const char* name = "Backup.json") const {
        return folder.filePath(QString::fromLatin1(name));
    }
    static QByteArray contents(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void put(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    [[nodiscard]] QStringList names() const {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }
    /// Why the file system refuses it; empty when it doesn't.
    static std::string refusal(const QString& path, const QByteArray& bytes) {
        try {
            ExportDocument{bytes}.write(path);
        } catch (const FileError& error) {
            return error.errorDescription().toStdString();
        }
        return {};
    }
    [[nodiscard]] static std::string unwritable(const QString& path, const char* why) {
        return "Could not write the file “" + path.toStdString() + "”: " + why + ".";
    }
    /// To nobody, who may then do in the folder what its rights say.
    void giveAway(const QString& file, mode_t fileRights, mode_t folderRights) const {
        for (const auto& [name, rights] : {std::pair(file, fileRights), std::pair(folder.path(), folderRights)}) {
            const QByteArray encoded = QFile::encodeName(name);
            if (::geteuid() == 0) {
                ASSERT_EQ(::chown(encoded.constData(), AsNobody::nobody, gid_t(-1)), 0);
            }
            ASSERT_EQ(::chmod(encoded.constData(), rights), 0);
        }
    }
    static mode_t rights(const QString& path) {
        struct stat there {};
        EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &there), 0);
        return there.st_mode & 07777;
    }

    QTemporaryDir folder;
    const QByteArray older = "older";
    const QByteArray large = QByteArray(5 << 20, 'x');
};

TEST_F(ExportDocumentTest, createdWithBytesItHoldsThem) {
    EXPECT_EQ(ExportDocument{QByteArray("{}")}.data, QByteArray("{}"));
    EXPECT_FALSE(ExportDocument().data.has_value());
}

TEST_F(ExportDocumentTest, whatIsWrittenIsReadBack) {
    for (const QByteArray& bytes : {QByteArray(), QByteArray("{}"), large}) {
        ExportDocument{bytes}.write(path());
        EXPECT_EQ(contents(path()), bytes);
        EXPECT_EQ(ExportDocument::read(path()).data, bytes);
        EXPECT_EQ(names(), QStringList{QStringLiteral("Backup.json")}) << "nothing else is left";
    }
}

TEST_F(ExportDocumentTest, withoutDataTheFileNameIsInvalid) {
    put(path(), older);
    try {
        ExportDocument().write(path());
        FAIL();
    } catch (const BackupError& error) {
        EXPECT_EQ(error.kind(), BackupError::Kind::invalidFileName);
    }
    EXPECT_EQ(contents(path()), older);
}

TEST_F(ExportDocumentTest, whatHasNoRegularContentIsCorrupt) {
    QDir(folder.path()).mkdir(QStringLiteral("folder"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    for (const QString& odd : {path("folder"), path("pipe"), QStringLiteral("/dev/zero")}) {
        try {
            std::ignore = ExportDocument::read(odd);
            FAIL() << odd.toStdString();
        } catch (const BackupError& error) {
            EXPECT_EQ(error.kind(), BackupError::Kind::corruptFile);
        }
    }
    EXPECT_THROW(std::ignore = ExportDocument::read(path("missing")), FileError);
}

TEST_F(ExportDocumentTest, aNewBackupIsTheUsersAloneAndAnOlderOneKeepsItsRights) {
    ExportDocument{older}.write(path());
    EXPECT_EQ(rights(path()), 0600U);
    ASSERT_EQ(::chmod(QFile::encodeName(path()).constData(), 0640), 0);
    ExportDocument{large}.write(path());
    EXPECT_EQ(rights(path()), 0640U);
}

TEST_F(ExportDocumentTest, theOlderBackupStandsUntilAllOfTheNewOneIsWritten) {
    put(path(), older);
    FileWriting writing(path(), large);
    while (writing.fraction() < 1) {
        ASSERT_TRUE(writing.step());
        EXPECT_EQ(contents(path()), older);
    }
    EXPECT_FALSE(writing.step());
    EXPECT_EQ(contents(path()), large);
}

TEST_F(ExportDocumentTest, oneThatIsGivenUpLeavesTheOlderBackupAndNothingElse) {
    put(path(), older);
    {
        FileWriting writing(path(), large);
        ASSERT_TRUE(writing.step());
        ASSERT_TRUE(writing.step());
        EXPECT_EQ(names().size(), 2);
    }
    EXPECT_EQ(contents(path()), older);
    EXPECT_EQ(names(), QStringList{QStringLiteral("Backup.json")});
}

TEST_F(ExportDocumentTest, aFullDiskLeavesTheOlderBackupAndNothingElse) {
    put(path(), older);
    {
        const FullDisk disk((2 << 20) + 100);
        EXPECT_THROW(ExportDocument{large}.write(path()), FileError);
        EXPECT_THROW(ExportDocument{large}.write(path("other.json")), FileError);
    }
    EXPECT_EQ(contents(path()), older);
    EXPECT_EQ(names(), QStringList{QStringLiteral("Backup.json")});
}

TEST_F(ExportDocumentTest, aProcessThatIsKilledLeavesTheOlderBackup) {
    put(path(), older);
    const pid_t child = ::fork();
    if (child == 0) {
        FileWriting writing(path(), large);
        std::ignore = writing.step();
        std::ignore = writing.step();
        ::kill(::getpid(), SIGKILL);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(contents(path()), older);
    ExportDocument{large}.write(path());
    EXPECT_EQ(contents(path()), large) << "the next one takes its place";
}

TEST_F(ExportDocumentTest, aBackupThatIsWriteProtectedIsNotReplaced) {
    put(path(), older);
    giveAway(path(), 0600, 0700);
    {
        const AsNobody nobody;
        EXPECT_EQ(refusal(path(), "as long as it may be written"), "");
    }
    giveAway(path(), 0400, 0700);
    {
        const AsNobody nobody;
        EXPECT_EQ(refusal(path(), large), unwritable(path(), "Permission denied"));
    }
    EXPECT_EQ(contents(path()), "as long as it may be written");
    EXPECT_EQ(rights(path()), 0400U);
    EXPECT_EQ(names(), QStringList{QStringLiteral("Backup.json")});
}

TEST_F(ExportDocumentTest, inAFolderThatIsReadOnlyTheOlderBackupStays) {
    put(path(), older);
    giveAway(path(), 0600, 0500);
    {
        const AsNobody nobody;
        EXPECT_EQ(refusal(path(), large), unwritable(path(), "Permission denied"));
        EXPECT_EQ(refusal(path("New.json"), large), unwritable(path("New.json"), "Permission denied"));
    }
    EXPECT_EQ(contents(path()), older);
    EXPECT_EQ(names(), QStringList{QStringLiteral("Backup.json")});
    giveAway(path(), 0600, 0700); // so that it can be tidied up
}

TEST_F(ExportDocumentTest, aLinkStaysALinkAndItsTargetIsReplaced) {
    QDir(folder.path()).mkdir(QStringLiteral("elsewhere"));
    const QString target = path("elsewhere/real.json");
    put(target, older);
    ASSERT_TRUE(QFile::link(target, path()));
    ExportDocument{large}.write(path());
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
    EXPECT_EQ(contents(target), large);
}

TEST_F(ExportDocumentTest, aLinkToWhatIsNotThereYetStaysALink) {
    QDir(folder.path()).mkdir(QStringLiteral("elsewhere"));
    // By way of another one, each from where it stands.
    ASSERT_EQ(::symlink("elsewhere/next.json", QFile::encodeName(path()).constData()), 0);
    ASSERT_EQ(::symlink("../real.json", QFile::encodeName(path("elsewhere/next.json")).constData()), 0);
    ExportDocument{older}.write(path());
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
    EXPECT_TRUE(QFileInfo(path("elsewhere/next.json")).isSymLink());
    EXPECT_EQ(contents(path("real.json")), older);
    EXPECT_FALSE(QFileInfo(path("real.json")).isSymLink());
    ExportDocument{large}.write(path());
    EXPECT_EQ(contents(path("real.json")), large);
}

TEST_F(ExportDocumentTest, linksThatLeadInACircleStayAsTheyAre) {
    ASSERT_TRUE(QFile::link(path("other.json"), path()));
    ASSERT_TRUE(QFile::link(path(), path("other.json")));
    EXPECT_EQ(refusal(path(), older), unwritable(path(), "Too many levels of symbolic links"));
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
    EXPECT_TRUE(QFileInfo(path("other.json")).isSymLink());
}

TEST_F(ExportDocumentTest, aPathMayBeginWhereTheProgramStands) {
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    const std::string refused = refusal(QStringLiteral("Backup.json"), older);
    ASSERT_TRUE(QDir::setCurrent(before));
    EXPECT_EQ(refused, "");
    EXPECT_EQ(contents(path()), older);
}

TEST_F(ExportDocumentTest, aFolderOrAPipeIsNotReplaced) {
    QDir(folder.path()).mkdir(QStringLiteral("folder"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    EXPECT_EQ(refusal(path("folder"), older), unwritable(path("folder"), "Is a directory"));
    EXPECT_EQ(refusal(path("pipe"), older), unwritable(path("pipe"), "File exists"));
    EXPECT_EQ(refusal(path("missing/Backup.json"), older),
              unwritable(path("missing/Backup.json"), "No such file or directory"));
    EXPECT_EQ(names(), (QStringList{QStringLiteral("folder"), QStringLiteral("pipe")}));
}

TEST_F(ExportDocumentTest, aNameMayBeAsLongAsNamesCanBe) {
    const QByteArray name = QByteArray(250, 'n') + ".json";
    ExportDocument{older}.write(path(name.constData()));
    EXPECT_EQ(contents(path(name.constData())), older);
}

} // namespace
} // namespace Quillstacks
