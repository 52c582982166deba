// Choosing a row: copying, the fill-in sheet, and the toggle.
#include "QuickAccessFixture.h"

#include "quickaccess/FillVariablesToggle.h"

#include <QSignalSpy>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class QuickAccessCopy : public QuickAccessFixture {
protected:
    void clickRow(int index) {
        auto* row = view->resultList()->row(index);
        ASSERT_TRUE(row);
        QTest::mouseClick(row, Qt::LeftButton);
    }
};

TEST_F(QuickAccessCopy, copyingPutsTheTextOnTheClipboardTellsItAndCloses) {
    add(QStringLiteral("Plain"), QStringLiteral("  no variables\n"));
    show();
    press(Qt::Key_Return);
    EXPECT_EQ(clipboard(), QStringLiteral("  no variables\n"));
    EXPECT_EQ(ToastManager::shared().message(), QStringLiteral("Copied \"Plain\" to clipboard"));
    EXPECT_TRUE(ToastManager::shared().isShowing());
    EXPECT_EQ(closings, 1);
    clock.advance(1999ms);
    EXPECT_TRUE(ToastManager::shared().isShowing());
    clock.advance(1ms);
    EXPECT_FALSE(ToastManager::shared().isShowing());
}

TEST_F(QuickAccessCopy, theStepsComeInTheirOrder) {
    add(QStringLiteral("letter b"), QStringLiteral("Dear {name}"));
    add(QStringLiteral("letter a"), QStringLiteral("Dear {name}"));
    show();
    type(QStringLiteral("let"));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    ASSERT_TRUE(fillIn());
    fillIn()->setVariableValue(QStringLiteral("name"), QStringLiteral("Ada"));
    FakeDesktop::shared().calls.clear();
    ToastManager::shared().show(QStringLiteral("earlier"), 0.1);
    // At each step that can be heard: what was done by then.
    QStringList steps;
    const auto note = [&](const char* step) {
        QStringList done{QString::fromLatin1(step)};
        done << (clipboard() == QStringLiteral("Dear Ada") ? QStringLiteral("clipboard") : QString())
             << (ToastManager::shared().message().startsWith(QStringLiteral("Copied")) ? QStringLiteral("toast")
                                                                                       : QString())
             << (view->showVariableSubstitution() ? QString() : QStringLiteral("sheet"))
             << (view->pendingPrompt() ? QString() : QStringLiteral("pending"))
             << (view->searchText().isEmpty() ? QStringLiteral("search") : QString())
             << (view->selectedIndex() == 0 ? QStringLiteral("selection") : QString());
        done.removeAll(QString());
        steps << done.join(QLatin1Char(' '));
    };
    QObject::connect(&ToastManager::shared(), &ToastManager::messageChanged, view, [&] { note("[toast]"); });
    QObject::connect(field(), &QLineEdit::textChanged, view, [&] { note("[search]"); });
    onClose = [&] { note("[close]"); };
    fillIn()->complete();
    const QStringList clipboardCalls = FakeDesktop::shared().callsOf(QStringLiteral("clipboard"));
    ASSERT_EQ(clipboardCalls.size(), 2); // cleared, then set
    EXPECT_EQ(clipboardCalls[0], QStringLiteral("clipboard clear"));
    EXPECT_EQ(steps, (QStringList{QStringLiteral("[toast] clipboard toast"),
                                  QStringLiteral("[search] clipboard toast sheet pending search"),
                                  QStringLiteral("[close] clipboard toast sheet pending search selection")}));
    EXPECT_EQ(closings, 1);
}

TEST_F(QuickAccessCopy, theClipboardIsSetWhileThePanelIsStillThere) {
    add(QStringLiteral("Plain"), QStringLiteral("text"));
    show();
    press(Qt::Key_Return);
    EXPECT_EQ(textAtClosing, QStringLiteral("text"));
}

TEST_F(QuickAccessCopy, aPromptWithoutATitleGivesAnEmptyPairOfQuotes) {
    add(QString(), QStringLiteral("text"));
    show();
    EXPECT_EQ(view->resultList()->row(0)->accessibleName(), QStringLiteral("Untitled"));
    press(Qt::Key_Return);
    EXPECT_EQ(ToastManager::shared().message(), QStringLiteral("Copied \"\" to clipboard"));
}

TEST_F(QuickAccessCopy, aClickOnARowSelectsAndChoosesIt) {
    add(QStringLiteral("one"), QStringLiteral("{x}"));
    add(QStringLiteral("two"), QStringLiteral("second"));
    show();
    clickRow(1);
    EXPECT_EQ(view->selectedIndex(), 1);
    ASSERT_TRUE(fillIn());
    EXPECT_EQ(fillIn()->promptTitle, QStringLiteral("one"));
}

TEST_F(QuickAccessCopy, aClickBelowAHeadingChoosesThatRow) {
    add(QStringLiteral("other"), QStringLiteral("other body"));
    addPinned(QStringLiteral("pin"), QStringLiteral("pin body"));
    show();
    clickRow(1);
    EXPECT_EQ(clipboard(), QStringLiteral("other body"));
}

