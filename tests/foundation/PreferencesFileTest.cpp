#include "foundation/Preferences.h"
#include "support/LogCapture.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Quillstacks {
namespace {

const QString entry = QStringLiteral("key");

class PreferencesFile : public testing::Test {
protected:
    [[nodiscard]] QByteArray read(const QString& path) const {
        QFile source(path);
        return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray("(none)");
    }
    void write(const QByteArray& bytes) const {
        QDir().mkpath(QFileInfo(file).absolutePath());
        QFile target(file);
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        ASSERT_EQ(target.write(bytes), bytes.size());
    }
    static mode_t modeOf(const QString& path) {
        struct stat status {};
        return stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777 : 0;
    }
    [[nodiscard]] QStringList names() const {
        return QDir(QFileInfo(file).absolutePath()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }

    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("config/app.Quillstacks/preferences.json"));
    const LogCapture log;
};

TEST_F(PreferencesFile, nothingIsMadeBeforeTheFirstValue) {
    const Preferences preferences(file);
    EXPECT_FALSE(QFileInfo::exists(folder.filePath(QStringLiteral("config"))));
}

TEST_F(PreferencesFile, eachChangeIsOnDiskAtOnce) {
    Preferences preferences(file);
    preferences.set(entry, QStringLiteral("a\u00E9\U0001F600\n\"\\"));
    EXPECT_EQ(Preferences(file).text(entry), QStringLiteral("a\u00E9\U0001F600\n\"\\"));
    preferences.remove(entry);
    EXPECT_FALSE(Preferences(file).contains(entry));
}

TEST_F(PreferencesFile, isReadableByItsOwnerAlone) {
    const mode_t mask = umask(0);
    Preferences(file).set(entry, true);
    umask(mask);
    EXPECT_EQ(modeOf(file), 0600U);
    EXPECT_EQ(modeOf(QFileInfo(file).absolutePath()), 0700U);
    EXPECT_EQ(modeOf(folder.filePath(QStringLiteral("config"))), 0700U);
}

TEST_F(PreferencesFile, aFileThatOthersCouldReadIsClosedToThemAtOpening) {
    for (const char* contents : {"{}", "broken"}) {
        write(contents);
        const QString parent = QFileInfo(file).absolutePath();
        ASSERT_EQ(chmod(QFile::encodeName(file).constData(), 0644), 0);
        ASSERT_EQ(chmod(QFile::encodeName(parent).constData(), 0755), 0);
        const Preferences preferences(file);
        for (const QString& name : names())
            EXPECT_EQ(modeOf(parent + QLatin1Char('/') + name), 0600U) << qPrintable(name);
        EXPECT_EQ(names().size(), 1);
        EXPECT_EQ(modeOf(parent), 0700U);
        EXPECT_NE(modeOf(folder.filePath(QStringLiteral("config"))), 0U) << "the folders above are not the program's";
    }
}

TEST_F(PreferencesFile, aFileThatCannotBeReadStaysWhatItIs) {
    // It opens, and its first bytes, of no mapped page, refuse to be read, as those of a failing disk.
    QDir().mkpath(QFileInfo(file).absolutePath());
    ASSERT_TRUE(QFile::link(QStringLiteral("/proc/self/mem"), file));
    {
        Preferences preferences(file);
        EXPECT_EQ(log.messages(QStringLiteral("general"), LogLevel::Error).size(), 1);
        preferences.set(entry, true);
        EXPECT_EQ(preferences.boolean(entry), true) << "the value holds in memory";
        EXPECT_EQ(log.messages(QStringLiteral("general"), LogLevel::Error).size(), 2);
    }
    EXPECT_EQ(names(), QStringList(QStringLiteral("preferences.json"))) << "neither renamed nor replaced";
    EXPECT_TRUE(QFileInfo(file).isSymLink());
}

TEST_F(PreferencesFile, aFileWithoutTheRightToReadItStaysWhatItIs) {
    write(R"({"key": "precious"})");
    ASSERT_EQ(chmod(QFile::encodeName(file).constData(), 0), 0);
    if (access(QFile::encodeName(file).constData(), R_OK) == 0)
        GTEST_SKIP() << "the superuser may read everything";
    Preferences(file).set(QStringLiteral("other"), true);
    ASSERT_EQ(chmod(QFile::encodeName(file).constData(), 0600), 0);
    EXPECT_EQ(Preferences(file).text(entry), QStringLiteral("precious"));
}

TEST_F(PreferencesFile, leavesNoTemporaryFileBehind) {
    Preferences(file).set(entry, true);
    EXPECT_EQ(names(), QStringList(QStringLiteral("preferences.json")));
}

TEST_F(PreferencesFile, unknownKeysAreKept) {
    write(R"({"foreign": {"list": [1, 2.5, null, "x"]}, "big": 9007199254740993})");
    Preferences(file).set(entry, true);
    const QByteArray bytes = read(file).simplified().replace(' ', "");
    EXPECT_EQ(bytes, R"({"big":9007199254740993,"foreign":{"list":[1,2.5,null,"x"]},"key":true})");
}

TEST_F(PreferencesFile, aBrokenFileIsSetAsideAndDefaultsApply) {
    write("{\"key\": tru");
    Preferences preferences(file);
    EXPECT_FALSE(preferences.contains(entry));
    EXPECT_EQ(read(file + QStringLiteral(".broken")), "{\"key\": tru");
    EXPECT_FALSE(QFileInfo::exists(file));
    EXPECT_EQ(log.messages(QStringLiteral("general"), LogLevel::Error).size(), 1);
    preferences.set(entry, true);
    EXPECT_EQ(Preferences(file).boolean(entry), true);
}

TEST_F(PreferencesFile, aSecondBrokenFileLeavesTheFirst) {
    for (const char* contents : {"first", "", "[3]"}) {
        write(contents);
        const Preferences preferences(file);
    }
    EXPECT_EQ(read(file + QStringLiteral(".broken")), "first");
    EXPECT_EQ(read(file + QStringLiteral(".broken2")), "") << "an empty file is no object";
    EXPECT_EQ(read(file + QStringLiteral(".broken3")), "[3]") << "nor is a list";
}

TEST_F(PreferencesFile, aBatchWritesOnceAtItsEnd) {
    Preferences preferences(file);
    int heard = 0;
    QObject::connect(&preferences, &Preferences::changed, [&] { ++heard; });
    {
        const Preferences::Batch outer(preferences);
        preferences.set(entry, qint64(1));
        {
            const Preferences::Batch inner(preferences);
            preferences.set(QStringLiteral("other"), qint64(2));
        }
        EXPECT_EQ(preferences.integer(entry), 1);
        EXPECT_EQ(heard, 2);
        EXPECT_FALSE(QFileInfo::exists(file));
    }
    EXPECT_EQ(Preferences(file).integer(entry), 1);
    EXPECT_EQ(Preferences(file).integer(QStringLiteral("other")), 2);
}

TEST_F(PreferencesFile, aBatchWithoutAChangeWritesNothing) {
    Preferences preferences(file);
    { const Preferences::Batch batch(preferences); }
    EXPECT_FALSE(QFileInfo::exists(file));
}

TEST_F(PreferencesFile, aWriteThatFailsIsLoggedAndTheNextOneTriesAgain) {
    // A file where the folder should be; unlike a folder without rights, it stops the superuser too.
    QFile obstacle(folder.filePath(QStringLiteral("config")));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    Preferences preferences(file);
    preferences.set(entry, QStringLiteral("held"));
    EXPECT_EQ(preferences.text(entry), QStringLiteral("held")) << "the value holds in memory";
    EXPECT_EQ(log.messages(QStringLiteral("general"), LogLevel::Error).size(), 1);
    ASSERT_TRUE(obstacle.remove());
    preferences.set(QStringLiteral("other"), true);
    EXPECT_EQ(Preferences(file).text(entry), QStringLiteral("held"));
}

TEST_F(PreferencesFile, synchronizeTriesAgainAfterAFailure) {
    QFile obstacle(folder.filePath(QStringLiteral("config")));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    Preferences preferences(file);
    preferences.set(entry, true);
    ASSERT_TRUE(obstacle.remove());
    preferences.synchronize();
    EXPECT_EQ(Preferences(file).boolean(entry), true);
}

TEST_F(PreferencesFile, aFolderInItsPlaceIsSetAsideToo) {
    QDir().mkpath(file + QStringLiteral("/inside"));
    Preferences preferences(file);
    preferences.set(entry, true);
    EXPECT_TRUE(QFileInfo(file + QStringLiteral(".broken/inside")).isDir());
    EXPECT_EQ(Preferences(file).boolean(entry), true);
}

TEST_F(PreferencesFile, aLinkStaysALinkAndItsTargetIsWritten) {
    write("{}");
    const QString target = folder.filePath(QStringLiteral("real.json"));
    ASSERT_TRUE(QFile::rename(file, target));
    const QString middle = folder.filePath(QStringLiteral("middle.json"));
    ASSERT_TRUE(QFile::link(target, middle));
    ASSERT_TRUE(QFile::link(middle, file));
    Preferences(file).set(entry, true);
    EXPECT_TRUE(QFileInfo(file).isSymLink());
    EXPECT_TRUE(QFileInfo(middle).isSymLink());
    EXPECT_EQ(Preferences(target).boolean(entry), true);
}

TEST_F(PreferencesFile, textOfAnyKindComesBackUnchanged) {
    QString every;
    for (uint unit = 0; unit <= 0xFFFF; ++unit)
        every += QChar(static_cast<char16_t>(unit));
    const QString pairs = QStringLiteral("\U0001F600\U0010FFFF");
    Preferences preferences(file);
    preferences.set(entry, every);
    preferences.set(pairs, pairs);
    EXPECT_EQ(Preferences(file).text(entry), every) << "unpaired surrogates included";
    EXPECT_EQ(Preferences(file).text(pairs), pairs);
}

} // namespace
} // namespace Quillstacks
