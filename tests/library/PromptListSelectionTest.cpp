#include "interface/IconButton.h"
#include "library/PromptEditorView.h"
#include "PromptListFixture.h"

#include <QAccessible>

namespace Quillstacks {

// Selecting and opening

TEST_F(PromptList, aClickSelectsAndADoubleClickOpensTheEditor) {
    addPrompt(QStringLiteral("lower"));
    Prompt* upper = addPrompt(QStringLiteral("upper"));
    shownView();
    const QPoint at = rows().rowGeometry(0).center();
    QTest::mouseClick(rows().viewport(), Qt::LeftButton, Qt::NoModifier, at);
    EXPECT_EQ(view().selection(), upper);
    EXPECT_FALSE(view().isPresentingEditor());
    QTest::mouseDClick(rows().viewport(), Qt::LeftButton, Qt::NoModifier, at);
    EXPECT_TRUE(view().isPresentingEditor());
    const auto* editor = qobject_cast<PromptEditorView*>(Sheet::top(&view())->content());
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->editingPrompt(), upper);
}

TEST_F(PromptList, newPromptClearsTheSelectionAndOpensAnEmptyEditor) {
    view().select(addPrompt(QStringLiteral("a")));
    view().newPrompt();
    EXPECT_EQ(view().selection(), nullptr);
    ASSERT_TRUE(view().isPresentingEditor());
    const auto* editor = qobject_cast<PromptEditorView*>(Sheet::top(&view())->content());
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->editingPrompt(), nullptr);
}

TEST_F(PromptList, editSelectsThePromptAndOpensItsEditor) {
    Prompt* prompt = addPrompt(QStringLiteral("a"));
    view().edit(prompt);
    EXPECT_EQ(view().selection(), prompt);
    const auto* editor = qobject_cast<PromptEditorView*>(Sheet::top(&view())->content());
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->editingPrompt(), prompt);
}

TEST_F(PromptList, whenTheEditorClosesItsChangesShowAtOnce) {
    view().newPrompt();
    auto* editor = qobject_cast<PromptEditorView*>(Sheet::top(&view())->content());
    editor->setTitle(QStringLiteral("made here"));
    editor->setEditorBody(QStringLiteral("text"));
    const bool before = view().refreshTrigger();
    editor->savePrompt();
    EXPECT_FALSE(view().isPresentingEditor());
    EXPECT_NE(view().refreshTrigger(), before);
    EXPECT_EQ(rows().count(), 1);
}

TEST_F(PromptList, theSelectionSurvivesAChangeOfFilterAndReturnStillOpensIt) {
    Prompt* prompt = addPrompt(QStringLiteral("hidden"));
    addPrompt(QStringLiteral("shown"));
    shownView().select(prompt);
    view().setSearchText(QStringLiteral("shown"));
    EXPECT_EQ(view().selection(), prompt);
    press(Qt::Key_Return);
    EXPECT_TRUE(view().isPresentingEditor());
    EXPECT_EQ(view().selection(), prompt);
}

TEST_F(PromptList, aSelectionThatWasDeletedElsewhereIsNeitherOpenedNorDeletedAgain) {
    Prompt* prompt = addPrompt(QStringLiteral("gone"));
    shownView().select(prompt);
    library.context().remove(prompt);
    library.context().processPendingChanges();
    EXPECT_EQ(view().selection(), prompt);
    press(Qt::Key_E);
    EXPECT_FALSE(view().isPresentingEditor());
    view().askToDeleteSelection();
    EXPECT_FALSE(view().isShowingDeleteAlert());
}

// What is covered or gone

TEST_F(PromptList, assistiveToolsSelectARowAndPressNothingBeneathASheet) {
    Prompt* prompt = addPrompt(QStringLiteral("a"));
    shownView();
    library.context().processPendingChanges();
    QAccessibleInterface* row = QAccessible::queryAccessibleInterface(rows().row(0));
    ASSERT_TRUE(row);
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_FALSE(row->state().selected);
    view().newPrompt();
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(view().selection());
    Sheet::top(&view())->dismiss();
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(view().selection(), prompt);
    EXPECT_TRUE(row->state().selected);
}

TEST_F(PromptList, beneathASheetNothingIsMadeOpenedOrAskedAbout) {
    Prompt* prompt = addPrompt(QStringLiteral("a"));
    Prompt* other = addPrompt(QStringLiteral("b"));
    view().edit(prompt);
    view().newPrompt();
    EXPECT_EQ(view().selection(), prompt);
    view().edit(other);
    EXPECT_EQ(view().selection(), prompt);
    view().askToDelete(prompt);
    EXPECT_FALSE(view().isShowingDeleteAlert());
}

TEST_F(PromptList, aPromptThatIsGoneIsNeitherOpenedNorPinnedNorCopied) {
    Prompt* prompt = addPrompt(QStringLiteral("gone"), QStringLiteral("body"));
    view();
    library.context().remove(prompt);
    view().edit(prompt);
    EXPECT_FALSE(view().isPresentingEditor());
    view().togglePin(prompt);
    view().copy(prompt);
    EXPECT_EQ(clipboard(), QString());
    view().askToDelete(prompt);
    EXPECT_FALSE(view().isShowingDeleteAlert());
}

} // namespace Quillstacks
