#include "backup/DataExportImportViewModel.h"

#include "BackupFixture.h"

#include <QDir>
#include <QSignalSpy>

#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace Quillstacks {
namespace {

/// While one is alive, a process of root has the rights of nobody.
class AsNobody final {
public:
    AsNobody() {
        if (isRoot)
            std::ignore = ::seteuid(nobody); // the test sees it when it fails
    }
    ~AsNobody() {
        if (isRoot)
            std::ignore = ::seteuid(0);
    }
    Q_DISABLE_COPY_MOVE(AsNobody)

private:
    static constexpr uid_t nobody = 65534;
    const bool isRoot = ::geteuid() == 0;
};

class ImportTest : public BackupFixture {
protected:
    /// What a file that can't be imported leaves behind: one line, no counts, the library as it was.
    std::string fileFailure(const QString& path) {
        Prompt* before = library.addPrompt(QStringLiteral("Before"));
        library.context().save();
        const ImportResult result = import(path);
        EXPECT_FALSE(result.success);
        EXPECT_EQ(result.importedTagsCount + result.importedPromptsCount + result.importedVersionsCount, 0);
        EXPECT_TRUE(model.showingImportAlert());
        EXPECT_EQ(titlesOf(library.context().prompts()), QStringList{QStringLiteral("Before")});
        EXPECT_TRUE(library.context().tags().isEmpty());
        EXPECT_FALSE(library.context().hasChanges());
        library.context().remove(before);
        library.context().save();
        EXPECT_EQ(result.errors.size(), 1);
        const QString line = result.errors.value(0);
        EXPECT_TRUE(line.startsWith(QStringLiteral("Failed to import data: "))) << line.toStdString();
        EXPECT_FALSE(line.contains(QLatin1Char('\n')));
        EXPECT_EQ(errors(),
                  (QStringList{QStringLiteral("Import failed"), QStringLiteral("Import failed: ") + line.mid(23)}));
        log.clear();
        return line.mid(23).toStdString();
    }
    std::string failure(const QByteArray& text) { return fileFailure(makeFile(text)); }
};

TEST_F(ImportTest, itIsSavedAndToldInTheLog) {
    const ImportResult result = import(makeFile(sampleText()));
    EXPECT_TRUE(result.success);
    EXPECT_EQ(result.importedTagsCount, 1);
    EXPECT_EQ(result.importedPromptsCount, 1);
    EXPECT_EQ(result.importedVersionsCount, 1);
    EXPECT_TRUE(model.showingImportAlert());
    EXPECT_EQ(infos(), (QStringList{QStringLiteral("Starting data import from: Backup.json"),
                                    QStringLiteral("Import file decoded: 1 tags, 1 prompts"),
                                    QStringLiteral("Import completed - items: 2")}));
    EXPECT_TRUE(errors().isEmpty());
    EXPECT_FALSE(library.context().hasChanges());
    library.reopen();
    ASSERT_NE(library.prompt(QStringLiteral("Summarise")), nullptr);
    EXPECT_EQ(library.prompt(QStringLiteral("Summarise"))->versions().size(), 1);
}

TEST_F(ImportTest, importingTheSameFileTwiceCountsNothingTheSecondTimeAndSucceeds) {
    const QString path = makeFile(sampleText());
    std::ignore = import(path);
    const ImportResult second = import(path);
    EXPECT_TRUE(second.success);
    EXPECT_EQ(second.message(), QStringLiteral("Import completed successfully!\n\nImported:\n• 0 tags\n• 0 prompts\n"
                                               "• 0 versions"));
    EXPECT_EQ(infos().last(), QStringLiteral("Import completed - items: 0"));
}

TEST_F(ImportTest, anEmptyBackupSucceeds) {
    EXPECT_TRUE(import(makeFile(fileData({}, {}))).success);
}

TEST_F(ImportTest, itIsImportingFromTheCallToTheEnd) {
    QSignalSpy changed(&model, &DataExportImportViewModel::changed);
    EXPECT_FALSE(model.isImporting());
    EXPECT_FALSE(model.importResult().has_value());
    model.importData(makeFile(sampleText()), library.context());
    EXPECT_TRUE(model.isImporting());
    EXPECT_EQ(changed.count(), 1);
    EXPECT_TRUE(library.context().prompts().isEmpty()) << "it begins with the next turn";
    ASSERT_TRUE(QTest::qWaitFor([this] { return !model.isImporting(); }));
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(ImportTest, aSecondCallWhileOneRunsDoesNothing) {
    const QString path = makeFile(sampleText());
    model.importData(path, library.context());
    model.importData(filePath("other.json"), library.context());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !model.isImporting(); }));
    EXPECT_TRUE(model.importResult()->success);
    EXPECT_EQ(infos().filter(QStringLiteral("Starting")).size(), 1);
}

