#include "library/PromptListView.h"

#include "FullDisk.h"
#include "interface/IconButton.h"
#include "interface/LazyList.h"
#include "interface/Menu.h"
#include "interface/Sheet.h"
#include "library/PromptEditorView.h"
#include "LibraryFixture.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QVBoxLayout>

namespace Quillstacks {
namespace {

class PromptList : public LibraryFixture {
protected:
    PromptListView& view() {
        if (!made)
            made = std::make_unique<PromptListView>(library.context());
        return *made;
    }
    PromptListView& shownView() {
        show(view(), QSize(960, 720));
        view().setFocus();
        return view();
    }
    [[nodiscard]] QStringList visibleTitles() { return titlesOf(view().filteredPrompts()); }
    LazyList& rows() { return *view().findChild<LazyList*>(); }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus ? focus : &view(), static_cast<Qt::Key>(key), modifiers);
    }
    /// The texts that can be seen, but for those of buttons.
    QStringList texts(const QWidget& within) {
        QStringList result;
        for (const QLabel* label : within.findChildren<QLabel*>())
            if (label->isVisibleTo(&within))
                result += label->text();
        return result;
    }
    void rightClick(const QPoint& at) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, rows().viewport()->mapToGlobal(at));
        QApplication::sendEvent(rows().viewport(), &event);
    }
    void answerAlert(const QString& title) {
        Sheet* sheet = Sheet::top(&view());
        ASSERT_TRUE(sheet);
        Button* button = visibleButton(*sheet, title);
        ASSERT_TRUE(button);
        button->click();
    }

    std::unique_ptr<PromptListView> made;
};

} // namespace

// The visible list

TEST_F(PromptList, showsAllPromptsTheLatestEditedFirst) {
    addPrompt(QStringLiteral("old"));
    addPrompt(QStringLiteral("new"));
    EXPECT_EQ(visibleTitles(), (QStringList{QStringLiteral("new"), QStringLiteral("old")}));
    EXPECT_EQ(view().countText(), QString());
}

TEST_F(PromptList, aSearchOfOnlySpacesShowsAllPromptsAndNoCount) {
    addPrompt(QStringLiteral("a"));
    addPrompt(QStringLiteral("b"));
    view().setSearchText(QStringLiteral("   "));
    EXPECT_EQ(visibleTitles().size(), 2);
    EXPECT_EQ(view().countText(), QString());
}

TEST_F(PromptList, aSearchForATagsNameFindsItsPromptsEvenIfNeitherTitleNorBodyHoldsTheText) {
    Tag* tag = addTag(QStringLiteral("Research"));
    addPrompt(QStringLiteral("tagged"), QStringLiteral("x"), {tag});
    addPrompt(QStringLiteral("other"), QStringLiteral("x"));
    view().setSearchText(QStringLiteral("research"));
    EXPECT_EQ(visibleTitles(), QStringList{QStringLiteral("tagged")});
}

TEST_F(PromptList, aSearchInMixedCaseFindsTheSameLettersInLowerCaseInATitle) {
    addPrompt(QStringLiteral("release notes"));
    addPrompt(QStringLiteral("other"));
    view().setSearchText(QStringLiteral("ReLEase"));
    EXPECT_EQ(visibleTitles(), QStringList{QStringLiteral("release notes")});
}

TEST_F(PromptList, aPinnedPromptStaysAboveAMoreRecentlyEditedUnpinnedOne) {
    Prompt* pinned = addPrompt(QStringLiteral("pinned"));
    addPrompt(QStringLiteral("newer"));
    pinned->togglePin();
    EXPECT_EQ(visibleTitles(), (QStringList{QStringLiteral("pinned"), QStringLiteral("newer")}));
}

