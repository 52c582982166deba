#include "WelcomeFixture.h"

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class WelcomeDecision : public WelcomeFixture {
protected:
    SplashScreenManager manager;
};

TEST_F(WelcomeDecision, aFirstStartShowsTheWelcomeHalfASecondLater) {
    manager.showIfNeeded();
    clock.advance(499ms);
    EXPECT_FALSE(window());
    clock.advance(1ms);
    ASSERT_TRUE(window());
    EXPECT_TRUE(window()->isVisible());
}

TEST_F(WelcomeDecision, aSecondStartAfterTheButtonWasPressedShowsNoWindow) {
    open();
    click(button("Got it, let's go!"));
    EXPECT_TRUE(manager.hasShownSplashScreen());
    welcome().tearDown();
    manager.showIfNeeded();
    clock.advance(2s);
    EXPECT_FALSE(window());
}

TEST_F(WelcomeDecision, aStartDuringWhichTheUserQuitWithTheWindowOpenShowsTheWindowAgain) {
    open();
    welcome().tearDown(); // as the program's end does
    EXPECT_FALSE(preferences->contains(QStringLiteral("hasShownSplashScreen")));
    manager.showIfNeeded();
    clock.advance(500ms);
    EXPECT_TRUE(window());
}

TEST_F(WelcomeDecision, aWindowClosedFromOutsideComesBackAtTheNextStart) {
    open();
    window()->close();
    EXPECT_FALSE(manager.hasShownSplashScreen());
}

TEST_F(WelcomeDecision, itIsKeptInThePreferencesAndChangesAreTold) {
    const QSignalSpy changes(&manager, &SplashScreenManager::hasShownSplashScreenChanged);
    EXPECT_FALSE(manager.hasShownSplashScreen());
    manager.setHasShownSplashScreen(true);
    EXPECT_EQ(preferences->boolean(QStringLiteral("hasShownSplashScreen")), true);
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(WelcomeDecision, whenAllPreferencesAreRemovedItComesBack) {
    manager.setHasShownSplashScreen(true);
    const QSignalSpy changes(&manager, &SplashScreenManager::hasShownSplashScreenChanged);
    preferences->removePersistentDomain();
    EXPECT_EQ(changes.size(), 1);
    manager.showIfNeeded();
    clock.advance(500ms);
    EXPECT_TRUE(window());
}

TEST_F(WelcomeDecision, aStoredValueOfAnotherTypeReadsAsNotShown) {
    preferences->set(QStringLiteral("hasShownSplashScreen"), QStringLiteral("yes"));
    EXPECT_FALSE(manager.hasShownSplashScreen());
}

TEST_F(WelcomeDecision, theCallbackItHandsOverBringsUpTheMainWindow) {
    QWidget main;
    main.setObjectName(QStringLiteral("main"));
    manager.showIfNeeded();
    clock.advance(500ms);
    ASSERT_TRUE(view());
    desktop.calls.clear();
    view()->onOpenApp();
    EXPECT_EQ(desktop.calls, (QStringList{QStringLiteral("showAndActivate main 0"),
                                          QStringLiteral("activateIgnoringOtherApps main")}));
}

} // namespace
} // namespace Quillstacks
