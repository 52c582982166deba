#include "interface/IconButton.h"
#include "interface/Menu.h"
#include "library/PromptEditorView.h"
#include "PromptListFixture.h"

#include <QLineEdit>
#include <QVBoxLayout>

namespace Quillstacks {

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

TEST_F(PromptList, theTabKeyReachesTheControlsOfTheWindowBetweenItsButtonsAndTheRows) {
    addPrompt(QStringLiteral("a"));
    const auto add = [this](const char* help) {
        auto* item = new IconButton(QStringLiteral("gear"), QLatin1String(help));
        view().addWindowItem(item);
        return item;
    };
    const IconButton* first = add("First");
    const IconButton* second = add("Second");
    shownView();
    visibleButton(view(), QStringLiteral("New Prompt"))->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Tab); // "Delete" is not to be had without a selection
    EXPECT_TRUE(first->hasFocus());
    press(Qt::Key_Tab);
    EXPECT_TRUE(second->hasFocus());
    press(Qt::Key_Tab);
    EXPECT_TRUE(rows().hasFocus());
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

} // namespace Quillstacks
