#include "platform/FakeDesktop.h"
#include "shell/MainWindow.h"
#include "shell/QuillstacksApp.h"
#include "shell/welcome/SplashScreenView.h"
#include "shell/welcome/SplashScreenWindow.h"
#include "ShellFixture.h"

#include <QTest>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class LaunchWelcome : public ShellFixture {
protected:
    static SplashScreenWindowManager& welcome() { return SplashScreenWindowManager::shared(); }
    static SplashScreenWindow* window() { return welcome().windowController(); }
    static ActivationPolicy policy() { return DockVisibilityController::shared().currentPolicy(); }
    void waitUntilClosed() {
        ASSERT_TRUE(QTest::qWaitFor([] { return !window() || !window()->isVisible(); }));
    }
};

TEST_F(LaunchWelcome, comesATenthAndHalfASecondAfterTheStart) {
    const QuillstacksApp app;
    clock.advance(599ms);
    EXPECT_FALSE(window());
    clock.advance(1ms);
    ASSERT_TRUE(window());
    EXPECT_TRUE(window()->isVisible());
}

TEST_F(LaunchWelcome, staysAwayWhenItWasLeftByItsButtonBefore) {
    preferences->set(QStringLiteral("hasShownSplashScreen"), true);
    const QuillstacksApp app;
    clock.advance(2s);
    EXPECT_FALSE(window());
}

TEST_F(LaunchWelcome, theMainWindowComesToTheFrontFirstAndTheWelcomeBeforeIt) {
    const QuillstacksApp app;
    clock.advance(500ms);
    desktop.calls.clear();
    clock.advance(100ms);
    turn();
    const QStringList activated = desktop.callsOf(QStringLiteral("showAndActivate"));
    EXPECT_EQ(activated, (QStringList{QStringLiteral("showAndActivate main 0"),
                                      QStringLiteral("showAndActivate splash-screen 0")}));
}

TEST_F(LaunchWelcome, bringsTheProgramBackAmongTheRunningOnesWhenTheMainWindowWasClosed) {
    QuillstacksApp app;
    turn();
    app.mainWindow().close();
    EXPECT_EQ(policy(), ActivationPolicy::accessory);
    clock.advance(600ms);
    ASSERT_TRUE(window());
    EXPECT_EQ(policy(), ActivationPolicy::regular);
}

TEST_F(LaunchWelcome, closingItWithNoMainWindowOpenTakesTheDockIconAwayAfterATenthOfASecond) {
    QuillstacksApp app;
    turn();
    app.mainWindow().close();
    clock.advance(600ms);
    welcome().hostingController()->finish();
    clock.advance(99ms);
    EXPECT_EQ(policy(), ActivationPolicy::regular);
    clock.advance(1ms);
    EXPECT_EQ(policy(), ActivationPolicy::accessory);
    waitUntilClosed();
}

TEST_F(LaunchWelcome, closingItBesideTheMainWindowKeepsTheDockIcon) {
    const QuillstacksApp app;
    clock.advance(600ms);
    welcome().hostingController()->finish();
    clock.advance(1s);
    EXPECT_EQ(policy(), ActivationPolicy::regular);
    waitUntilClosed();
}

TEST_F(LaunchWelcome, comesAlsoWithoutAStore) {
    desktop.applicationSupportDirectories = QStringList();
    const QuillstacksApp app;
    ASSERT_TRUE(app.containerError);
    clock.advance(600ms);
    EXPECT_TRUE(window());
}

} // namespace
} // namespace Quillstacks
