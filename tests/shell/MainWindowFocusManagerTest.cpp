#include "shell/MainWindowFocusManager.h"

#include "foundation/ManualClock.h"
#include "platform/FakeDesktop.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class MainWindowFocus : public testing::Test {
protected:
    void SetUp() override { window.setObjectName(QStringLiteral("main")); }
    /// How often the window was brought to the front.
    [[nodiscard]] qsizetype activations() const {
        return desktop.callsOf(QStringLiteral("showAndActivate main")).size();
    }
    FakeDesktop& desktop = FakeDesktop::fresh();
    ManualClock clock;
    QWidget window;
    MainWindowFocusManager manager;
};

TEST_F(MainWindowFocus, aKnownWindowIsActivatedThenShownOnTheNextTurn) {
    manager.registerWindow(&window);
    manager.requestFocus();
    EXPECT_EQ(activations(), 0);
    clock.advance(0ns);
    EXPECT_EQ(desktop.calls, (QStringList{QStringLiteral("activateIgnoringOtherApps main"),
                                          QStringLiteral("showAndActivate main 0")}));
    EXPECT_FALSE(manager.pendingFocus);
}

TEST_F(MainWindowFocus, twoRequestsInOneTurnServeOnce) {
    manager.registerWindow(&window);
    manager.requestFocus();
    manager.requestFocus();
    clock.advance(1s);
    EXPECT_EQ(activations(), 1);
}

TEST_F(MainWindowFocus, withoutAWindowAttemptsRunAfter50And150And350And750Milliseconds) {
    for (const auto moment : {50ms, 150ms, 350ms, 750ms}) {
        MainWindowFocusManager waiting;
        desktop.calls.clear();
        waiting.requestFocus();
        clock.advance(moment - 1ms);
        waiting.window = &window;
        clock.advance(999us);
        EXPECT_EQ(activations(), 0) << moment.count();
        clock.advance(1us);
        EXPECT_EQ(activations(), 1) << moment.count();
    }
}

TEST_F(MainWindowFocus, oddity_theFirstAttemptTakesNoDelayFromTheTable) {
    EXPECT_EQ(manager.retryDelays.size(), 5U);
    manager.window = &window;
    manager.requestFocus();
    clock.advance(0ns);
    EXPECT_EQ(activations(), 1);
}

TEST_F(MainWindowFocus, afterFiveAttemptsTheRequestStaysPendingWithoutFurtherOnes) {
    manager.requestFocus();
    clock.advance(750ms);
    manager.window = &window;
    clock.advance(1min);
    EXPECT_EQ(activations(), 0);
    EXPECT_TRUE(manager.pendingFocus);
}

TEST_F(MainWindowFocus, aRequestBeforeTheWindowExistsSucceedsAtItsRegistrationEvenAfterTheAttemptsHaveEnded) {
    manager.requestFocus();
    clock.advance(1min);
    manager.registerWindow(&window);
    clock.advance(0ns);
    EXPECT_EQ(activations(), 1);
}

TEST_F(MainWindowFocus, registeringTheSameWindowTwiceDoesNotStartANewAttempt) {
    manager.registerWindow(&window);
    manager.pendingFocus = true;
    manager.registerWindow(&window);
    clock.advance(1min);
    EXPECT_EQ(activations(), 0);
}

TEST_F(MainWindowFocus, registeringWithoutARequestActivatesNothing) {
    manager.registerWindow(&window);
    clock.advance(1min);
    EXPECT_EQ(activations(), 0);
}

TEST_F(MainWindowFocus, resetForgetsWindowAndRequest) {
    manager.registerWindow(&window);
    manager.requestFocus();
    manager.reset();
    clock.advance(1min);
    EXPECT_EQ(activations(), 0);
    EXPECT_TRUE(manager.window.isNull());
    EXPECT_FALSE(manager.pendingFocus);
}

TEST_F(MainWindowFocus, anAttemptMayFindItsManagerGone) {
    {
        MainWindowFocusManager gone;
        gone.window = &window;
        gone.requestFocus();
    }
    clock.advance(1min);
    EXPECT_EQ(activations(), 0);
}

TEST_F(MainWindowFocus, aWindowThatWentAwayCountsAsUnknown) {
    {
        QWidget shortLived;
        manager.registerWindow(&shortLived);
    }
    manager.requestFocus();
    clock.advance(1min);
    EXPECT_TRUE(manager.pendingFocus);
    manager.registerWindow(&window);
    clock.advance(0ns);
    EXPECT_EQ(activations(), 1);
}

} // namespace
} // namespace Quillstacks
