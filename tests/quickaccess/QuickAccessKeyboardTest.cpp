// The four keys, the selection and the focus of the search field.
#include "QuickAccessFixture.h"

#include "interface/LazyList.h"
#include "quickaccess/FillVariablesToggle.h"

#include <QKeyEvent>
#include <QScrollBar>

#include <utility>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class QuickAccessKeyboard : public QuickAccessFixture {
protected:
    void addThree() {
        for (const char* title : {"one", "two", "three"})
            add(QString::fromLatin1(title), QStringLiteral("body of ") + QString::fromLatin1(title));
    }
    [[nodiscard]] bool isSelected(int index) const {
        const auto* row = view->resultList()->row(index);
        return row && row->isSelected();
    }
};

TEST_F(QuickAccessKeyboard, itOpensWithAnEmptyFieldTheFirstRowSelectedAndTheKeyboardInTheField) {
    addThree();
    view = new QuickAccessView(context, [] {});
    panel.setRootView(view);
    view->appear();
    EXPECT_FALSE(view->isSearchFocused()); // on the next turn only
    show();
    EXPECT_EQ(view->searchText(), QString());
    EXPECT_EQ(view->selectedIndex(), 0);
    EXPECT_TRUE(isSelected(0));
    EXPECT_TRUE(view->isSearchFocused());
    EXPECT_TRUE(field()->hasFocus());
}

TEST_F(QuickAccessKeyboard, theArrowsMoveTheSelection) {
    addThree();
    show();
    press(Qt::Key_Down);
    EXPECT_EQ(view->selectedIndex(), 1);
    EXPECT_TRUE(isSelected(1));
    EXPECT_FALSE(isSelected(0));
    press(Qt::Key_Up);
    EXPECT_EQ(view->selectedIndex(), 0);
}

TEST_F(QuickAccessKeyboard, upOnTheFirstRowAndDownOnTheLastLeaveTheSelectionWhereItIs) {
    addThree();
    show();
    press(Qt::Key_Up);
    EXPECT_EQ(view->selectedIndex(), 0);
    for (int i = 0; i < 5; ++i)
        press(Qt::Key_Down);
    EXPECT_EQ(view->selectedIndex(), 2);
}

TEST_F(QuickAccessKeyboard, theArrowsDoNotReachTheField) {
    addThree();
    show();
    type(QStringLiteral("o"));
    field()->setCursorPosition(1);
    ASSERT_EQ(view->results().size(), 3); // all bodies have an "o"
    int expected = 0;
    for (const auto& [key, step] :
         {std::pair(Qt::Key_Down, 1), std::pair(Qt::Key_Down, 1), std::pair(Qt::Key_Up, -1)}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        EXPECT_TRUE(QApplication::sendEvent(field(), &event));
        EXPECT_TRUE(event.isAccepted());
        expected += step;
        EXPECT_EQ(view->selectedIndex(), expected);
        EXPECT_EQ(field()->cursorPosition(), 1);
    }
}

TEST_F(QuickAccessKeyboard, withNoResultsTheArrowsAndReturnDoNothing) {
    addThree();
    show();
    type(QStringLiteral("zzz"));
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Return})
        press(key);
    EXPECT_EQ(view->selectedIndex(), 0);
    EXPECT_EQ(closings, 0);
    EXPECT_EQ(clipboard(), QString());
    EXPECT_EQ(view->searchText(), QStringLiteral("zzz"));
}

TEST_F(QuickAccessKeyboard, aChangeOfTheSearchTextPutsTheSelectionBackOnRowZero) {
    addThree();
    show();
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    type(QStringLiteral("o"));
    EXPECT_EQ(view->selectedIndex(), 0);
    EXPECT_TRUE(isSelected(0));
}

TEST_F(QuickAccessKeyboard, returnChoosesTheSelectedRow) {
    addThree();
    show();
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(clipboard(), QStringLiteral("body of two"));
    EXPECT_EQ(closings, 1);
}

