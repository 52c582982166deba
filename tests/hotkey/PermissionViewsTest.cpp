#include "HotkeySettingsFixture.h"

#include "hotkey/AccessibilityPermissionView.h"
#include "hotkey/PermissionBannerModifier.h"
#include "hotkey/PermissionBannerView.h"
#include "hotkey/PermissionManager.h"
#include "interface/Sheet.h"
#include "interface/SymbolImage.h"
#include "support/ShownSymbol.h"
#include "support/Text.h"

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class PermissionBanner : public HotkeySettingsFixture {
protected:
    PermissionBanner() { desktop.trusted = false; }
    void launch() {
        window.resize(800, 600);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        modifier = new PermissionBannerModifier(&window, manager);
        manager.checkOnLaunch();
        clock.advance(1s);
    }
    void settle() const {
        ASSERT_TRUE(QTest::qWaitFor([this] { return modifier->movement().state() == QAbstractAnimation::Stopped; }));
    }
    [[nodiscard]] QRect card() const {
        const int margin = PermissionBannerView::shadowMargin();
        return modifier->view()->geometry().adjusted(margin, margin, -margin, -margin);
    }

    PermissionManager manager;
    PermissionBannerModifier* modifier = nullptr;
};

TEST_F(PermissionBanner, comesFromBelowAndStandsFortyAboveTheBottomEdge) {
    launch();
    EXPECT_TRUE(modifier->view()->isVisible());
    EXPECT_EQ(modifier->movement().duration(), 580);
    settle();
    EXPECT_EQ(card().bottom() + 1, 600 - 40);
    EXPECT_EQ(card().width(), 480);
    EXPECT_NEAR(card().center().x(), window.rect().center().x(), 1);
    window.resize(700, 500);
    EXPECT_EQ(card().bottom() + 1, 500 - 40);
}

TEST_F(PermissionBanner, isNoWiderThanASmallWindow) {
    launch();
    settle();
    window.resize(400, 500);
    EXPECT_EQ(card().width(), 400 - 80);
    EXPECT_EQ(card().bottom() + 1, 500 - 40);
}

TEST_F(PermissionBanner, saysWhatItWants) {
    launch();
    EXPECT_EQ(texts(), QStringList({text("Enable global shortcuts"),
                                    text("Grant accessibility permission to use keyboard shortcuts from anywhere")}));
    EXPECT_TRUE(showsSymbol(*modifier->view()->findChild<SymbolImage*>(), text("lock.shield"), 18,
                            Theme::shared().color(ColorRole::accent)));
    ASSERT_TRUE(button("Open System Settings") && button("Dismiss"));
    EXPECT_EQ(button("Open System Settings")->height(), 34);
    EXPECT_EQ(button("Dismiss")->accessibleName(), text("Dismiss"));
}

TEST_F(PermissionBanner, dismissSendsItAwayByItsOwnSpring) {
    launch();
    settle();
    click(button("Dismiss"));
    EXPECT_FALSE(manager.showPermissionAlert());
    EXPECT_EQ(modifier->movement().duration(), 460);
    settle();
    EXPECT_FALSE(modifier->view()->isVisible());
}

TEST_F(PermissionBanner, openSystemSettingsAsksAndOpens) {
    launch();
    settle();
    click(button("Open System Settings"));
    EXPECT_EQ(desktop.trustPrompts, 1);
    clock.advance(300ms);
    EXPECT_TRUE(desktop.calls.contains(text("openAccessibilitySettings")));
    EXPECT_TRUE(manager.showPermissionAlert());
    desktop.trusted = true;
    clock.advance(1s);
    settle();
    EXPECT_FALSE(modifier->view()->isVisible());
}

TEST_F(PermissionBanner, itsButtonsAnswerTheKeyboard) {
    launch();
    settle();
    button("Dismiss")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    EXPECT_FALSE(manager.showPermissionAlert());
}

TEST_F(PermissionBanner, givesTheKeyboardBackToWhatHadIt) {
    QLineEdit field(&window);
    launch();
    settle();
    field.setFocus();
    button("Open System Settings")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
    ASSERT_TRUE(button("Dismiss")->hasFocus());
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    EXPECT_TRUE(field.hasFocus());
}

