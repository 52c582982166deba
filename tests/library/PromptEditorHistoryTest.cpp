#include "library/versions/VersionHistoryView.h"
#include "PromptEditorFixture.h"

namespace Quillstacks {
namespace {

class PromptEditorHistory : public PromptEditor {
protected:
    Prompt* addPromptWithVersion(const QList<Tag*>& tags = {}) {
        Prompt* prompt = addPrompt(QStringLiteral("now"), QStringLiteral("new {b}"), tags);
        prompt->appendVersion(std::make_unique<PromptVersion>(prompt->id(), QStringLiteral("before"),
                                                              QStringLiteral("old {a}"), QList<Tag*>()));
        library.context().save();
        library.context().processPendingChanges();
        return prompt;
    }
    [[nodiscard]] static Button* button(const PromptEditorView& view) {
        return visibleButton(view, QStringLiteral("History"));
    }
    /// The history, opened by its button.
    VersionHistoryView* openHistory(const PromptEditorView& view) {
        QTest::mouseClick(button(view), Qt::LeftButton);
        return qobject_cast<VersionHistoryView*>(Sheet::top(&window)->content());
    }
};

} // namespace

TEST_F(PromptEditorHistory, aPromptWithNoVersionsHasNoHistoryButton) {
    const PromptEditorView& view = present(addPrompt(QStringLiteral("t")));
    EXPECT_FALSE(view.hasHistory());
    EXPECT_FALSE(button(view));
    EXPECT_TRUE(visibleButton(view, QStringLiteral("Copy")));
}

TEST_F(PromptEditorHistory, theButtonFollowsThePromptsVersions) {
    Prompt* prompt = addPromptWithVersion();
    const PromptEditorView& view = present(prompt);
    ASSERT_TRUE(button(view));
    EXPECT_EQ(button(view)->toolTip(), QStringLiteral("View version history"));
    library.context().remove(prompt->versions().first());
    library.context().processPendingChanges();
    EXPECT_FALSE(button(view));
    library.addVersion(prompt, QStringLiteral("again"));
    library.context().processPendingChanges();
    EXPECT_TRUE(button(view));
    library.context().remove(prompt);
    library.context().processPendingChanges();
    EXPECT_FALSE(button(view));
}

TEST_F(PromptEditorHistory, theButtonOpensTheHistoryAndItsCloseGivesTheEditorBack) {
    PromptEditorView& view = present(addPromptWithVersion());
    view.setTitle(QStringLiteral("typed"));
    VersionHistoryView* history = openHistory(view);
    ASSERT_TRUE(history);
    EXPECT_TRUE(view.isShowingVersionHistory());
    EXPECT_EQ(history->sortedVersions().size(), 1);
    history->closeHistory();
    EXPECT_FALSE(view.isShowingVersionHistory());
    EXPECT_EQ(Sheet::top(&window), Sheet::of(&view));
    EXPECT_EQ(view.title(), QStringLiteral("typed"));
    EXPECT_EQ(closed->count(), 0);
}

TEST_F(PromptEditorHistory, aRestoreShowsAtOnceAndOverwritesUnsavedTyping) {
    Tag* stored = addTag(QStringLiteral("stored"));
    Tag* ticked = addTag(QStringLiteral("ticked"));
    Prompt* prompt = addPromptWithVersion({stored});
    PromptEditorView& view = present(prompt);
    view.setTitle(QStringLiteral("typed"));
    view.setEditorBody(QStringLiteral("typed for an hour"));
    view.setSelectedTags({ticked});
    VersionHistoryView* history = openHistory(view);
    ASSERT_TRUE(history);
    history->select(history->sortedVersions().first());
    history->restoreSelectedVersion();
    EXPECT_FALSE(view.isShowingVersionHistory());
    EXPECT_EQ(view.title(), QStringLiteral("before"));
    EXPECT_EQ(view.editorBody(), QStringLiteral("old {a}"));
    EXPECT_EQ(view.selectedTags(), QSet<Tag*>{stored});
    EXPECT_FALSE(view.holdsUnsavedTyping());
    EXPECT_FALSE(library.context().hasChanges());
    EXPECT_EQ(closed->count(), 0);
    ASSERT_EQ(prompt->versions().size(), 2);
    EXPECT_EQ(prompt->versions().last()->body(), QStringLiteral("new {b}"));
}

TEST_F(PromptEditorHistory, whenTheHistoryClosesTheContextProcessesItsPendingChanges) {
    Prompt* prompt = addPromptWithVersion();
    PromptQuery prompts(library.context());
    const PromptEditorView& view = present(prompt);
    VersionHistoryView* history = openHistory(view);
    ASSERT_TRUE(history);
    library.context().processPendingChanges();
    const QSignalSpy told(&prompts, &LiveQueryBase::changed);
    prompt->setTitle(QStringLiteral("changed meanwhile"));
    EXPECT_EQ(told.count(), 0);
    history->closeHistory();
    EXPECT_EQ(told.count(), 1);
}

TEST_F(PromptEditorHistory, withoutAHistoryNothingOpens) {
    open().showVersionHistory();
    EXPECT_FALSE(editor->isShowingVersionHistory());
    open(addPrompt(QStringLiteral("t"))).showVersionHistory();
    EXPECT_FALSE(editor->isShowingVersionHistory());
    EXPECT_FALSE(Sheet::top(editor.get()));
}

TEST_F(PromptEditorHistory, aSecondCallOpensNoSecondHistory) {
    PromptEditorView& view = present(addPromptWithVersion());
    view.showVersionHistory();
    const Sheet* sheet = Sheet::top(&window);
    view.showVersionHistory();
    EXPECT_EQ(Sheet::top(&window), sheet);
}

TEST_F(PromptEditorHistory, escapeClosesTheHistoryAndNotTheEditor) {
    PromptEditorView& view = present(addPromptWithVersion());
    ASSERT_TRUE(openHistory(view));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(view.isShowingVersionHistory());
    EXPECT_EQ(Sheet::top(&window), Sheet::of(&view));
    EXPECT_EQ(closed->count(), 0);
}

} // namespace Quillstacks