TEST_F(QuickAccessKeyboard, theEnterKeyOfTheKeypadChoosesToo) {
    addThree();
    show();
    QTest::keyClick(field(), Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(clipboard(), QStringLiteral("body of three"));
}

TEST_F(QuickAccessKeyboard, aReturnWithTheSelectionOutsideTheResultsDoesNothing) {
    Prompt* old = add(QStringLiteral("old"));
    add(QStringLiteral("new"));
    show();
    press(Qt::Key_Down);
    context.remove(old);
    press(Qt::Key_Return);
    EXPECT_EQ(view->selectedIndex(), 1);
    EXPECT_EQ(closings, 0);
    EXPECT_EQ(clipboard(), QString());
}

TEST_F(QuickAccessKeyboard, escapeClosesAtOnceWhateverTheFieldHolds) {
    addThree();
    show();
    type(QStringLiteral("tw"));
    press(Qt::Key_Escape);
    EXPECT_EQ(closings, 1);
    EXPECT_EQ(view->searchText(), QString());
    EXPECT_EQ(view->selectedIndex(), 0);
    EXPECT_EQ(clipboard(), QString());
}

TEST_F(QuickAccessKeyboard, theKeysWorkWhileTheToggleHasTheKeyboard) {
    addThree();
    show();
    view->toggle()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(view->toggle(), Qt::Key_Down);
    EXPECT_EQ(view->selectedIndex(), 1);
    QTest::keyClick(view->toggle(), Qt::Key_Return);
    EXPECT_EQ(clipboard(), QStringLiteral("body of two"));
}

TEST_F(QuickAccessKeyboard, theFieldTakesTheKeyboardBackAfterATenthOfASecond) {
    addThree();
    show();
    view->toggle()->setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(view->isSearchFocused());
    clock.advance(99ms);
    EXPECT_FALSE(field()->hasFocus());
    clock.advance(1ms);
    EXPECT_TRUE(view->isSearchFocused());
    EXPECT_TRUE(field()->hasFocus());
}

TEST_F(QuickAccessKeyboard, underASheetTheFlagComesBackAndTheKeyboardStaysWithTheSheet) {
    add(QStringLiteral("letter"), QStringLiteral("{name}"));
    show();
    press(Qt::Key_Return);
    ASSERT_TRUE(fillIn());
    clock.advance(100ms);
    clock.advance(100ms);
    EXPECT_TRUE(view->isSearchFocused());
    EXPECT_FALSE(field()->hasFocus());
    EXPECT_TRUE(fillIn()->isAncestorOf(QApplication::focusWidget()));
    fillIn()->cancel();
    EXPECT_TRUE(field()->hasFocus());
    EXPECT_TRUE(view->isSearchFocused());
}

TEST_F(QuickAccessKeyboard, aSheetThatTheToggleOpenedGivesTheKeyboardToTheSearchField) {
    add(QStringLiteral("letter"), QStringLiteral("{name}"));
    show();
    QTest::keyClick(field(), Qt::Key_Tab);
    ASSERT_TRUE(view->toggle()->hasFocus());
    QTest::keyClick(view->toggle(), Qt::Key_Return);
    ASSERT_TRUE(fillIn());
    clock.advance(200ms);
    fillIn()->cancel();
    EXPECT_TRUE(view->isSearchFocused());
    EXPECT_TRUE(field()->hasFocus());
}

TEST_F(QuickAccessKeyboard, assistiveToolsHearInTheFieldWhichRowTheArrowsCameTo) {
    addThree();
    show();
    EXPECT_EQ(field()->accessibleDescription(), QStringLiteral("three"));
    press(Qt::Key_Down);
    EXPECT_EQ(field()->accessibleDescription(), QStringLiteral("two"));
    type(QStringLiteral("o"));
    EXPECT_EQ(field()->accessibleDescription(), QStringLiteral("three"));
    type(QStringLiteral("zzz"));
    EXPECT_EQ(field()->accessibleDescription(), QString());
}

TEST_F(QuickAccessKeyboard, rowsAreMeasuredAtTheirWidthBeforeTheFirstShow) {
    addThree();
    view = new QuickAccessView(context, [] {});
    panel.setRootView(view);
    panel.resize(712, 552);
    view->setGeometry(panel.rect());
    view->appear();
    const QRect before = view->resultList()->list()->rowGeometry(2);
    panel.show();
    QTest::qWait(0);
    EXPECT_EQ(before, view->resultList()->list()->rowGeometry(2));
    EXPECT_EQ(before.width(), 680 - 2 - 16);
}

TEST_F(QuickAccessKeyboard, theListFollowsTheSelectionIntoTheMiddle) {
    for (int i = 0; i < 60; ++i)
        add(QStringLiteral("Prompt %1").arg(i), QStringLiteral("body"));
    show();
    LazyList* list = view->resultList()->list();
    for (int i = 0; i < 30; ++i)
        press(Qt::Key_Down);
    const auto isCentred = [&] {
        const int middle = list->rowGeometry(30).center().y() - list->verticalScrollBar()->value();
        return std::abs(middle - list->viewport()->height() / 2) <= 1;
    };
    EXPECT_FALSE(isCentred()); // it moves there, and does not jump
    EXPECT_TRUE(QTest::qWaitFor(isCentred, 3000));
    EXPECT_TRUE(isSelected(30));
}

TEST_F(QuickAccessKeyboard, aSearchShowsTheListFromItsTop) {
    for (int i = 0; i < 60; ++i)
        add(QStringLiteral("Prompt %1").arg(i), QStringLiteral("body"));
    show();
    LazyList* list = view->resultList()->list();
    list->verticalScrollBar()->setValue(900);
    type(QStringLiteral("p"));
    EXPECT_EQ(list->verticalScrollBar()->value(), 0);
}

TEST_F(QuickAccessKeyboard, onlyRowsThatCanBeSeenExist) {
    for (int i = 0; i < 500; ++i)
        add(QStringLiteral("Prompt %1").arg(i), QStringLiteral("body"));
    show();
    EXPECT_LT(view->findChildren<QuickAccessRow*>().size(), 30);
}

TEST_F(QuickAccessKeyboard, theClearButtonShowsWhileThereIsTextAndEmptiesTheField) {
    addThree();
    show();
    auto* clear = view->findChild<QWidget*>(QStringLiteral("clearSearchButton"));
    ASSERT_TRUE(clear);
    EXPECT_FALSE(clear->isVisible());
    type(QStringLiteral("tw"));
    ASSERT_TRUE(clear->isVisible());
    press(Qt::Key_Down);
    QTest::mouseClick(clear, Qt::LeftButton);
    EXPECT_EQ(view->searchText(), QString());
    EXPECT_EQ(field()->text(), QString());
    EXPECT_EQ(view->selectedIndex(), 0);
    EXPECT_FALSE(clear->isVisible());
    EXPECT_EQ(closings, 0);
}

} // namespace
} // namespace Quillstacks
