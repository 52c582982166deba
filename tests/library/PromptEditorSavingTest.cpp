#include "foundation/Clock.h"
#include "FullDisk.h"
#include "library/versions/VersionPreferences.h"
#include "PromptEditorFixture.h"

#include <QFile>

namespace Quillstacks {

using namespace std::chrono_literals;

// Making

TEST_F(PromptEditor, createInsertsThePromptTrimmedSavesAndCloses) {
    const LogCapture log;
    open().setTitle(QStringLiteral("  Title\n"));
    editor->setEditorBody(QStringLiteral("\n\tBody \n text \n"));
    editor->savePrompt();
    const Prompt* prompt = library.prompt(QStringLiteral("Title"));
    ASSERT_TRUE(prompt);
    EXPECT_EQ(prompt->body(), QStringLiteral("Body \n text"));
    EXPECT_FALSE(prompt->hasVersions());
    EXPECT_FALSE(library.context().hasChanges());
    EXPECT_EQ(closed->count(), 1);
    EXPECT_EQ(log.lines(), (QStringList{QStringLiteral("data info: New prompt created: 'Title'"),
                                        QStringLiteral("data info: Prompt saved successfully")}));
}

TEST_F(PromptEditor, onSaveHearsOfANewPromptBeforeTheStoreIsSavedAndNeverOfAnEdit) {
    int calls = 0;
    bool wasSaved = true;
    const auto onSave = [&](Prompt*) {
        ++calls;
        wasSaved = !library.context().hasChanges();
    };
    open(nullptr, onSave).setTitle(QStringLiteral("a"));
    editor->setEditorBody(QStringLiteral("b"));
    editor->savePrompt();
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(wasSaved);
    open(library.prompt(QStringLiteral("a")), onSave).savePrompt();
    EXPECT_EQ(calls, 1);
}

TEST_F(PromptEditor, aTitleOfOnlySpacesKeepsTheSaveButtonDisabledAndCtrlSDoesNothing) {
    PromptEditorView& view = present();
    view.setTitle(QStringLiteral("   "));
    view.setEditorBody(QStringLiteral("body"));
    EXPECT_FALSE(view.canSave());
    EXPECT_FALSE(visibleButton(view, QStringLiteral("Create"))->isEnabled());
    QTest::keyClick(&titleField(view), Qt::Key_S, Qt::ControlModifier);
    view.savePrompt();
    EXPECT_TRUE(library.context().prompts().isEmpty());
    EXPECT_EQ(closed->count(), 0);
}

TEST_F(PromptEditor, aBodyOfOnlyLineEndsIsNotSaved) {
    open().setTitle(QStringLiteral("a"));
    editor->setEditorBody(QStringLiteral(" \n\r\n\u2028"));
    EXPECT_FALSE(editor->canSave());
    editor->savePrompt();
    EXPECT_TRUE(library.context().prompts().isEmpty());
}

TEST_F(PromptEditor, aNewPromptHasNoCopyAndNoHistoryAndNoDeleteButton) {
    open();
    EXPECT_FALSE(visibleButton(*editor, QStringLiteral("Copy")));
    EXPECT_FALSE(visibleButton(*editor, QStringLiteral("History")));
    EXPECT_FALSE(visibleButton(*editor, QStringLiteral("Delete")));
    EXPECT_TRUE(visibleButton(*editor, QStringLiteral("Cancel")));
    EXPECT_TRUE(visibleButton(*editor, QStringLiteral("Create")));
}

TEST_F(PromptEditor, deleteWithoutAPromptDoesNothingAtAll) {
    const LogCapture log;
    open().deletePrompt();
    EXPECT_EQ(closed->count(), 0);
    EXPECT_TRUE(log.lines().isEmpty());
}

// Editing

TEST_F(PromptEditor, opensWithThePromptsTextAndTags) {
    Tag* tag = addTag(QStringLiteral("Work"));
    open(addPrompt(QStringLiteral("t"), QStringLiteral("b"), {tag}));
    EXPECT_EQ(editor->title(), QStringLiteral("t"));
    EXPECT_EQ(editor->editorBody(), QStringLiteral("b"));
    EXPECT_EQ(editor->selectedTags(), QSet<Tag*>{tag});
    EXPECT_TRUE(visibleButton(*editor, QStringLiteral("Copy")));
    EXPECT_TRUE(visibleButton(*editor, QStringLiteral("Delete")));
    EXPECT_TRUE(visibleButton(*editor, QStringLiteral("Save")));
}

TEST_F(PromptEditor, aChangedTextMakesAVersionOfTheOldOne) {
    Prompt* prompt = addPrompt(QStringLiteral("old title"), QStringLiteral("old body"));
    open(prompt).setTitle(QStringLiteral("new title"));
    editor->savePrompt();
    EXPECT_EQ(prompt->title(), QStringLiteral("new title"));
    ASSERT_EQ(prompt->versions().size(), 1);
    EXPECT_EQ(prompt->versions().first()->title(), QStringLiteral("old title"));
    EXPECT_EQ(prompt->versions().first()->body(), QStringLiteral("old body"));
    EXPECT_EQ(prompt->updatedAt(), Clock::now());
    EXPECT_FALSE(library.context().hasChanges());
}

TEST_F(PromptEditor, aChangedBodyAloneMakesAVersionToo) {
    Prompt* prompt = addPrompt(QStringLiteral("title"), QStringLiteral("old body"));
    open(prompt).setEditorBody(QStringLiteral("new body"));
    editor->savePrompt();
    EXPECT_EQ(prompt->body(), QStringLiteral("new body"));
    ASSERT_EQ(prompt->versions().size(), 1);
    EXPECT_EQ(prompt->versions().first()->title(), QStringLiteral("title"));
    EXPECT_EQ(prompt->versions().first()->body(), QStringLiteral("old body"));
}

TEST_F(PromptEditor, savingTwiceWithTheSameNewTextAddsNoSecondVersion) {
    Prompt* prompt = addPrompt(QStringLiteral("title"), QStringLiteral("old body"));
    for (int i = 0; i < 2; ++i) {
        clock.advance(1s);
        open(prompt).setEditorBody(QStringLiteral("new body"));
        editor->savePrompt();
    }
    EXPECT_EQ(prompt->versions().size(), 1);
    EXPECT_EQ(prompt->updatedAt(), Clock::now());
}

TEST_F(PromptEditor, textWithSpacesAroundItIsStoredTrimmedSoThatAResaveMakesNoVersion) {
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("b"));
    open(prompt).setTitle(QStringLiteral(" t2 "));
    editor->setEditorBody(QStringLiteral("\nb2\n"));
    editor->savePrompt();
    EXPECT_EQ(prompt->title(), QStringLiteral("t2"));
    EXPECT_EQ(prompt->body(), QStringLiteral("b2"));
    EXPECT_EQ(prompt->versions().size(), 1);
    open(prompt).savePrompt();
    EXPECT_EQ(prompt->versions().size(), 1);
}