TEST_F(ImportTest, eachImportReplacesTheLastResult) {
    EXPECT_FALSE(import(filePath("missing.json")).success);
    EXPECT_TRUE(import(makeFile(sampleText())).success);
}

TEST_F(ImportTest, aFileThatIsNotJsonGivesOneErrorLine) {
    EXPECT_EQ(failure("hello"), "The file is not a JSON object");
    EXPECT_EQ(failure(""), "The file is not valid JSON: it is empty");
    EXPECT_EQ(failure(sampleText().chopped(1)),
              "The file is not valid JSON: a comma or the end of the object is missing");
}

TEST_F(ImportTest, aFileThatIsNoBackupNamesTheKeyAndItsPlace) {
    EXPECT_EQ(failure(sampleText().replace("17:40:00Z", "17:40:00.5Z")),
              "prompts[0].versions[0].createdAt is not an ISO 8601 date");
    EXPECT_EQ(failure(sampleText().replace("\"versions\"", "\"other\"")), "prompts[0].versions is missing");
    EXPECT_EQ(failure("\xEF\xBB\xBF" + sampleText()), "The file is not valid JSON: it begins with a byte order mark");
    EXPECT_EQ(failure(QByteArray(100'000, '[')), "The file is not a JSON object");
}

TEST_F(ImportTest, aFileThatIsCutAnywhereLeavesTheLibraryAsItWas) {
    const QByteArray text = sampleText();
    for (qsizetype size = 0; size < text.size(); size += 7)
        EXPECT_NE(failure(text.first(size)), "");
}

TEST_F(ImportTest, aMissingFileGivesOneErrorLine) {
    const QString path = filePath("missing.json");
    EXPECT_EQ(fileFailure(path), "Could not read the file “" + path.toStdString() + "”: No such file or directory.");
}

TEST_F(ImportTest, aDirectoryGivesOneErrorLine) {
    QDir(files.path()).mkdir(QStringLiteral("folder.json"));
    EXPECT_EQ(fileFailure(filePath("folder.json")), "“folder.json” is not a file with content.");
}

TEST_F(ImportTest, aPipeGivesOneErrorLineAndIsNotWaitedFor) {
    ASSERT_EQ(::mkfifo(QFile::encodeName(filePath("pipe.json")).constData(), 0600), 0);
    EXPECT_EQ(fileFailure(filePath("pipe.json")), "“pipe.json” is not a file with content.");
}

TEST_F(ImportTest, anUnreadableFileGivesOneErrorLine) {
    const QString path = makeFile(sampleText());
    ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), 0), 0);
    ImportResult result;
    {
        const AsNobody nobody; // root may read everything
        result = import(path);
    }
    EXPECT_EQ(result,
              ImportResult::failed(QStringLiteral("Could not read the file “%1”: Permission denied.").arg(path)));
    EXPECT_TRUE(library.context().prompts().isEmpty());
}

TEST_F(ImportTest, aFileThatTheSystemFailsToReadGivesOneErrorLine) {
    const QString path = QStringLiteral("/proc/self/mem"); // a regular file whose first page nobody has
    EXPECT_EQ(fileFailure(path), "Could not read the file “/proc/self/mem”: Input/output error.");
}

TEST_F(ImportTest, aFileOfTwoGigabytesGivesOneErrorLineWithoutBeingRead) {
    const QString path = makeFile("{");
    ASSERT_TRUE(QFile::resize(path, qint64(1) << 31)); // sparse
    EXPECT_EQ(fileFailure(path), "Could not read the file “" + path.toStdString() + "”: File too large.");
}

TEST_F(ImportTest, aFileThatShrinksWhileItIsReadGivesOneErrorLine) {
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
    EXPECT_EQ(model.importResult()->errors,
              QStringList{QStringLiteral("Failed to import data: “Backup.json” became shorter while it was read.")});
    EXPECT_TRUE(library.context().prompts().isEmpty());
}

TEST_F(ImportTest, aSaveThatFailsGivesOneErrorLineAndZeroCountsAndTheItemsStayToBeSaved) {
    library.context().save();
    library.close();
    ModelContainer container(Schema::current(), {library.path(), false});
    model.importData(makeFile(sampleText()), container.mainContext());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !model.isImporting(); }));
    const ImportResult result = *model.importResult();
    EXPECT_FALSE(result.success);
    EXPECT_EQ(result.importedTagsCount + result.importedPromptsCount + result.importedVersionsCount, 0);
    ASSERT_EQ(result.errors.size(), 1);
    EXPECT_TRUE(result.errors[0].startsWith(QStringLiteral("Failed to import data: ")));
    EXPECT_EQ(errors().value(0), QStringLiteral("Import failed"));
    EXPECT_TRUE(container.mainContext().hasChanges());
    EXPECT_EQ(container.mainContext().prompts().size(), 1);
}

