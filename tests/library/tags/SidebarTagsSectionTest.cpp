#include "interface/FocusRing.h"
#include "interface/IconButton.h"
#include "interface/Label.h"
#include "SidebarTagsFixture.h"
#include "support/ShownSymbol.h"

#include <QContextMenuEvent>

namespace Quillstacks {
namespace {

class SidebarTagsSectionTest : public SidebarTagsFixture {
protected:
    void addThree() {
        for (const char* name : {"Writing", "Code", "Email"})
            addTag(QLatin1String(name));
    }
    static QStringList entriesOf(const Menu& menu) {
        QStringList entries;
        for (const QAction* action : menu.actions())
            entries += action->text();
        return entries;
    }
};

} // namespace

TEST_F(SidebarTagsSectionTest, showsAllPromptsTheTagsByNameAndNewTagInTheirSections) {
    addThree();
    addTag(QStringLiteral("code 10"));
    addTag(QStringLiteral("code 9"));
    open();
    EXPECT_EQ(titles().join(QLatin1Char(',')), QStringLiteral("All Prompts,Code,code 9,code 10,Email,Writing,New Tag"));
    QStringList headings;
    for (const Label* label : section->findChildren<Label*>())
        headings += label->text();
    EXPECT_EQ(headings, (QStringList{QStringLiteral("Filters"), QStringLiteral("Tags")}));
}

TEST_F(SidebarTagsSectionTest, withNoTagsNewTagStandsUnderTheHeading) {
    open();
    EXPECT_EQ(titles().join(QLatin1Char(',')), QStringLiteral("All Prompts,New Tag"));
}

TEST_F(SidebarTagsSectionTest, selectsAllPromptsWhenItAppearsWithoutASelection) {
    addThree();
    open();
    EXPECT_EQ(section->selectedTagId(), all);
    EXPECT_EQ(told, QList<Uuid>{all});
    EXPECT_EQ(selectedTitles(), QStringList{QStringLiteral("All Prompts")});
}

TEST_F(SidebarTagsSectionTest, leavesASelectionThatIsThereWhenItAppears) {
    Tag* tag = addTag(QStringLiteral("Code"));
    open();
    section->setSelectedTagId(tag->id());
    told.clear();
    section->hide();
    section->show();
    EXPECT_TRUE(told.isEmpty());
    EXPECT_EQ(selectedTitles(), QStringList{QStringLiteral("Code")});
}

TEST_F(SidebarTagsSectionTest, aClickSelectsUnderTheTagsIdAndASecondOneKeepsIt) {
    addThree();
    open();
    click("Email");
    EXPECT_EQ(section->selectedTagId(), library.tag(QStringLiteral("Email"))->id());
    EXPECT_EQ(told.last(), library.tag(QStringLiteral("Email"))->id());
    click("Email");
    EXPECT_EQ(selectedTitles(), QStringList{QStringLiteral("Email")});
    click("All Prompts");
    EXPECT_EQ(told.last(), all);
    EXPECT_EQ(selectedTitles(), QStringList{QStringLiteral("All Prompts")});
}

TEST_F(SidebarTagsSectionTest, twoTagsNamedAlikeAreBothListedAndToldApart) {
    addTag(QStringLiteral("Work"));
    Tag* second = addTag(QStringLiteral("Work"));
    open();
    EXPECT_EQ(titles().join(QLatin1Char(',')), QStringLiteral("All Prompts,Work,Work,New Tag"));
    section->select(second->id());
    EXPECT_EQ(selectedTitles(), QStringList{QStringLiteral("Work")});
}

TEST_F(SidebarTagsSectionTest, followsNamesColoursAndNewTags) {
    addThree();
    open();
    click("Code");
    library.tag(QStringLiteral("Code"))->setName(QStringLiteral("Zeta"));
    addTag(QStringLiteral("Alpha"));
    settle();
    EXPECT_EQ(titles().join(QLatin1Char(',')), QStringLiteral("All Prompts,Alpha,Email,Writing,Zeta,New Tag"));
    EXPECT_EQ(selectedTitles(), QStringList{QStringLiteral("Zeta")});
}

TEST_F(SidebarTagsSectionTest, aSelectedTagThatGoesByAnotherWayLeavesAllPromptsSelected) {
    Tag* tag = addTag(QStringLiteral("Code"));
    open();
    click("Code");
    library.context().remove(tag);
    settle();
    EXPECT_EQ(section->selectedTagId(), all);
    EXPECT_EQ(told.last(), all);
    EXPECT_EQ(selectedTitles(), QStringList{QStringLiteral("All Prompts")});
}

TEST_F(SidebarTagsSectionTest, newTagCallsOnCreate) {
    open();
    click("New Tag");
    EXPECT_EQ(created, 1);
    EXPECT_EQ(section->selectedTagId(), all);
    row("New Tag")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Return);
    EXPECT_EQ(created, 2);
}

