#include "interface/IconButton.h"
#include "interface/LazyList.h"
#include "interface/ScrollArea.h"
#include "interface/Sheet.h"
#include "interface/TextField.h"
#include "library/LibraryFixture.h"
#include "library/PromptListView.h"
#include "library/PromptSearch.h"
#include "library/tags/SidebarTagsSection.h"
#include "library/tags/TagEditorView.h"
#include "mainwindow/ContentView.h"
#include "mainwindow/SidebarView.h"

namespace Quillstacks {
namespace {

/// The sidebar's tags and the sheet for them, with the list beside them.
class ContentViewTags : public LibraryFixture {
protected:
    ContentView& open() {
        made = std::make_unique<ContentView>(library.context());
        show(*made, QSize(1280, 720));
        return *made;
    }
    SidebarView& sidebar() { return *made->findChild<SidebarView*>(); }
    TextField& searchField() { return *sidebar().findChild<TextField*>(); }
    TagEditorView* editor() {
        Sheet* sheet = Sheet::top(made.get());
        return sheet ? qobject_cast<TagEditorView*>(sheet->content()) : nullptr;
    }
    QAbstractButton* row(const QString& title) { return named<QAbstractButton>(sidebar(), title); }
    void click(const char* title) { QTest::mouseClick(row(QLatin1String(title)), Qt::LeftButton, {}, QPoint(60, 17)); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(made->windowHandle(), key, modifiers);
    }
    void type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), QLatin1String(text)); }
    [[nodiscard]] QStringList visibleTitles() const { return titlesOf(made->promptList().filteredPrompts()); }

    std::unique_ptr<ContentView> made;
};

} // namespace

TEST_F(ContentViewTags, typingTInTheSearchFieldTypesTheLetterAndOpensNoSheet) {
    open();
    searchField().setFocus();
    press(Qt::Key_T);
    EXPECT_EQ(searchField().text(), QStringLiteral("t"));
    EXPECT_FALSE(made->isPresentingTagEditor());
    EXPECT_FALSE(Sheet::top(made.get()));
}

TEST_F(ContentViewTags, theKeyTMakesANewTag) {
    addPrompt(QStringLiteral("a"));
    open();
    ASSERT_TRUE(qobject_cast<LazyList*>(QApplication::focusWidget()));
    press(Qt::Key_T);
    EXPECT_TRUE(made->isPresentingTagEditor());
    EXPECT_FALSE(made->editingTag());
    ASSERT_TRUE(editor());
    EXPECT_EQ(editor()->name(), QString()) << "the key itself is not typed";
}

TEST_F(ContentViewTags, theKeyTIsTakenFromTheSidebarsRowsToo) {
    addTag(QStringLiteral("Code"));
    open();
    row(QStringLiteral("All Prompts"))->setFocus(Qt::TabFocusReason);
    press(Qt::Key_T);
    EXPECT_TRUE(editor());
}

TEST_F(ContentViewTags, theKeyTWithAModifierIsNoneOfIt) {
    open();
    for (const auto modifier : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier})
        press(Qt::Key_T, modifier);
    EXPECT_FALSE(made->isPresentingTagEditor());
}

TEST_F(ContentViewTags, theKeyTUnderASheetDoesNothing) {
    Prompt* prompt = addPrompt(QStringLiteral("a"));
    open().promptList().askToDelete(prompt);
    const Sheet* alert = Sheet::top(made.get());
    press(Qt::Key_T);
    made->onCreateTag();
    EXPECT_FALSE(made->isPresentingTagEditor());
    EXPECT_EQ(Sheet::top(made.get()), alert);
}

TEST_F(ContentViewTags, afterCreatingATagThroughTheSheetItShowsInTheSidebarAsSoonAsTheSheetCloses) {
    open();
    click("New Tag");
    ASSERT_TRUE(editor());
    type("Onboarding");
    press(Qt::Key_Return);
    // Without another turn of the loop.
    EXPECT_FALSE(made->isPresentingTagEditor());
    EXPECT_TRUE(row(QStringLiteral("Onboarding")));
    EXPECT_EQ(made->selectedTagId(), allPromptsId);
}

TEST_F(ContentViewTags, thePencilEditsItsTagAndANewTagAfterwardsBeginsEmpty) {
    Tag* tag = addTag(QStringLiteral("Code"));
    open();
    QTest::mouseClick(row(QStringLiteral("Code"))->findChild<IconButton*>(), Qt::LeftButton);
    EXPECT_TRUE(made->isPresentingTagEditor());
    EXPECT_EQ(made->editingTag(), tag);
    ASSERT_TRUE(editor());
    EXPECT_EQ(editor()->editingTag(), tag);
    QTest::mouseClick(visibleButton(*editor(), QStringLiteral("Cancel")), Qt::LeftButton);
    EXPECT_FALSE(made->isPresentingTagEditor());
    made->onCreateTag();
    EXPECT_FALSE(made->editingTag());
    ASSERT_TRUE(editor());
    EXPECT_FALSE(editor()->editingTag());
    EXPECT_EQ(editor()->name(), QString());
}