TEST_F(ImportTest, itemsThatFailAreCountedInTheLogAndTheRestIsImported) {
    model.lookups = [](const ModelContext& context) {
        MergeLookups lookups = MergeLookups::of(context);
        lookups.tagsWithName = [](const QString&) -> QList<Tag*> { throw std::runtime_error("out of order"); };
        return lookups;
    };
    const ImportResult result = import(makeFile(sampleText()));
    EXPECT_EQ(result.message(),
              QStringLiteral("Import completed with issues:\n\nImported:\n• 0 tags\n• 1 prompts\n• 1 versions\n\n"
                             "Errors:\nFailed to import tag 'Writing': out of order"));
    EXPECT_EQ(errors(),
              (QStringList{QStringLiteral("Import failed"), QStringLiteral("Import completed with 1 errors")}));
    library.reopen();
    EXPECT_EQ(library.context().prompts().size(), 1);
}

TEST_F(ImportTest, anImportedPromptThatWasPinnedComesBackUnpinned) {
    library.addPrompt(QStringLiteral("Pinned"))->togglePin();
    const QString path = makeFile(ExportedData({}, library.context().prompts()));
    library.context().remove(library.prompt(QStringLiteral("Pinned")));
    EXPECT_EQ(import(path).importedPromptsCount, 1);
    EXPECT_FALSE(library.prompt(QStringLiteral("Pinned"))->isPinned());
}

