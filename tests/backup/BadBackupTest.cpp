// Files that can't be imported: each gives one clear line in the alert and no counts, and leaves the library as it was.
#include "AsNobody.h"
#include "BackupFixture.h"

#include <QDir>

#include <new>
#include <sys/resource.h>
#include <sys/stat.h>

namespace Quillstacks {
namespace {

class BadBackup : public BackupFixture {
protected:
    BadBackup() {
        library.addPrompt(QStringLiteral("Before"));
        library.context().save();
    }
    /// The line, without what each begins with.
    std::string fileFailure(const QString& path) {
        log.clear();
        const ImportResult result = import(path);
        EXPECT_TRUE(model.showingImportAlert());
        EXPECT_EQ(titlesOf(library.context().prompts()), QStringList{QStringLiteral("Before")});
        EXPECT_TRUE(library.context().tags().isEmpty());
        EXPECT_FALSE(library.context().hasChanges());
        const QString line = result.errors.value(0);
        EXPECT_EQ(result.message(),
                  QStringLiteral("Import completed with issues:\n\nImported:\n• 0 tags\n• 0 prompts\n• 0 versions\n\n"
                                 "Errors:\n") +
                      line);
        const QString start = QStringLiteral("Failed to import data: ");
        EXPECT_TRUE(line.startsWith(start)) << line.toStdString();
        EXPECT_FALSE(line.contains(QLatin1Char('\n')));
        const QString description = line.mid(start.size());
        EXPECT_EQ(errors(),
                  (QStringList{QStringLiteral("Import failed"), QStringLiteral("Import failed: ") + description}));
        return description.toStdString();
    }
    std::string failure(const QByteArray& text) { return fileFailure(makeFile(text)); }
    /// Of the sample with one part in another's place.
    std::string failure(const QByteArray& part, const QByteArray& into) {
        EXPECT_TRUE(sampleText().contains(part)) << part.constData();
        return failure(sampleText().replace(part, into));
    }
    [[nodiscard]] static std::string unreadable(const QString& path, const char* why) {
        return "Could not read the file “" + path.toStdString() + "”: " + why + ".";
    }
};

TEST_F(BadBackup, aFileThatIsNotJsonGivesOneErrorLine) {
    EXPECT_EQ(failure("hello"), "The file is not a JSON object");
    EXPECT_EQ(failure(""), "The file is not valid JSON: it is empty");
    EXPECT_EQ(failure("[]"), "The file is not a JSON object");
    EXPECT_EQ(failure(sampleText() + "x"), "The file is not valid JSON: something stands after its end");
}

TEST_F(BadBackup, aFileThatIsCutAtAnyByteGivesOneErrorLine) {
    const QByteArray text = sampleText();
    for (qsizetype size = 0; size < text.size(); ++size)
        EXPECT_NE(failure(text.first(size)), "") << size;
    EXPECT_EQ(failure(text.chopped(1)), "The file is not valid JSON: a comma or the end of the object is missing");
}

TEST_F(BadBackup, invalidUtf8GivesOneErrorLine) {
    EXPECT_EQ(failure("Summarise {{text}}.", "\xC3("), "prompts[0] is not valid UTF-8");
    EXPECT_EQ(failure("Writing", "\xFF"), "tags[0] is not valid UTF-8");
}

TEST_F(BadBackup, aByteOrderMarkGivesOneErrorLine) {
    EXPECT_EQ(failure("\xEF\xBB\xBF" + sampleText()), "The file is not valid JSON: it begins with a byte order mark");
}

TEST_F(BadBackup, aLoneSurrogateGivesOneErrorLine) {
    EXPECT_EQ(failure("Summarise {{text}}.", "\\ud83d"),
              "prompts[0].versions[0].body is not valid JSON: a string has a wrong escape");
}

TEST_F(BadBackup, aHundredThousandLevelsGiveOneErrorLine) {
    const QByteArray nested = QByteArray(100'000, '[') + QByteArray(100'000, ']');
    EXPECT_EQ(failure(nested), "The file is not a JSON object");
    EXPECT_EQ(failure("\"version\"", "\"more\" : " + nested + ", \"version\""),
              "A value of an unknown key is nested too deeply");
    EXPECT_EQ(failure("\"promptId\"", "\"more\" : " + nested + ", \"promptId\""),
              "prompts[0].versions[0].more is nested too deeply");
    EXPECT_EQ(failure("\"Summarise {{text}}.\"", nested), "prompts[0].versions[0].body is not a string");
}

TEST_F(BadBackup, anotherTypeGivesOneErrorLine) {
    EXPECT_EQ(failure("\"Writing\",", "7,"), "tags[0].name is not a string");
    EXPECT_EQ(failure("[\n        \"8F3C6D34-1B34-4B63-A4E4-7B1C2A9F0D11\"\n      ]", "null"),
              "prompts[0].tagIds is not an array");
    EXPECT_EQ(failure("17:40:00Z", "17:40:00.5Z"), "prompts[0].versions[0].createdAt is not an ISO 8601 date");
    EXPECT_EQ(failure("\"versions\"", "\"other\""), "prompts[0].versions is missing");
}

TEST_F(BadBackup, aKeyThatStandsTwiceGivesOneErrorLine) {
    EXPECT_EQ(failure("\"colorHex\"", "\"name\" : \"x\", \"colorHex\""), "tags[0].name stands there twice");
}

TEST_F(BadBackup, theLastOfManyPromptsCanRefuseTheWholeFile) {
    QList<ExportedPrompt> prompts;
    for (int number = 0; number < 20; ++number)
        prompts.append(filePrompt(QString::number(number)));
    QByteArray text = BackupWriter::encoded(fileData({fileTag(QStringLiteral("Tag"))}, prompts));
    const qsizetype last = text.lastIndexOf("\"title\"");
    EXPECT_EQ(failure(text.replace(last, 7, "\"other\"")), "prompts[19].title is missing");
}

TEST_F(BadBackup, aMissingFileGivesOneErrorLine) {
    EXPECT_EQ(fileFailure(filePath("missing.json")), unreadable(filePath("missing.json"), "No such file or directory"));
}

TEST_F(BadBackup, aDirectoryGivesOneErrorLine) {
    QDir(files.path()).mkdir(QStringLiteral("folder.json"));
    EXPECT_EQ(fileFailure(filePath("folder.json")), "“folder.json” is not a file with content.");
}

TEST_F(BadBackup, aPipeGivesOneErrorLineAndIsNotWaitedFor) {
    ASSERT_EQ(::mkfifo(QFile::encodeName(filePath("pipe.json")).constData(), 0600), 0);
    EXPECT_EQ(fileFailure(filePath("pipe.json")), "“pipe.json” is not a file with content.");
}

TEST_F(BadBackup, anUnreadableFileGivesOneErrorLine) {
    const QString path = makeFile(sampleText());
    const QByteArray name = QFile::encodeName(path);
    ASSERT_EQ(::chmod(QFile::encodeName(files.path()).constData(), 0755), 0);
    for (const mode_t rights : {0644U, 0U}) {
        ASSERT_EQ(::chmod(name.constData(), rights), 0);
        const AsNobody nobody; // root may read everything
        EXPECT_EQ(contents(path), rights == 0 ? QByteArray() : sampleText());
        if (rights == 0) {
            EXPECT_EQ(fileFailure(path), unreadable(path, "Permission denied"));
        }
    }
}

TEST_F(BadBackup, aFileThatTheSystemFailsToReadGivesOneErrorLine) {
    const QString path = QStringLiteral("/proc/self/mem"); // a regular file whose first page nobody has
    EXPECT_EQ(fileFailure(path), unreadable(path, "Input/output error"));
}

TEST_F(BadBackup, aFileOfTwoGigabytesGivesOneErrorLineWithoutBeingRead) {
    const QString path = makeFile("{");
    ASSERT_TRUE(QFile::resize(path, qint64(1) << 31)); // sparse
    EXPECT_EQ(fileFailure(path), unreadable(path, "File too large"));
}

TEST_F(BadBackup, aFileThatTheMemoryDoesNotHoldFailsAsAnUnreadableOneDoes) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer's own memory is far beyond any limit";
#endif
    const QString path = makeFile("{");
    ASSERT_TRUE(QFile::resize(path, (qint64(1) << 31) - 1)); // sparse
    struct rlimit before {};
    ASSERT_EQ(::getrlimit(RLIMIT_AS, &before), 0);
    const struct rlimit small { qint64(3) << 29, before.rlim_max };
    ASSERT_EQ(::setrlimit(RLIMIT_AS, &small), 0);
    const std::string line = fileFailure(path);
    ASSERT_EQ(::setrlimit(RLIMIT_AS, &before), 0);
    EXPECT_EQ(line, unreadable(path, "Cannot allocate memory"));
}

TEST_F(BadBackup, memoryThatRunsOutLaterOnFailsAsAnUnreadableFileDoes) {
    model.lookups = [](const ModelContext&) -> MergeLookups { throw std::bad_alloc(); };
    const QString path = makeFile(sampleText());
    EXPECT_EQ(fileFailure(path), unreadable(path, "Cannot allocate memory"));
}

TEST_F(BadBackup, aFileThatShrinksWhileItIsReadGivesOneErrorLine) {
    const TickingClock clock;
    QByteArray text = sampleText();
    text.insert(1, QByteArray(64 << 20, ' '));
    const QString path = makeFile(text);
    model.importData(path, library.context());
    for (int turn = 0; turn < 3; ++turn)
        QCoreApplication::processEvents();
    ASSERT_TRUE(model.isImporting());
    ASSERT_TRUE(QFile::resize(path, 1 << 20));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !model.isImporting(); }));
    EXPECT_EQ(*model.importResult(), ImportResult::failed(QStringLiteral("“Backup.json” became shorter while it was "
                                                                         "read.")));
    EXPECT_EQ(titlesOf(library.context().prompts()), QStringList{QStringLiteral("Before")});
}

} // namespace
} // namespace Quillstacks