TEST_F(ContentViewTags, aRenamedTagShowsItsNameAsSoonAsTheSheetCloses) {
    Tag* tag = addTag(QStringLiteral("Code"));
    addPrompt(QStringLiteral("a"), QStringLiteral("b"), {tag});
    open().onEditTag(tag);
    type("x");
    press(Qt::Key_Return);
    EXPECT_FALSE(row(QStringLiteral("Code")));
    EXPECT_TRUE(row(QStringLiteral("Codex")));
}

TEST_F(ContentViewTags, theListHasTheKeyboardAgainWhenTheSheetIsGone) {
    addPrompt(QStringLiteral("a"));
    open();
    press(Qt::Key_T);
    QTest::mouseClick(visibleButton(*editor(), QStringLiteral("Cancel")), Qt::LeftButton);
    press(Qt::Key_Down);
    EXPECT_TRUE(made->promptList().selection());
}

TEST_F(ContentViewTags, clickingATagAndTypingInTheSearchFieldCombine) {
    Tag* tag = addTag(QStringLiteral("Work"));
    addPrompt(QStringLiteral("tagged and matching"), QStringLiteral("needle"), {tag});
    addPrompt(QStringLiteral("tagged"), QStringLiteral("x"), {tag});
    addPrompt(QStringLiteral("matching"), QStringLiteral("needle"));
    open();
    click("Work");
    EXPECT_EQ(made->selectedTagId(), tag->id());
    EXPECT_EQ(visibleTitles().size(), 2);
    searchField().setFocus();
    type("need");
    EXPECT_EQ(visibleTitles(), QStringList{QStringLiteral("tagged and matching")});
    EXPECT_EQ(made->promptList().countText(), QStringLiteral("1 prompt"));
    click("All Prompts");
    EXPECT_EQ(visibleTitles().size(), 2);
}

TEST_F(ContentViewTags, deletingTheSelectedTagReturnsTheListToAllPrompts) {
    Tag* tag = addTag(QStringLiteral("Work"));
    addPrompt(QStringLiteral("tagged"), QStringLiteral("x"), {tag});
    addPrompt(QStringLiteral("other"));
    open();
    click("Work");
    EXPECT_EQ(visibleTitles().size(), 1);
    sidebar().tagsSection().askToDelete(tag);
    QTest::mouseClick(visibleButton(*Sheet::top(made.get()), QStringLiteral("Delete")), Qt::LeftButton);
    EXPECT_EQ(visibleTitles().size(), 1);
    clock.advance(std::chrono::milliseconds(100));
    EXPECT_EQ(made->selectedTagId(), allPromptsId);
    EXPECT_EQ(visibleTitles().size(), 2);
    EXPECT_TRUE(row(QStringLiteral("All Prompts"))->isChecked());
}

TEST_F(ContentViewTags, deletingAnotherTagLeavesTheSelection) {
    Tag* work = addTag(QStringLiteral("Work"));
    Tag* home = addTag(QStringLiteral("Home"));
    addPrompt(QStringLiteral("tagged"), QStringLiteral("x"), {work});
    addPrompt(QStringLiteral("other"), QStringLiteral("x"), {home});
    open();
    click("Work");
    sidebar().tagsSection().askToDelete(home);
    QTest::mouseClick(visibleButton(*Sheet::top(made.get()), QStringLiteral("Delete")), Qt::LeftButton);
    clock.advance(std::chrono::milliseconds(100));
    EXPECT_EQ(made->selectedTagId(), work->id());
    EXPECT_EQ(visibleTitles(), QStringList{QStringLiteral("tagged")});
}

TEST_F(ContentViewTags, moreTagsThanFitScrollUnderTheSearchFieldAndToTheOneChosenByKey) {
    for (int i = 0; i < 60; ++i)
        addTag(QStringLiteral("tag %1").arg(i, 2, 10, QLatin1Char('0')));
    open();
    auto* area = sidebar().findChild<ScrollArea*>();
    const auto isInSight = [&](const QString& title) {
        const QAbstractButton* wanted = row(title);
        return area->viewport()->rect().contains(QRect(wanted->mapTo(area->viewport(), QPoint(0, 0)), wanted->size()));
    };
    EXPECT_TRUE(isInSight(QStringLiteral("All Prompts")));
    EXPECT_FALSE(isInSight(QStringLiteral("tag 40")));
    row(QStringLiteral("All Prompts"))->setFocus(Qt::TabFocusReason);
    for (int i = 0; i <= 40; ++i)
        press(Qt::Key_Down);
    EXPECT_EQ(made->selectedTagId(), library.tag(QStringLiteral("tag 40"))->id());
    EXPECT_TRUE(isInSight(QStringLiteral("tag 40")));
    EXPECT_EQ(searchField().mapTo(made.get(), QPoint(0, 0)), QPoint(12, 56));
    EXPECT_EQ(sidebar().width(), 320);
}

} // namespace Quillstacks
