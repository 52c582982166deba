#include "upkeep/LaunchAtLoginSettingsView.h"

#include "foundation/ManualClock.h"
#include "interface/Label.h"
#include "interface/Switch.h"
#include "interface/Theme.h"
#include "platform/FakeDesktop.h"
#include "support/LogCapture.h"
#include "support/ShownSymbol.h"
#include "support/TestPreferences.h"

#include <QAccessible>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class LaunchAtLogin : public testing::Test {
protected:
    void open() {
        view = std::make_unique<LaunchAtLoginSettingsView>();
        view->resize(360, 140);
        view->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
    }
    [[nodiscard]] Switch* toggle() const { return view->findChild<Switch*>(); }
    /// A press of the switch, with all that follows at once.
    void press() {
        QTest::mouseClick(toggle(), Qt::LeftButton);
        clock.advance(0s);
    }
    [[nodiscard]] QStringList changes() const { return desktop.callsOf(QStringLiteral("loginItem")); }
    [[nodiscard]] QStringList shownTexts() const {
        QStringList result;
        for (const Label* label : view->findChildren<Label*>())
            if (label->isVisible())
                result += label->text();
        return result;
    }
    [[nodiscard]] static FeedbackMessage good(const char* text) { return {QString::fromLatin1(text), false}; }
    [[nodiscard]] bool showsError() const {
        return view->feedbackMessage && view->feedbackMessage->isError &&
               view->feedbackMessage->text ==
                   QStringLiteral("Could not update login item: Could not write the file “/autostart”: "
                                  "Permission denied.");
    }

    TestPreferences preferences;
    LogCapture log;
    FakeDesktop& desktop = FakeDesktop::fresh();
    ManualClock clock;
    std::unique_ptr<LaunchAtLoginSettingsView> view;
};

TEST_F(LaunchAtLogin, saysWhatItDoesAndNoMore) {
    open();
    EXPECT_EQ(shownTexts(), (QStringList{QStringLiteral("Launch at Login"),
                                         QStringLiteral("Keep Quillstacks ready the moment you log in. You can always "
                                                        "open the main window later from the menu bar icon.")}));
    EXPECT_EQ(toggle()->accessibleName(), QStringLiteral("Launch at Login"));
    EXPECT_EQ(view->feedbackMessage, std::nullopt);
    EXPECT_FALSE(view->isProcessing);
}

TEST_F(LaunchAtLogin, theSwitchShowsTheDesktopsStateFromTheStart) {
    desktop.loginItem = true;
    open();
    EXPECT_TRUE(view->launchAtLogin);
    EXPECT_TRUE(toggle()->isChecked());
}

TEST_F(LaunchAtLogin, turningItOnRegistersAndSaysSo) {
    open();
    press();
    EXPECT_EQ(changes(), QStringList{QStringLiteral("loginItem register")});
    EXPECT_EQ(view->feedbackMessage, good("Quillstacks will start after you log in."));
    EXPECT_TRUE(shownTexts().contains(QStringLiteral("Quillstacks will start after you log in.")));
}

TEST_F(LaunchAtLogin, turningItOffRemovesItAndSaysSo) {
    desktop.loginItem = true;
    open();
    press();
    EXPECT_EQ(changes(), QStringList{QStringLiteral("loginItem unregister")});
    EXPECT_EQ(view->feedbackMessage, good("Launch at login is disabled."));
}

TEST_F(LaunchAtLogin, theKeyboardTurnsItToo) {
    open();
    toggle()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(toggle(), Qt::Key_Space);
    clock.advance(0s);
    EXPECT_TRUE(desktop.loginItem);
}

TEST_F(LaunchAtLogin, theChangeIsAppliedOnTheNextTurn) {
    open();
    QTest::mouseClick(toggle(), Qt::LeftButton);
    EXPECT_TRUE(view->launchAtLogin);
    EXPECT_TRUE(changes().isEmpty());
    clock.advance(0s);
    EXPECT_EQ(changes().size(), 1);
}

