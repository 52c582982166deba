#include "interface/Chip.h"
#include "library/tags/TagEditorView.h"
#include "library/tags/TagSelectorView.h"
#include "PromptEditorFixture.h"

namespace Quillstacks {

TEST_F(PromptEditor, changingOnlyTheTagsAndSavingWritesTheTagsAndMakesNoVersion) {
    Tag* tag = addTag(QStringLiteral("Work"));
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    open(prompt).setSelectedTags({tag});
    editor->savePrompt();
    EXPECT_EQ(tagNames(*prompt), QStringLiteral("Work"));
    EXPECT_FALSE(prompt->hasVersions());
}

TEST_F(PromptEditor, aTagDeletedElsewhereBeforeTheSaveIsLeftOut) {
    Tag* kept = addTag(QStringLiteral("kept"));
    Tag* gone = addTag(QStringLiteral("gone"));
    Prompt* prompt = addPrompt(QStringLiteral("t"));
    open(prompt).setSelectedTags({kept, gone});
    library.context().remove(gone);
    editor->savePrompt();
    EXPECT_EQ(tagNames(*prompt), QStringLiteral("kept"));
}

TEST_F(PromptEditor, tagsAreWrittenInTheOrderOfAllTags) {
    Tag* b = addTag(QStringLiteral("b"));
    Tag* c = addTag(QStringLiteral("c"));
    Tag* a = addTag(QStringLiteral("a"));
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("x"), {c, b, a});
    open(prompt).savePrompt();
    EXPECT_EQ(tagNames(*prompt), QStringLiteral("a b c"));
}

TEST_F(PromptEditor, clicksOnChipsTickAndUntickTags) {
    Tag* work = addTag(QStringLiteral("Work"));
    Tag* home = addTag(QStringLiteral("Home"));
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("b"), {work});
    PromptEditorView& view = present(prompt);
    const auto chip = [&](const char* name) { return named<Chip>(view, QLatin1String(name)); };
    ASSERT_TRUE(chip("Work") && chip("Home"));
    EXPECT_TRUE(chip("Work")->isChecked());
    EXPECT_FALSE(chip("Home")->isChecked());
    QTest::mouseClick(chip("Home"), Qt::LeftButton);
    EXPECT_EQ(view.selectedTags(), (QSet<Tag*>{work, home}));
    QTest::mouseClick(chip("Work"), Qt::LeftButton);
    EXPECT_EQ(view.selectedTags(), QSet<Tag*>{home});
    EXPECT_EQ(tagNames(*prompt), QStringLiteral("Work"));
    QTest::mouseClick(visibleButton(view, QStringLiteral("Save")), Qt::LeftButton);
    EXPECT_EQ(tagNames(*prompt), QStringLiteral("Home"));
}

TEST_F(PromptEditor, aNewPromptTakesTheTagsThatAreTicked) {
    Tag* work = addTag(QStringLiteral("Work"));
    open().setTitle(QStringLiteral("t"));
    editor->setEditorBody(QStringLiteral("b"));
    editor->setSelectedTags({work});
    editor->savePrompt();
    ASSERT_TRUE(library.prompt(QStringLiteral("t")));
    EXPECT_EQ(tagNames(*library.prompt(QStringLiteral("t"))), QStringLiteral("Work"));
}

TEST_F(PromptEditor, withNoTagsAtAllItOffersToCreateOneAndTheNewTagArrivesTicked) {
    PromptEditorView& view = present();
    view.setTitle(QStringLiteral("typed"));
    Button* create = visibleButton(view, QStringLiteral("Create Tag"));
    ASSERT_TRUE(create);
    QTest::mouseClick(create, Qt::LeftButton);
    auto* tagEditor = qobject_cast<TagEditorView*>(Sheet::top(&window)->content());
    ASSERT_TRUE(tagEditor);
    tagEditor->setName(QStringLiteral("Work"));
    tagEditor->saveTag();
    Tag* work = library.tag(QStringLiteral("Work"));
    ASSERT_TRUE(work);
    EXPECT_EQ(view.selectedTags(), QSet<Tag*>{work});
    EXPECT_TRUE(named<Chip>(view, QStringLiteral("Work"))->isChecked());
    EXPECT_FALSE(visibleButton(view, QStringLiteral("Create Tag")));
    EXPECT_EQ(view.title(), QStringLiteral("typed"));
    EXPECT_EQ(closed->count(), 0);
}

TEST_F(PromptEditor, aTagThatIsMadeElsewhereIsOfferedAtOnce) {
    PromptEditorView& view = present();
    addTag(QStringLiteral("Late"));
    library.context().processPendingChanges();
    EXPECT_TRUE(named<Chip>(view, QStringLiteral("Late")));
}

TEST_F(PromptEditor, changedTagsCountAsUnsavedTyping) {
    Tag* work = addTag(QStringLiteral("Work"));
    Tag* home = addTag(QStringLiteral("Home"));
    Prompt* prompt = addPrompt(QStringLiteral("t"), QStringLiteral("b"), {work});
    open(prompt);
    EXPECT_FALSE(editor->holdsUnsavedTyping());
    editor->setSelectedTags({work, home});
    EXPECT_TRUE(editor->holdsUnsavedTyping());
    editor->setSelectedTags({work});
    EXPECT_FALSE(editor->holdsUnsavedTyping());
    editor->setSelectedTags({});
    EXPECT_TRUE(editor->holdsUnsavedTyping());
}

TEST_F(PromptEditor, aTagThatIsGoneIsNoUnsavedTyping) {
    Tag* work = addTag(QStringLiteral("Work"));
    open(addPrompt(QStringLiteral("t"), QStringLiteral("b"), {work}));
    library.context().remove(work);
    EXPECT_FALSE(editor->holdsUnsavedTyping());
    open();
    EXPECT_FALSE(editor->holdsUnsavedTyping());
}

} // namespace Quillstacks
