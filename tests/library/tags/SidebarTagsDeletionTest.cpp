#include "interface/Label.h"
#include "library/FullDisk.h"
#include "SidebarTagsFixture.h"

namespace Quillstacks {
namespace {

constexpr auto deletionDelay = std::chrono::milliseconds(100);

class SidebarTagsDeletion : public SidebarTagsFixture {
protected:
    SidebarTagsDeletion() {
        for (const char* name : {"Code", "Email"})
            addTag(QLatin1String(name));
        library.context().save();
        open();
    }
    Tag* tag(const char* name) { return library.tag(QLatin1String(name)); }
    void answer(const char* title) {
        QTest::mouseClick(visibleButton(*Sheet::top(section), QLatin1String(title)), Qt::LeftButton);
    }
    QStringList tagNames() { return namesOf(library.context().tags()); }
};

} // namespace

TEST_F(SidebarTagsDeletion, asksWithItsTextsAndTwoButtons) {
    section->askToDelete(tag("Code"));
    EXPECT_EQ(section->pendingDeletion(), tag("Code"));
    EXPECT_TRUE(section->isShowingDeleteAlert());
    const Sheet* alert = Sheet::top(section);
    ASSERT_TRUE(alert);
    QStringList texts;
    for (const Label* label : alert->findChildren<Label*>())
        texts += label->text();
    EXPECT_EQ(texts, QStringList{QStringLiteral("Delete Tag?")});
    EXPECT_TRUE(visibleButton(*alert, QStringLiteral("Cancel")));
    ASSERT_TRUE(visibleButton(*alert, QStringLiteral("Delete")));
    EXPECT_EQ(visibleButton(*alert, QStringLiteral("Delete"))->kind(), Button::Kind::destructiveFill);
}

TEST_F(SidebarTagsDeletion, cancelLeavesTheTag) {
    section->askToDelete(tag("Code"));
    answer("Cancel");
    EXPECT_FALSE(section->pendingDeletion());
    EXPECT_FALSE(section->isShowingDeleteAlert());
    EXPECT_FALSE(Sheet::top(section));
    clock.advance(std::chrono::seconds(1));
    EXPECT_EQ(tagNames(), (QStringList{QStringLiteral("Code"), QStringLiteral("Email")}));
}

TEST_F(SidebarTagsDeletion, waitsATenthOfASecondAfterTheAlertIsGone) {
    section->askToDelete(tag("Code"));
    answer("Delete");
    EXPECT_FALSE(section->pendingDeletion());
    EXPECT_FALSE(section->isShowingDeleteAlert());
    EXPECT_FALSE(Sheet::top(section));
    clock.advance(deletionDelay - std::chrono::milliseconds(1));
    EXPECT_EQ(tagNames().size(), 2);
    clock.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(tagNames(), QStringList{QStringLiteral("Email")});
    settle();
    EXPECT_EQ(titles().join(QLatin1Char(',')), QStringLiteral("All Prompts,Email,New Tag"));
    library.reopen();
    EXPECT_EQ(tagNames(), QStringList{QStringLiteral("Email")});
}

TEST_F(SidebarTagsDeletion, deletingTheSelectedTagReturnsToAllPrompts) {
    click("Code");
    told.clear();
    section->askToDelete(tag("Code"));
    answer("Delete");
    EXPECT_TRUE(told.isEmpty());
    clock.advance(deletionDelay);
    EXPECT_EQ(told, QList<Uuid>{all});
    EXPECT_EQ(section->selectedTagId(), all);
    settle();
    EXPECT_EQ(selectedTitles(), QStringList{QStringLiteral("All Prompts")});
}

TEST_F(SidebarTagsDeletion, deletingAnotherTagLeavesTheSelection) {
    click("Email");
    told.clear();
    section->askToDelete(tag("Code"));
    answer("Delete");
    clock.advance(deletionDelay);
    settle();
    EXPECT_TRUE(told.isEmpty());
    EXPECT_EQ(section->selectedTagId(), tag("Email")->id());
    EXPECT_EQ(selectedTitles(), QStringList{QStringLiteral("Email")});
}

TEST_F(SidebarTagsDeletion, aTagSelectedWhileItWaitsIsTheSelectedOne) {
    section->askToDelete(tag("Code"));
    answer("Delete");
    click("Code");
    clock.advance(deletionDelay);
    EXPECT_EQ(section->selectedTagId(), all);
}

TEST_F(SidebarTagsDeletion, promptsStayAndVersionsKeepNameAndColour) {
    Tag* code = tag("Code");
    Prompt* prompt = addPrompt(QStringLiteral("a"), QStringLiteral("b"), {code, tag("Email")});
    const PromptVersion* version = library.addVersion(prompt, QStringLiteral("old"), {code});
    section->askToDelete(code);
    answer("Delete");
    clock.advance(deletionDelay);
    EXPECT_EQ(namesOf(prompt->tags()), QStringList{QStringLiteral("Email")});
    EXPECT_EQ(version->tagNames(), QStringList{QStringLiteral("Code")});
    EXPECT_EQ(version->tagColors(), QStringList{QStringLiteral("7C5CFC")});
}

TEST_F(SidebarTagsDeletion, aFailedSaveIsDroppedWithoutALog) {
    LogCapture log;
    section->askToDelete(tag("Code"));
    answer("Delete");
    {
        const FullDisk disk;
        clock.advance(deletionDelay);
    }
    EXPECT_TRUE(log.messages(QStringLiteral("data"), LogLevel::Error).isEmpty());
    EXPECT_EQ(tagNames(), QStringList{QStringLiteral("Email")});
    EXPECT_TRUE(library.context().hasChanges());
}

TEST_F(SidebarTagsDeletion, happensAlsoWhenTheSidebarIsGoneByThen) {
    section->askToDelete(tag("Code"));
    answer("Delete");
    delete section;
    section = nullptr;
    clock.advance(deletionDelay);
    EXPECT_EQ(tagNames(), QStringList{QStringLiteral("Email")});
    EXPECT_FALSE(library.context().hasChanges());
}

TEST_F(SidebarTagsDeletion, withoutAPendingTagNothingHappens) {
    section->confirmDeletion();
    clock.advance(std::chrono::seconds(1));
    EXPECT_EQ(tagNames().size(), 2);
}

TEST_F(SidebarTagsDeletion, aSecondQuestionWaitsForTheFirst) {
    section->askToDelete(tag("Code"));
    section->askToDelete(tag("Email"));
    EXPECT_EQ(section->pendingDeletion(), tag("Code"));
}

TEST_F(SidebarTagsDeletion, theRowThatGoesHandsTheKeyboardOn) {
    click("Code");
    row("Code")->setFocus(Qt::TabFocusReason);
    section->askToDelete(tag("Code"));
    answer("Delete");
    clock.advance(deletionDelay);
    settle();
    EXPECT_TRUE(row("All Prompts")->hasFocus());
}

} // namespace Quillstacks
