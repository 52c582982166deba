#include "FullDisk.h"
#include "PromptEditorFixture.h"
#include "variables/VariablePreferences.h"
#include "variables/VariableSubstitutionView.h"

namespace Quillstacks {

// Deleting

TEST_F(PromptEditor, deleteAsksThenDeletesSavesAndCloses) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    PromptEditorView& view = present(prompt);
    const LogCapture log;
    visibleButton(view, QStringLiteral("Delete"))->click();
    EXPECT_TRUE(view.isShowingDeleteAlert());
    EXPECT_FALSE(prompt->isDeleted());
    visibleButton(*Sheet::top(&window), QStringLiteral("Delete"))->click();
    EXPECT_FALSE(view.isShowingDeleteAlert());
    EXPECT_TRUE(prompt->isDeleted());
    EXPECT_FALSE(library.context().hasChanges());
    EXPECT_EQ(closed->count(), 1);
    EXPECT_EQ(log.lines(), (QStringList{QStringLiteral("data info: Deleting prompt: 't'"),
                                        QStringLiteral("data info: Prompt deleted successfully")}));
}

TEST_F(PromptEditor, theAlertsCancelKeepsThePromptAndTheSheet) {
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    PromptEditorView& view = present(prompt);
    view.askToDelete();
    visibleButton(*Sheet::top(&window), QStringLiteral("Cancel"))->click();
    EXPECT_FALSE(view.isShowingDeleteAlert());
    EXPECT_FALSE(prompt->isDeleted());
    EXPECT_EQ(closed->count(), 0);
}

TEST_F(PromptEditor, aFailedDeletionIsLoggedAndTheSheetClosesAllTheSame) {
    open(addPrompt(QStringLiteral("t")));
    const LogCapture log;
    {
        const FullDisk disk;
        editor->deletePrompt();
    }
    EXPECT_EQ(closed->count(), 1);
    const QStringList errors = log.messages(QStringLiteral("data"), LogLevel::Error);
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors.first().startsWith(QStringLiteral("Data error in deleting prompt: ")));
    EXPECT_FALSE(log.contains(QStringLiteral("Prompt deleted successfully")));
}

// Copying

TEST_F(PromptEditor, copyWithoutVariablesTakesTheBodyAsItStandsUntrimmedAndUnsaved) {
    open(addPrompt(QStringLiteral("t"), QStringLiteral("b")));
    editor->setTitle(QStringLiteral(" typed \"title\" "));
    editor->setEditorBody(QStringLiteral(" typed\n"));
    editor->copyPrompt();
    EXPECT_EQ(clipboard(), QStringLiteral(" typed\n"));
    EXPECT_EQ(toast(), QStringLiteral("Copied \" typed \"title\" \" to clipboard"));
    EXPECT_FALSE(editor->showVariableSubstitution());
}

TEST_F(PromptEditor, copyIsDisabledWhileTheBodyIsBlank) {
    open(addPrompt(QStringLiteral("t"), QStringLiteral("b")));
    EXPECT_TRUE(visibleButton(*editor, QStringLiteral("Copy"))->isEnabled());
    editor->setEditorBody(QStringLiteral(" \n"));
    EXPECT_FALSE(visibleButton(*editor, QStringLiteral("Copy"))->isEnabled());
}

TEST_F(PromptEditor, copyingATextThatHoldsVariablesWithSubstitutionOffTakesThePlaceholdersAsTheyStand) {
    enableVariableSubstitutionPreference().set(false);
    open(addPrompt(QStringLiteral("t"), QStringLiteral("Explain {{topic}}")));
    editor->copyPrompt();
    EXPECT_EQ(clipboard(), QStringLiteral("Explain {{topic}}"));
    EXPECT_FALSE(editor->showVariableSubstitution());
}

TEST_F(PromptEditor, copyingATextThatHoldsVariablesAsksForTheirValuesFirst) {
    rememberValue(QStringLiteral("topic"), QStringLiteral("tides"));
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("Explain {topic}.")));
    view.copyPrompt();
    EXPECT_TRUE(view.showVariableSubstitution());
    EXPECT_EQ(clipboard(), QString());
    auto* fillIn = qobject_cast<VariableSubstitutionView*>(Sheet::top(&window)->content());
    ASSERT_TRUE(fillIn);
    visibleButton(*fillIn, QStringLiteral("Copy"))->click();
    EXPECT_EQ(clipboard(), QStringLiteral("Explain tides."));
    EXPECT_EQ(toast(), QStringLiteral("Copied \"t\" to clipboard"));
    EXPECT_FALSE(view.showVariableSubstitution());
}

TEST_F(PromptEditor, cancellingTheFillInCopiesNothing) {
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("Explain {topic}.")));
    view.copyPrompt();
    auto* fillIn = qobject_cast<VariableSubstitutionView*>(Sheet::top(&window)->content());
    ASSERT_TRUE(fillIn);
    visibleButton(*fillIn, QStringLiteral("Cancel"))->click();
    EXPECT_FALSE(view.showVariableSubstitution());
    EXPECT_EQ(clipboard(), QString());
    EXPECT_EQ(closed->count(), 0);
}

} // namespace Quillstacks
