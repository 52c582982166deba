#include "backup/DataExportImportViewModel.h"

#include "BackupFixture.h"

#include <QSignalSpy>

#include <stdexcept>

namespace Quillstacks {
namespace {

using ImportTest = BackupFixture;

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