TEST_F(ImportTest, theEventLoopHasItsTurnsMeanwhileAndTheQueriesAreToldOnce) {
    const TickingClock clock;
    QList<ExportedPrompt> prompts;
    for (int number = 0; number < 300; ++number)
        prompts.append(filePrompt(QString::number(number), QStringLiteral("Body")));
    const QString path = makeFile(fileData({}, prompts));
    QSignalSpy progressed(&model, &DataExportImportViewModel::progressed);
    QSignalSpy changed(&library.context(), &ModelContext::changed);
    int turns = 0;
    model.importData(path, library.context());
    while (model.isImporting() && turns < 10'000) {
        QCoreApplication::processEvents();
        ++turns;
    }
    EXPECT_GT(turns, 100);
    EXPECT_GT(progressed.count(), 100);
    double before = 0;
    for (const auto& told : progressed) {
        EXPECT_GE(told[0].toDouble(), before);
        before = told[0].toDouble();
    }
    EXPECT_LE(before, 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(library.context().prompts().size(), 300);
    EXPECT_FALSE(library.context().hasChanges());
}

TEST_F(ImportTest, oneThatTheProgramsEndCutsShortHasSavedNothing) {
    const TickingClock clock;
    QList<ExportedPrompt> prompts;
    for (int number = 0; number < 500; ++number)
        prompts.append(filePrompt(QString::number(number), QStringLiteral("Body")));
    const QString path = makeFile(fileData({}, prompts));
    for (int turns = 1; turns < 2000; turns += 37) {
        bool ended = false;
        {
            DataExportImportViewModel cut;
            cut.importData(path, library.context());
            for (int turn = 0; turn < turns && cut.isImporting(); ++turn)
                QCoreApplication::processEvents();
            ended = !cut.isImporting();
        }
        library.reopen();
        const auto imported = library.context().prompts().size();
        EXPECT_TRUE(imported == 500 || (imported == 0 && !ended)) << turns << ": " << imported;
        if (ended)
            break;
    }
    EXPECT_EQ(library.context().prompts().size(), 500);
}

TEST_F(ImportTest, theVersionsThatWereSavedAreLetGo) {
    ASSERT_TRUE(import(makeFile(sampleText())).success);
    const Prompt* prompt = library.prompt(QStringLiteral("Summarise"));
    ASSERT_EQ(prompt->versions().size(), 1);
    EXPECT_EQ(prompt->versions()[0]->title(), QStringLiteral("Summarise"));
}

TEST_F(ImportTest, aLibraryWithEverythingInItComesBackAsItWas) {
    Tag* plain = library.addTag(QStringLiteral("Plain"));
    Tag* odd = library.addTag(QStringLiteral("Ödd / \"tag\" 😀"), QStringLiteral("not a colour"));
    library.addTag(QString(), QString());
    library.addTag(QStringLiteral("unused"));
    Prompt* rich = library.addPrompt(QStringLiteral("Rich"), QStringLiteral("{{a}} \\ \" / \u2028 \r\n \uFDD0 \uFEFF"),
                                     {odd, plain});
    library.addVersion(rich, QStringLiteral("v1"), {plain});
    library.addVersion(rich, QStringLiteral("v2"), {odd, plain});
    library.addPrompt(QString(), QString());
    library.addPrompt(QStringLiteral("Long"), QString(300'000, QLatin1Char('x')));
    library.addPrompt(QStringLiteral("\uFEFFmark"), QString(QChar(0)) + QStringLiteral("\u0001"));
    rich->setUpdatedAt(sampleDate(1999, 12, 31, 23, 59, 59));
    library.context().save();
    const ExportedData before(library.context().tags(), library.context().prompts());
    const QString path = makeFile(before);

    TestLibrary other;
    model.importData(path, other.context());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !model.isImporting(); }));
    EXPECT_EQ(model.importResult()->importedTagsCount, 4);
    EXPECT_EQ(model.importResult()->importedPromptsCount, 4);
    EXPECT_EQ(model.importResult()->importedVersionsCount, 2);
    other.reopen();

    const ExportedData after(other.context().tags(), other.context().prompts());
    ASSERT_EQ(after.tags.size(), before.tags.size());
    for (qsizetype at = 0; at < before.tags.size(); ++at) {
        EXPECT_EQ(after.tags[at].name, before.tags[at].name);
        EXPECT_EQ(after.tags[at].colorHex, before.tags[at].colorHex);
    }
    ASSERT_EQ(after.prompts.size(), before.prompts.size());
    const auto wholeSecond = [](Date date) { return std::chrono::floor<std::chrono::seconds>(date); };
    for (qsizetype at = 0; at < before.prompts.size(); ++at) {
        const ExportedPrompt& was = before.prompts[at];
        const ExportedPrompt& is = after.prompts[at];
        EXPECT_EQ(is.title, was.title);
        EXPECT_EQ(is.body, was.body);
        EXPECT_EQ(is.createdAt, wholeSecond(was.createdAt));
        EXPECT_EQ(is.updatedAt, wholeSecond(was.updatedAt));
        EXPECT_EQ(namesOf(other.prompt(is.title)->tags()), namesOf(library.prompt(was.title)->tags()));
        ASSERT_EQ(is.versions.size(), was.versions.size());
        for (qsizetype version = 0; version < was.versions.size(); ++version) {
            EXPECT_EQ(is.versions[version].title, was.versions[version].title);
            EXPECT_EQ(is.versions[version].body, was.versions[version].body);
            EXPECT_EQ(is.versions[version].tagNames, was.versions[version].tagNames);
            EXPECT_EQ(is.versions[version].tagColors, was.versions[version].tagColors);
            EXPECT_EQ(is.versions[version].promptId, is.id);
        }
    }
}

} // namespace
} // namespace Quillstacks
