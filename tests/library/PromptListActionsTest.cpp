#include "FullDisk.h"
#include "interface/Menu.h"
#include "PromptListFixture.h"
#include "PromptRow.h"

namespace Quillstacks {

// Deleting

TEST_F(PromptList, theDeleteKeyAsksAndDeletesTheSelection) {
    Prompt* prompt = addPrompt(QStringLiteral("a"));
    shownView().select(prompt);
    press(Qt::Key_Delete);
    EXPECT_TRUE(view().isShowingDeleteAlert());
    EXPECT_EQ(view().pendingDeletion(), prompt);
    EXPECT_FALSE(prompt->isDeleted());
    answerAlert(QStringLiteral("Delete"));
    EXPECT_TRUE(prompt->isDeleted());
    EXPECT_EQ(view().selection(), nullptr);
    EXPECT_EQ(view().pendingDeletion(), nullptr);
    EXPECT_FALSE(view().isShowingDeleteAlert());
    made.reset(); // before its context
    library.reopen();
    EXPECT_TRUE(library.context().prompts().isEmpty());
}

TEST_F(PromptList, theAlertsCancelLeavesThePromptAndTheSelectionAsTheyWere) {
    Prompt* prompt = addPrompt(QStringLiteral("a"));
    shownView().select(prompt);
    view().askToDeleteSelection();
    answerAlert(QStringLiteral("Cancel"));
    EXPECT_FALSE(prompt->isDeleted());
    EXPECT_EQ(view().selection(), prompt);
    EXPECT_EQ(view().pendingDeletion(), nullptr);
    EXPECT_FALSE(view().isShowingDeleteAlert());
}

TEST_F(PromptList, underTheAlertTheListsKeysDoNothing) {
    Prompt* prompt = addPrompt(QStringLiteral("a"));
    addPrompt(QStringLiteral("b"));
    shownView().select(prompt);
    view().askToDeleteSelection();
    press(Qt::Key_N, Qt::ControlModifier);
    press(Qt::Key_P);
    press(Qt::Key_Up);
    EXPECT_FALSE(view().isPresentingEditor());
    EXPECT_EQ(view().selection(), prompt);
    press(Qt::Key_Escape);
    EXPECT_FALSE(view().isShowingDeleteAlert());
    EXPECT_FALSE(prompt->isDeleted());
    press(Qt::Key_Up);
    EXPECT_NE(view().selection(), prompt);
}

TEST_F(PromptList, deletingAnotherPromptLeavesTheSelection) {
    Prompt* other = addPrompt(QStringLiteral("other"));
    Prompt* selected = addPrompt(QStringLiteral("selected"));
    shownView().select(selected);
    view().askToDelete(other);
    EXPECT_EQ(view().pendingDeletion(), other);
    view().confirmDeletion();
    EXPECT_TRUE(other->isDeleted());
    EXPECT_EQ(view().selection(), selected);
    EXPECT_FALSE(view().isShowingDeleteAlert());
}

TEST_F(PromptList, withoutASelectionDeleteDoesNothingAndItsButtonIsDisabled) {
    Prompt* prompt = addPrompt(QStringLiteral("a"));
    shownView();
    press(Qt::Key_Delete);
    EXPECT_FALSE(view().isShowingDeleteAlert());
    EXPECT_FALSE(visibleButton(view(), QStringLiteral("Delete"))->isEnabled());
    view().select(prompt);
    EXPECT_TRUE(visibleButton(view(), QStringLiteral("Delete"))->isEnabled());
}

TEST_F(PromptList, aFailedSaveOfADeletionIsIgnoredAndTheChangeStays) {
    Prompt* prompt = addPrompt(QStringLiteral("a"));
    const LogCapture log;
    view().askToDelete(prompt);
    {
        const FullDisk disk;
        view().confirmDeletion();
    }
    EXPECT_TRUE(prompt->isDeleted());
    EXPECT_TRUE(library.context().hasChanges());
    EXPECT_TRUE(log.lines().isEmpty());
}

// Copying, pinning, the menu

TEST_F(PromptList, copyPutsTheBodyWithItsPlaceholdersAsTheyStand) {
    Prompt* prompt = addPrompt(QStringLiteral("a"), QStringLiteral("Explain {{topic}}"));
    view().copy(prompt);
    EXPECT_EQ(clipboard(), QStringLiteral("Explain {{topic}}"));
    EXPECT_EQ(toast(), QStringLiteral("Copied to clipboard"));
    EXPECT_TRUE(ToastManager::shared().isShowing());
}

TEST_F(PromptList, pinningIsSavedSaysSoAndMovesTheRow) {
    Prompt* lower = addPrompt(QStringLiteral("lower"));
    addPrompt(QStringLiteral("upper"));
    view().togglePin(lower);
    EXPECT_EQ(toast(), QStringLiteral("Pinned"));
    EXPECT_FALSE(library.context().hasChanges());
    EXPECT_EQ(visibleTitles().first(), QStringLiteral("lower"));
    view().togglePin(lower);
    EXPECT_EQ(toast(), QStringLiteral("Unpinned"));
    EXPECT_EQ(visibleTitles().first(), QStringLiteral("upper"));
}

TEST_F(PromptList, aPinnedRowSlidesToTheTopAndThoseItPassesMakeRoom) {
    Prompt* first = addPrompt(QStringLiteral("first"));
    addPrompt(QStringLiteral("second"));
    Prompt* third = addPrompt(QStringLiteral("third"));
    shownView();
    ASSERT_EQ(visibleTitles(),
              (QStringList{QStringLiteral("third"), QStringLiteral("second"), QStringLiteral("first")}));
    const int lowest = rows().row(2)->y();
    view().togglePin(first);
    library.context().processPendingChanges();
    EXPECT_EQ(visibleTitles().front(), QStringLiteral("first"));
    EXPECT_EQ(static_cast<PromptRow*>(rows().row(0))->prompt(), first);
    EXPECT_EQ(rows().row(0)->y(), lowest);
    EXPECT_EQ(static_cast<PromptRow*>(rows().row(1))->prompt(), third);
    EXPECT_EQ(rows().row(1)->y(), 0);
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return rows().row(0)->y() == 0 && rows().row(1)->y() == rows().rowGeometry(1).top(); }, 3000));
}