TEST_F(PromptList, amongPinnedPromptsTheOnePinnedLastComesFirstWhateverTheirEditTimes) {
    Prompt* first = addPrompt(QStringLiteral("pinned first"));
    Prompt* last = addPrompt(QStringLiteral("pinned last"));
    first->togglePin();
    clock.advance(std::chrono::seconds(1));
    last->togglePin();
    clock.advance(std::chrono::seconds(1));
    first->setUpdatedAt(dateFromMicroseconds(1'900'000'000'000'000));
    EXPECT_EQ(visibleTitles(), (QStringList{QStringLiteral("pinned last"), QStringLiteral("pinned first")}));
}

TEST_F(PromptList, aTagShowsItsPromptsAndTheAllPromptsEntryShowsAll) {
    Tag* tag = addTag(QStringLiteral("Work"));
    addPrompt(QStringLiteral("tagged"), QStringLiteral("x"), {tag});
    addPrompt(QStringLiteral("untagged"));
    view().setSelectedTagId(tag->id());
    EXPECT_EQ(visibleTitles(), QStringList{QStringLiteral("tagged")});
    view().setSelectedTagId(Uuid());
    EXPECT_EQ(visibleTitles().size(), 2);
}

TEST_F(PromptList, theCountIsShownWhileAFilterIsActiveAndSomethingPasses) {
    Tag* tag = addTag(QStringLiteral("Work"));
    addPrompt(QStringLiteral("alpha"), QStringLiteral("x"), {tag});
    addPrompt(QStringLiteral("alphabet"), QStringLiteral("x"));
    view().setSearchText(QStringLiteral("alpha"));
    EXPECT_EQ(view().countText(), QStringLiteral("2 prompts"));
    view().setSelectedTagId(tag->id());
    EXPECT_EQ(view().countText(), QStringLiteral("1 prompt"));
    view().setSearchText(QStringLiteral("nothing holds this"));
    EXPECT_EQ(view().countText(), QString());
    view().setSearchText(QString());
    EXPECT_EQ(view().countText(), QStringLiteral("1 prompt"));
    view().setSelectedTagId(Uuid());
    EXPECT_EQ(view().countText(), QString());
}

TEST_F(PromptList, followsChangesOfTheLibraryOnTheNextTurn) {
    view();
    EXPECT_EQ(rows().count(), 0);
    library.addPrompt(QStringLiteral("new"));
    EXPECT_EQ(rows().count(), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(rows().count(), 1);
}

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

// Keys

TEST_F(PromptList, thePKeyAndCtrlNMakeANewPrompt) {
    shownView();
    press(Qt::Key_P);
    EXPECT_TRUE(view().isPresentingEditor());
    Sheet::top(&view())->dismiss();
    EXPECT_FALSE(view().isPresentingEditor());
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_TRUE(view().isPresentingEditor());
}

TEST_F(PromptList, eAndReturnOpenTheSelectionAndPassTheKeyOnWithoutOne) {
    Prompt* prompt = addPrompt(QStringLiteral("a"));
    shownView();
    for (const Qt::Key key : {Qt::Key_E, Qt::Key_Return, Qt::Key_Enter}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&view(), &event);
        EXPECT_FALSE(event.isAccepted());
        EXPECT_FALSE(view().isPresentingEditor());
    }
    view().select(prompt);
    for (const Qt::Key key : {Qt::Key_E, Qt::Key_Return, Qt::Key_Enter}) {
        press(key);
        EXPECT_TRUE(view().isPresentingEditor());
        Sheet::top(&view())->dismiss();
    }
}

TEST_F(PromptList, downOnTheLastRowStaysThere) {
    Prompt* last = addPrompt(QStringLiteral("last"));
    Prompt* first = addPrompt(QStringLiteral("first"));
    shownView();
    press(Qt::Key_Down);
    EXPECT_EQ(view().selection(), first);
    press(Qt::Key_Down);
    EXPECT_EQ(view().selection(), last);
    press(Qt::Key_Down);
    EXPECT_EQ(view().selection(), last);
}

TEST_F(PromptList, upOnTheFirstRowStaysThere) {
    addPrompt(QStringLiteral("last"));
    Prompt* first = addPrompt(QStringLiteral("first"));
    shownView().select(first);
    press(Qt::Key_Up);
    EXPECT_EQ(view().selection(), first);
}

TEST_F(PromptList, withoutASelectionInSightEitherDirectionSelectsTheFirstRow) {
    Prompt* hidden = addPrompt(QStringLiteral("hidden"));
    addPrompt(QStringLiteral("shown 2"));
    Prompt* first = addPrompt(QStringLiteral("shown 1"));
    shownView();
    press(Qt::Key_Up);
    EXPECT_EQ(view().selection(), first);
    view().select(hidden);
    view().setSearchText(QStringLiteral("shown"));
    press(Qt::Key_Up);
    EXPECT_EQ(view().selection(), first);
    view().select(hidden);
    press(Qt::Key_Down);
    EXPECT_EQ(view().selection(), first);
}

TEST_F(PromptList, theArrowsDoNothingInAnEmptyList) {
    shownView();
    press(Qt::Key_Down);
    press(Qt::Key_Up);
    EXPECT_EQ(view().selection(), nullptr);
}

TEST_F(PromptList, theSelectionIsScrolledIntoSight) {
    for (int i = 0; i < 30; ++i)
        addPrompt(QStringLiteral("prompt %1").arg(i));
    shownView();
    for (int i = 0; i < 20; ++i)
        press(Qt::Key_Down);
    const QWidget* row = rows().row(19);
    ASSERT_TRUE(row);
    EXPECT_TRUE(rows().viewport()->rect().contains(row->geometry()));
}

TEST_F(PromptList, thePlainKeysArePassedOnWhileATextFieldHasTheKeyboard) {
    Prompt* prompt = addPrompt(QStringLiteral("a"));
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* field = new QLineEdit(&window);
    layout->addWidget(field);
    made = std::make_unique<PromptListView>(library.context());
    layout->addWidget(made.get());
    show(window, QSize(960, 720));
    view().select(prompt);
    field->setFocus();
    for (const Qt::Key key : {Qt::Key_P, Qt::Key_E, Qt::Key_Return, Qt::Key_Up, Qt::Key_Down}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&view(), &event);
        EXPECT_FALSE(event.isAccepted());
    }
    EXPECT_FALSE(view().isPresentingEditor());
    EXPECT_EQ(view().selection(), prompt);
    made->setParent(nullptr);
}

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

// The empty state

TEST_F(PromptList, theEmptyStateStandsInForAnEmptyLibraryAndForASearchWithoutHits) {
    const QString create = QStringLiteral("Create a Prompt");
    EXPECT_TRUE(visibleButton(view(), create));
    addPrompt(QStringLiteral("a"));
    library.context().processPendingChanges();
    EXPECT_FALSE(visibleButton(view(), create));
    view().setSearchText(QStringLiteral("no such text"));
    EXPECT_TRUE(visibleButton(view(), create));
    view().setSearchText(QString());
    EXPECT_FALSE(visibleButton(view(), create));
}

TEST_F(PromptList, itsButtonMakesANewPrompt) {
    shownView();
    visibleButton(view(), QStringLiteral("Create a Prompt"))->click();
    EXPECT_TRUE(view().isPresentingEditor());
}

TEST_F(PromptList, everyControlHasAName) {
    addPrompt(QStringLiteral("a"));
    shownView();
    for (const QAbstractButton* button : view().findChildren<QAbstractButton*>())
        EXPECT_FALSE(button->accessibleName().isEmpty() && button->text().isEmpty());
    EXPECT_EQ(rows().row(0)->accessibleName(), QStringLiteral("a"));
    EXPECT_EQ(rows().accessibleName(), QStringLiteral("Prompts"));
}

// The keyboard

TEST_F(PromptList, aSecondSpaceOnTheStarOfAPromptThatMovedAwayPinsNoOther) {
    Prompt* lower = addPrompt(QStringLiteral("lower"));
    Prompt* upper = addPrompt(QStringLiteral("upper"));
    shownView().select(lower);
    library.context().processPendingChanges();
    named<IconButton>(*rows().row(1), QStringLiteral("Pin prompt to top"))->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    QCoreApplication::processEvents();
    EXPECT_TRUE(lower->isPinned());
    EXPECT_TRUE(rows().hasFocus());
    press(Qt::Key_Space);
    EXPECT_FALSE(upper->isPinned());
    EXPECT_TRUE(lower->isPinned());
}

TEST_F(PromptList, afterAnEditorThatThePencilOpenedTheListHasTheKeyboard) {
    Prompt* lower = addPrompt(QStringLiteral("lower"));
    addPrompt(QStringLiteral("upper"));
    shownView().select(lower);
    for (const bool deletes : {false, true}) {
        library.context().processPendingChanges();
        const auto index = static_cast<int>(view().filteredPrompts().indexOf(lower));
        named<IconButton>(*rows().row(index), QStringLiteral("Edit"))->setFocus(Qt::TabFocusReason);
        press(Qt::Key_Space);
        auto* editor = qobject_cast<PromptEditorView*>(Sheet::top(&view())->content());
        ASSERT_TRUE(editor);
        if (deletes)
            editor->deletePrompt();
        else
            editor->savePrompt();
        EXPECT_TRUE(rows().hasFocus());
    }
}

TEST_F(PromptList, aKeyThatIsHeldOpensNoEditor) {
    shownView().select(addPrompt(QStringLiteral("a")));
    for (const Qt::Key key : {Qt::Key_P, Qt::Key_E, Qt::Key_Return}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(&rows(), &event);
        EXPECT_FALSE(view().isPresentingEditor());
    }
}

TEST_F(PromptList, theMenuKeyShowsTheMenuOfTheSelection) {
    shownView().select(addPrompt(QStringLiteral("a")));
    library.context().processPendingChanges();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), view().mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&view(), &event);
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