TEST_F(SidebarTagsSectionTest, thePencilOfARowEditsItsTag) {
    addThree();
    open();
    QTest::mouseClick(row("Email")->findChild<IconButton*>(), Qt::LeftButton);
    EXPECT_EQ(edited, QList<Tag*>{library.tag(QStringLiteral("Email"))});
    EXPECT_EQ(section->selectedTagId(), all);
}

TEST_F(SidebarTagsSectionTest, theArrowKeysMoveTheSelectionAndStopAtTheEnds) {
    addThree();
    open();
    row("All Prompts")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Up);
    EXPECT_EQ(selectedTitles(), QStringList{QStringLiteral("All Prompts")});
    press(Qt::Key_Down);
    EXPECT_EQ(selectedTitles(), QStringList{QStringLiteral("Code")});
    EXPECT_EQ(told.last(), library.tag(QStringLiteral("Code"))->id());
    EXPECT_TRUE(row("Code")->hasFocus());
    EXPECT_TRUE(FocusRing::isShownFor(row("Code")));
    for (int i = 0; i < 5; ++i)
        press(Qt::Key_Down);
    EXPECT_EQ(selectedTitles(), QStringList{QStringLiteral("Writing")});
    for (int i = 0; i < 5; ++i)
        press(Qt::Key_Up);
    EXPECT_EQ(selectedTitles(), QStringList{QStringLiteral("All Prompts")});
}

TEST_F(SidebarTagsSectionTest, theTabKeyStopsAtTheSelectedRowItsPencilAndNewTag) {
    addThree();
    open();
    addTag(QStringLiteral("Alpha")); // a row that is made after the others
    settle();
    click("Alpha");
    row("Alpha")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), row("Alpha")->findChild<IconButton*>());
    press(Qt::Key_Return);
    EXPECT_EQ(edited, QList<Tag*>{library.tag(QStringLiteral("Alpha"))});
    press(Qt::Key_Tab);
    EXPECT_TRUE(row("New Tag")->hasFocus());
    press(Qt::Key_Tab);
    EXPECT_TRUE(row("Alpha")->hasFocus());
}

TEST_F(SidebarTagsSectionTest, aRowThatIsMadeLaterIsReachedBeforeNewTagAndWhatFollows) {
    Button before(QStringLiteral("Before"), Button::Kind::bordered, &window);
    open();
    Button after(QStringLiteral("After"), Button::Kind::bordered, &window);
    after.move(400, 0);
    after.show();
    section->select(addTag(QStringLiteral("Alpha"))->id());
    settle();
    before.setFocus(Qt::TabFocusReason);
    press(Qt::Key_Tab);
    EXPECT_TRUE(row("Alpha")->hasFocus());
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    EXPECT_TRUE(row("New Tag")->hasFocus());
    press(Qt::Key_Tab);
    EXPECT_TRUE(after.hasFocus());
}

