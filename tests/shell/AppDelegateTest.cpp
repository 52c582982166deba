#include "shell/AppDelegate.h"

#include "ShellFixture.h"

namespace Quillstacks {
namespace {

class Delegate : public ShellFixture {
protected:
    void SetUp() override {
        main.setObjectName(QStringLiteral("main"));
        DockVisibilityController::shared().setPolicy(ActivationPolicy::accessory);
        desktop.calls.clear();
    }
    QWidget main;
    AppDelegate delegate;
};

TEST_F(Delegate, theProgramGoesOnAfterItsLastWindowClosed) {
    EXPECT_FALSE(delegate.applicationShouldTerminateAfterLastWindowClosed());
}

TEST_F(Delegate, reopeningWithNoVisibleWindowBringsDockIconAndWindowBack) {
    EXPECT_TRUE(delegate.applicationShouldHandleReopen(false));
    EXPECT_EQ(desktop.calls,
              (QStringList{QStringLiteral("setActivationPolicy regular"), QStringLiteral("showAndActivate main 0")}));
    EXPECT_TRUE(MainWindowFocusManager::shared().pendingFocus);
}

TEST_F(Delegate, reopeningWithAVisibleWindowDoesNothingOfItsOwn) {
    EXPECT_TRUE(delegate.applicationShouldHandleReopen(true));
    EXPECT_TRUE(desktop.calls.isEmpty());
    EXPECT_FALSE(MainWindowFocusManager::shared().pendingFocus);
}

TEST_F(Delegate, onlyTheWindowWithTheExactIdentifierIsTheMainOne) {
    main.setObjectName(QStringLiteral("main2"));
    EXPECT_TRUE(delegate.applicationShouldHandleReopen(false));
    EXPECT_TRUE(desktop.callsOf(QStringLiteral("showAndActivate")).isEmpty());
}

} // namespace
} // namespace Quillstacks
