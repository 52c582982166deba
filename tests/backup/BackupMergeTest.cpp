#include "backup/BackupMerge.h"

#include "BackupFixture.h"
#include "foundation/ManualClock.h"

#include <stdexcept>

namespace Quillstacks {
namespace {

class BackupMergeTest : public testing::Test {
protected:
    ImportResult merge(const ExportedData& data) { return merge(data, MergeLookups::of(library.context())); }
    ImportResult merge(const ExportedData& data, const MergeLookups& lookups) {
        BackupMerge merge(library.context(), data, lookups);
        while (merge.step()) {
        }
        EXPECT_EQ(merge.fraction(), 1);
        return merge.result();
    }
    static ImportResult counts(qsizetype tags, qsizetype prompts, qsizetype versions) {
        ImportResult result;
        result.success = true;
        result.importedTagsCount = tags;
        result.importedPromptsCount = prompts;
        result.importedVersionsCount = versions;
        return result;
    }

    ManualClock clock;
    TestLibrary library;
};

TEST_F(BackupMergeTest, theSampleIsAddedToAnEmptyLibrary) {
    EXPECT_EQ(merge(sampleData()), counts(1, 1, 1));
    const Prompt* prompt = library.prompt(QStringLiteral("Summarise"));
    ASSERT_NE(prompt, nullptr);
    EXPECT_EQ(prompt->body(), QStringLiteral("Summarise {{text}} in three lines."));
    EXPECT_EQ(namesOf(prompt->tags()), QStringList{QStringLiteral("Writing")});
    ASSERT_EQ(prompt->versions().size(), 1);
    EXPECT_EQ(prompt->versions()[0]->body(), QStringLiteral("Summarise {{text}}."));
}

TEST_F(BackupMergeTest, aPromptGetsItsDatesBackAndANewId) {
    std::ignore = merge(sampleData());
    const Prompt* prompt = library.prompt(QStringLiteral("Summarise"));
    EXPECT_EQ(prompt->createdAt(), sampleData().prompts[0].createdAt);
    EXPECT_EQ(prompt->updatedAt(), sampleData().prompts[0].updatedAt);
    EXPECT_NE(prompt->id(), sampleData().prompts[0].id);
    EXPECT_FALSE(prompt->id().isNull());
}

TEST_F(BackupMergeTest, aNewTagHasTheDatesOfTheImportAndANewId) {
    std::ignore = merge(sampleData());
    const Tag* tag = library.tag(QStringLiteral("Writing"));
    EXPECT_EQ(tag->createdAt(), Clock::now());
    EXPECT_EQ(tag->updatedAt(), Clock::now());
    EXPECT_EQ(tag->colorHex(), QStringLiteral("7C5CFC"));
    EXPECT_NE(tag->id(), sampleData().tags[0].id);
}

TEST_F(BackupMergeTest, aVersionGetsItsDateAndTagsBackAndTheIdsOfItsNewPrompt) {
    ExportedData data = sampleData();
    data.prompts[0].versions[0].tagNames = {QStringLiteral("Gone"), QStringLiteral("Long gone")};
    data.prompts[0].versions[0].tagColors = {QStringLiteral("FF0000")};
    std::ignore = merge(data);
    const Prompt* prompt = library.prompt(QStringLiteral("Summarise"));
    const PromptVersion* version = prompt->versions()[0];
    EXPECT_EQ(version->promptId(), prompt->id());
    EXPECT_NE(version->id(), data.prompts[0].versions[0].id);
    EXPECT_EQ(version->createdAt(), data.prompts[0].versions[0].createdAt);
    EXPECT_EQ(version->tagNames(), data.prompts[0].versions[0].tagNames);
    EXPECT_EQ(version->tagColors(), data.prompts[0].versions[0].tagColors);
    EXPECT_EQ(library.tag(QStringLiteral("Gone")), nullptr) << "they stay text";
}

TEST_F(BackupMergeTest, importingTheSameFileTwiceCountsNothingTheSecondTimeAndSucceeds) {
    std::ignore = merge(sampleData());
    EXPECT_EQ(merge(sampleData()), counts(0, 0, 0));
    EXPECT_EQ(library.context().prompts().size(), 1);
    EXPECT_EQ(library.context().tags().size(), 1);
}

TEST_F(BackupMergeTest, ofTwoPromptsOfTheSameTitleInOneFileTheSecondIsSkipped) {
    EXPECT_EQ(merge(fileData({}, {filePrompt(QStringLiteral("Same"), QStringLiteral("first")),
                                  filePrompt(QStringLiteral("Same"), QStringLiteral("second"))})),
              counts(0, 1, 0));
    ASSERT_EQ(library.context().prompts().size(), 1);
    EXPECT_EQ(library.prompt(QStringLiteral("Same"))->body(), QStringLiteral("first"));
}

TEST_F(BackupMergeTest, ofTwoTagsOfTheSameNameInOneFileTheSecondMapsToTheFirst) {
    const ExportedTag first = fileTag(QStringLiteral("Same"), QStringLiteral("111111"));
    const ExportedTag second = fileTag(QStringLiteral("Same"), QStringLiteral("222222"));
    EXPECT_EQ(merge(fileData({first, second}, {filePrompt(QStringLiteral("P"), {}, {second.id})})), counts(1, 1, 0));
    const Tag* tag = library.tag(QStringLiteral("Same"));
    EXPECT_EQ(tag->colorHex(), QStringLiteral("111111"));
    EXPECT_EQ(library.prompt(QStringLiteral("P"))->tags(), QList<Tag*>{library.tag(QStringLiteral("Same"))});
}

TEST_F(BackupMergeTest, aTagWhoseNameExistsWithAnotherCaseIsCreated) {
    library.addTag(QStringLiteral("writing"));
    EXPECT_EQ(merge(sampleData()), counts(1, 1, 1));
    EXPECT_EQ(library.context().tags().size(), 2);
}

TEST_F(BackupMergeTest, anExistingTagStaysAsItIsAndIsLinked) {
    Tag* tag = library.addTag(QStringLiteral("Writing"), QStringLiteral("ABCDEF"));
    const Date created = tag->createdAt();
    clock.advance(std::chrono::seconds(9));
    EXPECT_EQ(merge(sampleData()), counts(0, 1, 1));
    EXPECT_EQ(tag->colorHex(), QStringLiteral("ABCDEF"));
    EXPECT_EQ(tag->createdAt(), created);
    EXPECT_EQ(tag->updatedAt(), created);
    EXPECT_EQ(library.prompt(QStringLiteral("Summarise"))->tags(), QList<Tag*>{tag});
}

TEST_F(BackupMergeTest, ofTwoTagsThatAreThereTheFirstIsLinked) {
    Tag* first = library.addTag(QStringLiteral("Writing"));
    library.addTag(QStringLiteral("Writing"));
    std::ignore = merge(sampleData());
    EXPECT_EQ(library.prompt(QStringLiteral("Summarise"))->tags(), QList<Tag*>{first});
}

TEST_F(BackupMergeTest, anExistingPromptOfTheSameTitleStaysAsItIsAndItsVersionsAreNotAddedTo) {
    Prompt* prompt = library.addPrompt(QStringLiteral("Summarise"), QStringLiteral("Mine"));
    library.addVersion(prompt, QStringLiteral("Older"));
    const Date updated = prompt->updatedAt();
    EXPECT_EQ(merge(sampleData()), counts(1, 0, 0));
    EXPECT_EQ(prompt->body(), QStringLiteral("Mine"));
    EXPECT_EQ(prompt->updatedAt(), updated);
    EXPECT_TRUE(prompt->tags().isEmpty());
    EXPECT_EQ(titlesOf(prompt->versions()), QStringList{QStringLiteral("Older")});
    EXPECT_EQ(library.context().prompts().size(), 1);
}

TEST_F(BackupMergeTest, aTitleInAnotherCaseOrWithAnotherSpaceIsAnotherPrompt) {
    library.addPrompt(QStringLiteral("summarise"));
    library.addPrompt(QStringLiteral("Summarise "));
    EXPECT_EQ(merge(sampleData()), counts(1, 1, 1));
}

TEST_F(BackupMergeTest, aPromptWhoseTagIdsNameAnUnknownIdIsImportedWithoutThatTag) {
    const ExportedTag tag = fileTag(QStringLiteral("Known"));
    EXPECT_EQ(merge(fileData({tag}, {filePrompt(QStringLiteral("P"), {}, {randomUuid(), tag.id, randomUuid()})})),
              counts(1, 1, 0));
    EXPECT_EQ(namesOf(library.prompt(QStringLiteral("P"))->tags()), QStringList{QStringLiteral("Known")});
}

TEST_F(BackupMergeTest, withoutAnyTagsAllTagIdsArePassedOver) {
    EXPECT_EQ(merge(fileData({}, {filePrompt(QStringLiteral("P"), {}, {randomUuid()})})), counts(0, 1, 0));
}

TEST_F(BackupMergeTest, theTagsOfAPromptStandInTheOrderOfTagIds) {
    const ExportedTag a = fileTag(QStringLiteral("a"));
    const ExportedTag b = fileTag(QStringLiteral("b"));
    std::ignore = merge(fileData({a, b}, {filePrompt(QStringLiteral("P"), {}, {b.id, a.id, b.id})}));
    EXPECT_EQ(namesOf(library.prompt(QStringLiteral("P"))->tags()),
              (QStringList{QStringLiteral("b"), QStringLiteral("a")}));
}

TEST_F(BackupMergeTest, anImportedPromptIsNotPinned) {
    Prompt* prompt = library.addPrompt(QStringLiteral("Pinned"));
    prompt->togglePin();
    const ExportedData data({}, {prompt});
    library.context().remove(prompt);
    std::ignore = merge(data);
    EXPECT_FALSE(library.prompt(QStringLiteral("Pinned"))->isPinned());
    EXPECT_FALSE(library.prompt(QStringLiteral("Pinned"))->pinnedAt().has_value());
}

TEST_F(BackupMergeTest, aTagThatCanNotBeLookedUpIsReportedAndTheOthersAreImported) {
    MergeLookups lookups = MergeLookups::of(library.context());
    lookups.tagsWithName = [this](const QString& name) {
        if (name == QStringLiteral("bad"))
            throw std::runtime_error("out of order");
        return library.context().tagsWithName(name);
    };
    const ExportedTag bad = fileTag(QStringLiteral("bad"));
    const ImportResult result = merge(
        fileData({bad, fileTag(QStringLiteral("good"))}, {filePrompt(QStringLiteral("P"), {}, {bad.id})}), lookups);
    EXPECT_FALSE(result.success);
    EXPECT_EQ(result.importedTagsCount, 1);
    EXPECT_EQ(result.importedPromptsCount, 1);
    EXPECT_EQ(result.errors, QStringList{QStringLiteral("Failed to import tag 'bad': out of order")});
    EXPECT_TRUE(library.prompt(QStringLiteral("P"))->tags().isEmpty());
}

TEST_F(BackupMergeTest, aPromptThatCanNotBeLookedUpIsReportedAndTheOthersAreImported) {
    MergeLookups lookups = MergeLookups::of(library.context());
    lookups.promptsWithTitle = [this](const QString& title) {
        if (title == QStringLiteral("bad"))
            throw std::runtime_error("out of order");
        return library.context().promptsWithTitle(title);
    };
    const ImportResult result =
        merge(fileData({}, {filePrompt(QStringLiteral("bad")), filePrompt(QStringLiteral("good"))}), lookups);
    EXPECT_EQ(result.errors, QStringList{QStringLiteral("Failed to import prompt 'bad': out of order")});
    EXPECT_EQ(titlesOf(library.context().prompts()), QStringList{QStringLiteral("good")});
}

TEST_F(BackupMergeTest, aPromptOneOfWhoseTagsCanNotBeLookedUpIsNotInserted) {
    MergeLookups lookups = MergeLookups::of(library.context());
    lookups.tagWithId = [](const Uuid&) -> Tag* { throw std::runtime_error("out of order"); };
    const ImportResult result = merge(sampleData(), lookups);
    EXPECT_EQ(result.errors, QStringList{QStringLiteral("Failed to import prompt 'Summarise': out of order")});
    EXPECT_EQ(result.importedTagsCount, 1);
    EXPECT_EQ(result.importedPromptsCount, 0);
    EXPECT_EQ(result.importedVersionsCount, 0);
    EXPECT_TRUE(library.context().prompts().isEmpty());
}

TEST_F(BackupMergeTest, aTagThatIsGoneWhenItIsLinkedIsPassedOver) {
    MergeLookups lookups = MergeLookups::of(library.context());
    lookups.tagWithId = [](const Uuid&) -> Tag* { return nullptr; };
    EXPECT_EQ(merge(sampleData(), lookups), counts(1, 1, 1));
    EXPECT_TRUE(library.prompt(QStringLiteral("Summarise"))->tags().isEmpty());
}

TEST_F(BackupMergeTest, nothingIsSaved) {
    std::ignore = merge(sampleData());
    EXPECT_TRUE(library.context().hasChanges());
    library.reopen();
    EXPECT_TRUE(library.context().prompts().isEmpty());
}

TEST(ImportResult, aSuccessIsToldWithItsCountsInThePlural) {
    ImportResult result;
    result.success = true;
    result.importedTagsCount = 1;
    result.importedPromptsCount = 1;
    EXPECT_EQ(result.message(), QStringLiteral("Import completed successfully!\n\nImported:\n• 1 tags\n• 1 prompts\n"
                                               "• 0 versions"));
}

TEST(ImportResult, issuesAreToldLineByLine) {
    ImportResult result;
    result.importedTagsCount = 2;
    result.importedPromptsCount = 12345;
    result.importedVersionsCount = 7;
    result.errors = {QStringLiteral("one"), QStringLiteral("two")};
    EXPECT_EQ(result.message(), QStringLiteral("Import completed with issues:\n\nImported:\n• 2 tags\n• 12345 prompts\n"
                                               "• 7 versions\n\nErrors:\none\ntwo"));
}

} // namespace
} // namespace Quillstacks