TEST_F(LaunchAtLogin, anItemRemovedInTheSystemsSettingsShowsTheSwitchOffAtTheNextAppearingWithoutAFeedbackLine) {
    desktop.loginItem = true;
    open();
    view->hide();
    desktop.loginItem = false;
    view->show();
    clock.advance(10s);
    EXPECT_FALSE(view->launchAtLogin);
    EXPECT_FALSE(toggle()->isChecked());
    EXPECT_EQ(view->feedbackMessage, std::nullopt);
    EXPECT_EQ(shownTexts().size(), 2);
    EXPECT_TRUE(changes().isEmpty());
}

TEST_F(LaunchAtLogin, aFailedRegistrationReturnsTheSwitchToOffAndShowsTheError) {
    desktop.loginItemFails = true;
    open();
    press();
    EXPECT_EQ(changes(), QStringList{QStringLiteral("loginItem register")});
    EXPECT_FALSE(view->launchAtLogin);
    EXPECT_FALSE(toggle()->isChecked());
    EXPECT_TRUE(showsError());
    EXPECT_TRUE(shownTexts().contains(view->feedbackMessage->text));
    EXPECT_FALSE(view->isProcessing);
    EXPECT_TRUE(log.contains(view->feedbackMessage->text));
}

TEST_F(LaunchAtLogin, oddity_theRollbackIsAChangeLikeAnyOtherSoItsHandlerRunsToo) {
    desktop.loginItemFails = true;
    open();
    press();
    desktop.loginItemFails = false;
    clock.advance(3999ms);
    EXPECT_TRUE(showsError()) << "it can be read first";
    clock.advance(1ms);
    EXPECT_EQ(changes(), (QStringList{QStringLiteral("loginItem register"), QStringLiteral("loginItem unregister")}));
    EXPECT_EQ(view->feedbackMessage, good("Launch at login is disabled."));
    EXPECT_FALSE(view->launchAtLogin);
}

TEST_F(LaunchAtLogin, aNewPressOvertakesTheRollback) {
    desktop.loginItemFails = true;
    open();
    press();
    desktop.loginItemFails = false;
    clock.advance(2s);
    press();
    clock.advance(10s);
    EXPECT_EQ(changes(), (QStringList{QStringLiteral("loginItem register"), QStringLiteral("loginItem register")}));
    EXPECT_TRUE(desktop.loginItem);
    EXPECT_TRUE(view->launchAtLogin);
}

TEST_F(LaunchAtLogin, aChangeThatArrivesWhileAnotherIsProcessedIsNotApplied) {
    open();
    view->isProcessing = true;
    press();
    EXPECT_TRUE(changes().isEmpty());
    EXPECT_TRUE(view->launchAtLogin) << "the switch stays where it was put";
    EXPECT_EQ(view->feedbackMessage, std::nullopt);
}

TEST_F(LaunchAtLogin, theFeedbackStaysUntilTheNextChange) {
    open();
    press();
    clock.advance(1h);
    EXPECT_EQ(view->feedbackMessage, good("Quillstacks will start after you log in."));
    press();
    EXPECT_EQ(view->feedbackMessage, good("Launch at login is disabled."));
}

TEST_F(LaunchAtLogin, theFeedbackHasItsSymbolAndItsColour) {
    open();
    const int height = view->sizeHint().height();
    press();
    EXPECT_TRUE(showsSymbol(*view, QStringLiteral("checkmark.circle"), 14, Theme::shared().color(ColorRole::green)));
    desktop.loginItemFails = true;
    press();
    EXPECT_TRUE(
        showsSymbol(*view, QStringLiteral("exclamationmark.triangle"), 14, Theme::shared().color(ColorRole::red)));
    EXPECT_EQ(view->sizeHint().height(), height) << "the line has its room before anything stands there";
}

TEST_F(LaunchAtLogin, theFeedbackIsToldToAssistiveTools) {
    open();
    press();
    const auto parts = view->findChildren<QWidget*>();
    const auto line = std::ranges::find_if(parts, [](QWidget* part) {
        return QAccessible::queryAccessibleInterface(part)->role() == QAccessible::AlertMessage;
    });
    ASSERT_NE(line, parts.end());
    EXPECT_EQ((*line)->accessibleName(), view->feedbackMessage->text);
}

TEST_F(LaunchAtLogin, nothingHappensAfterItsEnd) {
    desktop.loginItemFails = true;
    open();
    press();
    view.reset();
    clock.advance(10s);
    EXPECT_EQ(changes().size(), 1);
}

} // namespace
} // namespace Quillstacks