TEST_F(PromptEditor, savingAPromptThatChangedNeitherInTextNorInTagsStillMovesUpdatedAt) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    const Date before = prompt->updatedAt();
    clock.advance(5s);
    open(prompt).savePrompt();
    EXPECT_GT(prompt->updatedAt(), before);
    EXPECT_EQ(prompt->updatedAt(), Clock::now());
    EXPECT_FALSE(prompt->hasVersions());
    EXPECT_EQ(closed->count(), 1);
}

TEST_F(PromptEditor, theVersionLimitIsThatOfThePreference) {
    EXPECT_EQ(versionHistoryLimitPreference().value(), 50);
    versionHistoryLimitPreference().set(2);
    Prompt* prompt = addPrompt(QStringLiteral("0"));
    for (int i = 1; i <= 5; ++i) {
        clock.advance(1s);
        open(prompt).setTitle(QString::number(i));
        editor->savePrompt();
    }
    EXPECT_EQ(titlesOf(prompt->versions()), (QStringList{QStringLiteral("3"), QStringLiteral("4")}));
}

TEST_F(PromptEditor, cancelWritesNothing) {
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("b"));
    open(prompt).setTitle(QStringLiteral("typed"));
    editor->cancel();
    EXPECT_EQ(closed->count(), 1);
    EXPECT_EQ(prompt->title(), QStringLiteral("t"));
    EXPECT_FALSE(library.context().hasChanges());
}

TEST_F(PromptEditor, loadingAgainTakesTheStoredTextAndDropsWhatWasTyped) {
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("b"));
    open(prompt).setTitle(QStringLiteral("typed"));
    prompt->setBody(QStringLiteral("restored"));
    editor->loadPrompt();
    EXPECT_EQ(editor->title(), QStringLiteral("t"));
    EXPECT_EQ(editor->editorBody(), QStringLiteral("restored"));
}

TEST_F(PromptEditor, aFailedSaveIsLoggedAndTheSheetClosesAllTheSame) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    open(prompt).setTitle(QStringLiteral("new"));
    const LogCapture log;
    {
        const FullDisk disk;
        editor->savePrompt();
    }
    EXPECT_EQ(closed->count(), 1);
    const QStringList errors = log.messages(QStringLiteral("data"), LogLevel::Error);
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors.first().startsWith(QStringLiteral("Data error in saving prompt: ")));
    EXPECT_FALSE(log.contains(QStringLiteral("Prompt saved successfully")));
    EXPECT_EQ(prompt->title(), QStringLiteral("new"));
    EXPECT_TRUE(library.context().hasChanges());
}

TEST_F(PromptEditor, whereTheHistoryCanNotBeReadNothingIsWrittenAndTheSheetStays) {
    library.addVersion(addPrompt(QStringLiteral("t")), QStringLiteral("earlier"));
    library.saveAndReopen();
    QFile file(library.path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    constexpr qint64 firstPage = 4096; // holds the schema, and is in memory
    ASSERT_TRUE(file.seek(firstPage));
    file.write(QByteArray(file.size() - firstPage, '\xFF'));
    file.close();
    Prompt* prompt = library.prompt(QStringLiteral("t"));
    open(prompt).setTitle(QStringLiteral("typed"));
    const LogCapture log;
    editor->savePrompt();
    EXPECT_EQ(closed->count(), 0);
    EXPECT_EQ(editor->title(), QStringLiteral("typed"));
    EXPECT_EQ(prompt->title(), QStringLiteral("t"));
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines().first().startsWith(QStringLiteral("data error: Data error in saving prompt: ")));
}

TEST_F(PromptEditor, theTextOfAPromptThatIsGoneIsKeptAsANewPrompt) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    open(prompt).setEditorBody(QStringLiteral("typed for an hour"));
    library.context().remove(prompt);
    editor->savePrompt();
    ASSERT_EQ(library.context().prompts().size(), 1);
    EXPECT_EQ(library.context().prompts().first()->body(), QStringLiteral("typed for an hour"));
}

} // namespace Quillstacks