TEST_F(SidebarTagsSectionTest, theContextMenuHoldsEditAndDelete) {
    Tag* tag = addTag(QStringLiteral("Code"));
    open();
    const std::unique_ptr<Menu> menu(section->makeContextMenu(tag));
    EXPECT_EQ(entriesOf(*menu), (QStringList{QStringLiteral("Edit"), QStringLiteral("Delete")}));
    menu->actions().at(0)->trigger();
    EXPECT_EQ(edited, QList<Tag*>{tag});
    menu->actions().at(1)->trigger();
    EXPECT_EQ(section->pendingDeletion(), tag);
    EXPECT_TRUE(section->isShowingDeleteAlert());
}

TEST_F(SidebarTagsSectionTest, aSecondaryClickOpensTheMenuOfTheRowUnderThePointer) {
    addThree();
    open();
    const auto menuAt = [&](QWidget* target) {
        const QPoint at = target->mapTo(section, QPoint(60, 17));
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, section->mapToGlobal(at));
        QApplication::sendEvent(section, &event);
        return qobject_cast<Menu*>(QApplication::activePopupWidget());
    };
    Menu* menu = menuAt(row("Email"));
    ASSERT_TRUE(menu);
    menu->actions().at(0)->trigger();
    EXPECT_EQ(edited, QList<Tag*>{library.tag(QStringLiteral("Email"))});
    menu->close();
    EXPECT_FALSE(menuAt(row("All Prompts")));
    EXPECT_FALSE(menuAt(row("New Tag")));
}

TEST_F(SidebarTagsSectionTest, theMenuKeysOpenTheMenuOfTheRowThatHasTheKeyboard) {
    addThree();
    open();
    row("Code")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(window.windowHandle(), Qt::Key_F10, Qt::ShiftModifier);
    auto* menu = qobject_cast<Menu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    menu->actions().at(0)->trigger();
    EXPECT_EQ(edited, QList<Tag*>{library.tag(QStringLiteral("Code"))});
    menu->close();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), window.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(row("Code"), &event);
    EXPECT_TRUE(qobject_cast<Menu*>(QApplication::activePopupWidget()));
}

TEST_F(SidebarTagsSectionTest, theRowsThatAreNoTagHaveTheirSymbols) {
    const Tag* tag = addTag(QStringLiteral("Code"));
    open().select(tag->id()); // a selected row has a ground
    const QColor color = Theme::shared().color(ColorRole::text2);
    EXPECT_TRUE(showsSymbol(*row("All Prompts"), QStringLiteral("tray.fill"), 17, color));
    EXPECT_TRUE(showsSymbol(*row("New Tag"), QStringLiteral("plus"), 15, color));
}

TEST_F(SidebarTagsSectionTest, noCountOfPromptsIsShownAtATag) {
    Tag* tag = addTag(QStringLiteral("Code"));
    open();
    const QImage before = row("Code")->grab().toImage();
    addPrompt(QStringLiteral("a"), QStringLiteral("b"), {tag});
    settle();
    EXPECT_EQ(row("Code")->grab().toImage(), before);
}

TEST_F(SidebarTagsSectionTest, rowsStandAtTheirPlacesOfTheLook) {
    addThree();
    open();
    EXPECT_EQ(row("All Prompts")->geometry().size(), QSize(295, 34));
    EXPECT_EQ(row("All Prompts")->x(), 12);
    EXPECT_EQ(row("Email")->y() - row("Code")->y(), 34);
    EXPECT_EQ(row("New Tag")->y() - row("Writing")->y(), 34);
    // A heading of 16 in its padding of 20 and 6.
    EXPECT_EQ(row("All Prompts")->y(), 20 + textLineHeight(TextStyle::caption) + 6);
    EXPECT_EQ(row("Code")->y() - row("All Prompts")->y(), 34 + 20 + textLineHeight(TextStyle::caption) + 6);
}

} // namespace Quillstacks