TEST_F(PromptList, ofADeletedPromptTheGapCloses) {
    addPrompt(QStringLiteral("lower"));
    Prompt* upper = addPrompt(QStringLiteral("upper"));
    shownView();
    const int below = rows().row(1)->y();
    view().askToDelete(upper);
    view().confirmDeletion();
    library.context().processPendingChanges();
    ASSERT_EQ(rows().count(), 1);
    EXPECT_EQ(rows().row(0)->y(), below);
    EXPECT_TRUE(QTest::qWaitFor([this] { return rows().row(0)->y() == 0; }, 3000));
}

TEST_F(PromptList, whatASearchOrATagLeavesStandsAtItsPlaceAtOnce) {
    addPrompt(QStringLiteral("apple"));
    addPrompt(QStringLiteral("pear"));
    shownView().setSearchText(QStringLiteral("apple"));
    ASSERT_EQ(rows().count(), 1);
    EXPECT_EQ(rows().row(0)->y(), 0);
    view().setSearchText(QString());
    ASSERT_EQ(rows().count(), 2);
    EXPECT_EQ(rows().row(1)->y(), rows().rowGeometry(1).top());
}

TEST_F(PromptList, aFailedSaveOfAPinIsIgnoredAndTheChangeStays) {
    Prompt* prompt = addPrompt(QStringLiteral("a"));
    const LogCapture log;
    {
        const FullDisk disk;
        view().togglePin(prompt);
    }
    EXPECT_TRUE(prompt->isPinned());
    EXPECT_TRUE(library.context().hasChanges());
    EXPECT_EQ(toast(), QStringLiteral("Pinned"));
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(PromptList, theContextMenuHoldsEditPinAndDelete) {
    Prompt* prompt = addPrompt(QStringLiteral("a"));
    const auto titles = [&] {
        const std::unique_ptr<Menu> menu(view().makeContextMenu(prompt));
        QStringList result;
        for (const QAction* action : menu->actions())
            result += action->text();
        return result;
    };
    EXPECT_EQ(titles(), (QStringList{QStringLiteral("Edit"), QStringLiteral("Pin to Top"), QStringLiteral("Delete")}));
    prompt->togglePin();
    EXPECT_EQ(titles().at(1), QStringLiteral("Unpin from Top"));
}

TEST_F(PromptList, theMenusEntriesActOnTheirRowNotOnTheSelection) {
    Prompt* prompt = addPrompt(QStringLiteral("row"));
    Prompt* selected = addPrompt(QStringLiteral("selected"));
    shownView().select(selected);
    const std::unique_ptr<Menu> menu(view().makeContextMenu(prompt));
    menu->actions().at(1)->trigger();
    EXPECT_TRUE(prompt->isPinned());
    menu->actions().at(2)->trigger();
    EXPECT_EQ(view().pendingDeletion(), prompt);
    EXPECT_EQ(view().selection(), selected);
    view().cancelDeletion();
    menu->actions().at(0)->trigger();
    EXPECT_TRUE(view().isPresentingEditor());
    EXPECT_EQ(view().selection(), prompt);
}

TEST_F(PromptList, theMenuOfTheSelectionIsReachedByKeyboard) {
    shownView().select(addPrompt(QStringLiteral("a")));
    library.context().processPendingChanges();
    press(Qt::Key_F10, Qt::ShiftModifier);
    auto* menu = view().findChild<Menu*>();
    ASSERT_TRUE(menu);
    EXPECT_TRUE(menu->isVisible());
    menu->close();
}

// The mouse

TEST_F(PromptList, aRightClickShowsTheRowsMenuAndBetweenRowsNone) {
    addPrompt(QStringLiteral("lower"));
    Prompt* upper = addPrompt(QStringLiteral("upper"));
    shownView();
    library.context().processPendingChanges();
    const QRect first = rows().rowGeometry(0);
    rightClick(QPoint(first.center().x(), first.bottom() + 1)); // in the gap of two
    EXPECT_FALSE(view().findChild<Menu*>());
    rightClick(first.center());
    auto* menu = view().findChild<Menu*>();
    ASSERT_TRUE(menu);
    menu->actions().at(1)->trigger();
    EXPECT_TRUE(upper->isPinned());
    menu->close();
}

TEST_F(PromptList, theHeadersButtonsMakeAndDelete) {
    shownView().select(addPrompt(QStringLiteral("a")));
    Button* remove = visibleButton(view(), QStringLiteral("Delete"));
    EXPECT_EQ(remove->toolTip(), QStringLiteral("Delete Selected Prompt"));
    QTest::mouseClick(remove, Qt::LeftButton);
    EXPECT_TRUE(view().isShowingDeleteAlert());
    EXPECT_TRUE(texts(*Sheet::top(&view())).contains(QStringLiteral("Delete Prompt?")));
    EXPECT_TRUE(texts(*Sheet::top(&view())).contains(QStringLiteral("This action cannot be undone.")));
    view().cancelDeletion();
    QTest::mouseClick(visibleButton(view(), QStringLiteral("New Prompt")), Qt::LeftButton);
    EXPECT_TRUE(view().isPresentingEditor());
}

} // namespace Quillstacks
