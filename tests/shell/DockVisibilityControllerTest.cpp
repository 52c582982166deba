#include "shell/DockVisibilityController.h"

#include "platform/FakeDesktop.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

class DockVisibility : public testing::Test {
protected:
    FakeDesktop& desktop = FakeDesktop::fresh();
    LogCapture log;
    DockVisibilityController controller;
};

TEST_F(DockVisibility, thePolicyStartsAsRegular) {
    EXPECT_EQ(controller.currentPolicy(), ActivationPolicy::regular);
}

TEST_F(DockVisibility, askingForThePolicyInForceMakesNoCallAndLogsNothing) {
    controller.setPolicy(ActivationPolicy::regular);
    EXPECT_TRUE(desktop.calls.isEmpty());
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(DockVisibility, aChangeReachesTheDesktopAndTheLog) {
    controller.setPolicy(ActivationPolicy::accessory);
    controller.setPolicy(ActivationPolicy::accessory);
    controller.setPolicy(ActivationPolicy::regular);
    EXPECT_EQ(desktop.calls, (QStringList{QStringLiteral("setActivationPolicy accessory"),
                                          QStringLiteral("setActivationPolicy regular")}));
    EXPECT_EQ(log.lines(), (QStringList{QStringLiteral("ui debug: Dock icon visibility changed: hidden"),
                                        QStringLiteral("ui debug: Dock icon visibility changed: visible")}));
}

TEST_F(DockVisibility, aFailedChangeKeepsThePolicyAndTheNextRequestTriesAgain) {
    desktop.takesActivationPolicy = false;
    controller.setPolicy(ActivationPolicy::accessory);
    EXPECT_EQ(controller.currentPolicy(), ActivationPolicy::regular);
    EXPECT_EQ(log.lines(), QStringList{QStringLiteral("ui error: Failed to change dock icon visibility")});

    desktop.takesActivationPolicy = true;
    controller.setPolicy(ActivationPolicy::accessory);
    EXPECT_EQ(controller.currentPolicy(), ActivationPolicy::accessory);
    EXPECT_EQ(desktop.calls.size(), 2);
}

} // namespace
} // namespace Quillstacks