// Texts and places

TEST_F(PromptList, theHeaderShowsItsTitleAndTheCount) {
    addPrompt(QStringLiteral("alpha"));
    shownView();
    EXPECT_EQ(texts(view()), QStringList{QStringLiteral("Prompts")});
    view().setSearchText(QStringLiteral("alpha"));
    EXPECT_EQ(texts(view()), (QStringList{QStringLiteral("Prompts"), QStringLiteral("1 prompt")}));
}

TEST_F(PromptList, theEmptyStateSaysWhatToDo) {
    EXPECT_TRUE(texts(view()).contains(QStringLiteral("No prompts yet")));
    EXPECT_TRUE(texts(view()).contains(QStringLiteral(
        "Create your first prompt to start building your library. You can add tags and versions anytime.")));
}

TEST_F(PromptList, aNewSearchStartsAtTheTop) {
    for (int i = 0; i < 40; ++i)
        library.addPrompt(QString::number(i), QStringLiteral("body"), {});
    library.context().processPendingChanges();
    shownView();
    rows().verticalScrollBar()->setValue(1500);
    EXPECT_EQ(rows().verticalScrollBar()->value(), 1500);
    view().setSearchText(QStringLiteral("body"));
    EXPECT_EQ(rows().verticalScrollBar()->value(), 0);
}

TEST_F(PromptList, inANarrowWindowTheHeadersButtonsGiveWayToItsTitle) {
    view();
    show(view(), QSize(250, 500));
    for (const QLabel* label : view().findChildren<QLabel*>()) {
        if (label->text() == QStringLiteral("Prompts")) {
            EXPECT_GE(label->width(), label->sizeHint().width());
        }
    }
    EXPECT_LE(visibleButton(view(), QStringLiteral("Delete"))->geometry().right(), 250);
}

} // namespace Quillstacks