TEST_F(QuickAccessCopy, aPromptWithVariablesOpensTheSheetWithTheRememberedValues) {
    Prompt* prompt = add(QStringLiteral("Letter"), QStringLiteral("Dear {name}, {place}"));
    rememberValue(QStringLiteral("name"), QStringLiteral("Ada"));
    show();
    press(Qt::Key_Return);
    ASSERT_TRUE(fillIn());
    EXPECT_TRUE(view->showVariableSubstitution());
    EXPECT_EQ(view->pendingPrompt(), prompt);
    EXPECT_EQ(fillIn()->variableValues().value(QStringLiteral("name")), QStringLiteral("Ada"));
    EXPECT_EQ(fillIn()->variableValues().value(QStringLiteral("place")), QString());
    EXPECT_EQ(closings, 0);
    EXPECT_EQ(clipboard(), QString());
}

TEST_F(QuickAccessCopy, theSheetsCopyCopiesTheFilledTextAndCloses) {
    add(QStringLiteral("Letter"), QStringLiteral("Dear {name}"));
    show();
    type(QStringLiteral("let"));
    press(Qt::Key_Return);
    fillIn()->setVariableValue(QStringLiteral("name"), QStringLiteral("Ada"));
    fillIn()->complete();
    EXPECT_EQ(clipboard(), QStringLiteral("Dear Ada"));
    EXPECT_EQ(textAtClosing, QStringLiteral("Dear Ada"));
    EXPECT_EQ(ToastManager::shared().message(), QStringLiteral("Copied \"Letter\" to clipboard"));
    EXPECT_FALSE(view->showVariableSubstitution());
    EXPECT_EQ(view->pendingPrompt(), nullptr);
    EXPECT_EQ(view->searchText(), QString());
    EXPECT_EQ(view->selectedIndex(), 0);
    EXPECT_EQ(closings, 1);
    EXPECT_EQ(Sheet::top(&panel), nullptr);
}

TEST_F(QuickAccessCopy, afterACancelInTheSheetThePanelStaysOpenWithItsSearchText) {
    add(QStringLiteral("other letter"), QStringLiteral("x"));
    add(QStringLiteral("letter b"), QStringLiteral("{name}"));
    add(QStringLiteral("letter a"), QStringLiteral("{name}"));
    show();
    type(QStringLiteral("letter"));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    ASSERT_TRUE(fillIn());
    clock.advance(100ms);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(Sheet::top(&panel), nullptr);
    EXPECT_FALSE(view->showVariableSubstitution());
    EXPECT_EQ(view->pendingPrompt(), nullptr);
    EXPECT_EQ(view->searchText(), QStringLiteral("letter"));
    EXPECT_EQ(view->selectedIndex(), 1);
    EXPECT_EQ(closings, 0);
    EXPECT_TRUE(panel.isVisible());
}

TEST_F(QuickAccessCopy, withTheToggleOffAPromptIsCopiedWithItsPlaceholdersAsTheyStand) {
    add(QStringLiteral("Letter"), QStringLiteral("Dear {{name}}"));
    enableVariableSubstitutionPreference().set(false);
    show();
    press(Qt::Key_Return);
    EXPECT_EQ(clipboard(), QStringLiteral("Dear {{name}}"));
    EXPECT_EQ(closings, 1);
}

TEST_F(QuickAccessCopy, aPromptWhosePromptIsDeletedWhileTheSheetIsOpenIsStillCopied) {
    Prompt* prompt = add(QStringLiteral("Letter"), QStringLiteral("Dear {name}"));
    show();
    press(Qt::Key_Return);
    context.remove(prompt);
    context.processPendingChanges();
    fillIn()->setVariableValue(QStringLiteral("name"), QStringLiteral("Ada"));
    fillIn()->complete();
    EXPECT_EQ(clipboard(), QStringLiteral("Dear Ada"));
    EXPECT_EQ(ToastManager::shared().message(), QStringLiteral("Copied \"Letter\" to clipboard"));
}

TEST_F(QuickAccessCopy, theToggleFlipsTheStoredPreference) {
    show();
    FillVariablesToggle* toggle = view->toggle();
    EXPECT_EQ(toggle->symbol(), QStringLiteral("curlybraces.square.fill"));
    EXPECT_EQ(toggle->toolTip(), QStringLiteral("Variables will be filled in before copying"));
    QTest::mouseClick(toggle, Qt::LeftButton);
    EXPECT_FALSE(enableVariableSubstitutionPreference().value());
    EXPECT_EQ(preferences->boolean(QStringLiteral("enableVariableSubstitution")), false);
    EXPECT_EQ(toggle->symbol(), QStringLiteral("curlybraces.square"));
    EXPECT_EQ(toggle->toolTip(), QStringLiteral("Variables will be copied as-is"));
    EXPECT_TRUE(field()->hasFocus()); // a click does not take the keyboard
    QTest::mouseClick(toggle, Qt::LeftButton);
    EXPECT_TRUE(enableVariableSubstitutionPreference().value());
}

TEST_F(QuickAccessCopy, theToggleFollowsThePreference) {
    show();
    enableVariableSubstitutionPreference().set(false);
    EXPECT_FALSE(view->toggle()->isChecked());
}

} // namespace
} // namespace Quillstacks