TEST_F(PermissionBanner, staysBeneathASheetThatIsOpenAlready) {
    window.resize(800, 600);
    window.show();
    const Sheet* sheet = Sheet::present(&window, std::make_unique<QWidget>(), {});
    launch();
    settle();
    const QObjectList& children = window.children();
    EXPECT_LT(children.indexOf(modifier->view()), children.indexOf(sheet));
}

TEST_F(PermissionBanner, withThePermissionThereIsNone) {
    desktop.trusted = true;
    launch();
    EXPECT_FALSE(modifier->view());
}

class PermissionSheet : public HotkeySettingsFixture {
protected:
    PermissionSheet() { desktop.trusted = false; }
    void present() {
        open();
        window.resize(800, 700);
        click(button("Grant Permission"));
        ASSERT_TRUE(view->isPresentingPermissions());
        sheet = window.findChild<AccessibilityPermissionView*>();
        ASSERT_TRUE(sheet);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QStringList sheetTexts() const {
        QStringList result;
        for (const Label* label : sheet->findChildren<Label*>())
            if (label->isVisibleTo(sheet))
                result += label->text();
        return result;
    }
    [[nodiscard]] bool hasSymbol(const char* name, ColorRole role) const {
        for (SymbolImage* image : sheet->findChildren<SymbolImage*>())
            if (image->isVisibleTo(sheet) && showsSymbol(*image, text(name), 60, Theme::shared().color(role)))
                return true;
        return false;
    }
    QPointer<AccessibilityPermissionView> sheet;
};

TEST_F(PermissionSheet, tellsHowToEnableIt) {
    present();
    EXPECT_FALSE(sheet->hasPermission());
    EXPECT_EQ(sheetTexts(),
              QStringList({text("Accessibility Permission Required"),
                           text("Quillstacks needs Accessibility permission to register global keyboard shortcuts."),
                           text("To enable:"), text("1."), text("Click \"Open System Settings\" below"), text("2."),
                           text("Find Quillstacks in the list"), text("3."), text("Toggle the switch to enable"),
                           text("4."), text("Return here and click \"Check Again\"")}));
    EXPECT_TRUE(button("Open System Settings") && button("Check Again"));
    EXPECT_FALSE(button("Done"));
    EXPECT_EQ(sheet->width(), 500);
    EXPECT_TRUE(hasSymbol("exclamationmark.triangle.fill", ColorRole::orange));
}

TEST_F(PermissionSheet, grantedItSaysSoAndReturnClosesIt) {
    present();
    desktop.trusted = true;
    click(button("Check Again"));
    EXPECT_TRUE(sheet->hasPermission());
    EXPECT_TRUE(PermissionManager::shared().hasAccessibilityPermission());
    QCoreApplication::processEvents();
    EXPECT_EQ(sheetTexts(),
              QStringList({text("Accessibility Permission Granted"),
                           text("Global hotkeys are now enabled. You can use your configured shortcut to quickly "
                                "access prompts from anywhere.")}));
    EXPECT_TRUE(hasSymbol("checkmark.circle.fill", ColorRole::green));
    EXPECT_FALSE(button("Check Again"));
    ASSERT_TRUE(button("Done"));
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    EXPECT_FALSE(view->isPresentingPermissions());
}

TEST_F(PermissionSheet, checkAgainWithoutThePermissionChangesNothing) {
    present();
    click(button("Check Again"));
    EXPECT_FALSE(sheet->hasPermission());
    EXPECT_TRUE(button("Check Again"));
    EXPECT_EQ(desktop.trustPrompts, 0);
}

TEST_F(PermissionSheet, openSystemSettingsOpensThemAtOnceAndAsksNobody) {
    present();
    click(button("Open System Settings"));
    EXPECT_TRUE(desktop.calls.contains(text("openAccessibilitySettings")));
    EXPECT_EQ(desktop.trustPrompts, 0);
}

TEST_F(PermissionSheet, escapeClosesIt) {
    present();
    QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(view->isPresentingPermissions());
}

TEST_F(PermissionSheet, oddity_theSettingsKeepTheirAnswerUntilTheyAppearAgain) {
    present();
    desktop.trusted = true;
    click(button("Check Again"));
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    EXPECT_FALSE(view->hasAccessibilityPermission());
    EXPECT_TRUE(button("Grant Permission"));
}

} // namespace
} // namespace Quillstacks
