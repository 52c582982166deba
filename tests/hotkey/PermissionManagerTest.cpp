#include "hotkey/PermissionManager.h"

#include "foundation/ManualClock.h"
#include "hotkey/HotkeyManager.h"
#include "platform/FakeDesktop.h"
#include "support/LogCapture.h"
#include "support/TestPreferences.h"
#include "support/Text.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class Permission : public testing::Test {
protected:
    Permission() {
        HotkeyManager::shared().unregister();
        desktop.calls.clear();
        capture.clear();
        QObject::connect(&manager, &PermissionManager::showPermissionAlertChanged, &manager,
                         [this](bool isShown, const Spring& spring) {
                             changes.push_back({isShown, spring});
                         });
    }
    ~Permission() override { HotkeyManager::shared().unregister(); }
    /// Another program has the focus, and then this one again.
    static void comeForward() {
        Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationInactive);
        Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationActive);
    }
    void launchWithout() {
        desktop.trusted = false;
        manager.checkOnLaunch();
        clock.advance(1s);
        desktop.calls.clear();
        capture.clear();
    }
    [[nodiscard]] int looks() const { return static_cast<int>(desktop.calls.count(text("isProcessTrusted"))); }

    struct Change {
        bool isShown;
        Spring spring;
    };
    TestPreferences preferences;
    ManualClock clock;
    LogCapture capture;
    FakeDesktop& desktop = FakeDesktop::fresh();
    PermissionManager manager;
    std::vector<Change> changes;
};

TEST_F(Permission, startsWithNothingKnownAndNoBanner) {
    EXPECT_FALSE(manager.showPermissionAlert());
    EXPECT_FALSE(manager.hasAccessibilityPermission());
    EXPECT_FALSE(manager.hasCheckedOnLaunch);
}

TEST_F(Permission, heldAtLaunchThereIsNoBannerAndItIsKnownAfterOneSecond) {
    manager.checkOnLaunch();
    clock.advance(999ms);
    EXPECT_FALSE(manager.hasAccessibilityPermission());
    EXPECT_EQ(looks(), 0);
    clock.advance(1ms);
    EXPECT_TRUE(manager.hasAccessibilityPermission());
    EXPECT_FALSE(manager.showPermissionAlert());
    EXPECT_TRUE(changes.empty());
    EXPECT_TRUE(desktop.hotKeys.empty()) << "the launch registers by itself";
}

TEST_F(Permission, missingAtLaunchTheBannerComesAfterOneSecond) {
    desktop.trusted = false;
    manager.checkOnLaunch();
    clock.advance(999ms);
    EXPECT_FALSE(manager.showPermissionAlert());
    clock.advance(1ms);
    EXPECT_TRUE(manager.showPermissionAlert());
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].spring, Springs::banner);
    EXPECT_EQ(desktop.trustPrompts, 0);
}

TEST_F(Permission, theCheckOnLaunchRunsOnce) {
    manager.checkOnLaunch();
    manager.checkOnLaunch();
    clock.advance(5s);
    manager.checkOnLaunch();
    clock.advance(5s);
    EXPECT_EQ(looks(), 1);
}

TEST_F(Permission, grantedElsewhereTheNextActivationRegistersAndHidesTheBannerWithoutAClick) {
    launchWithout();
    desktop.trusted = true;
    comeForward();
    EXPECT_TRUE(manager.hasAccessibilityPermission());
    EXPECT_FALSE(manager.showPermissionAlert());
    EXPECT_EQ(changes.back().spring, Springs::banner);
    EXPECT_EQ(desktop.hotKeys.size(), 1U);
    EXPECT_EQ(capture.lines(), (QStringList{text("permissions info: Permission granted: Accessibility"),
                                            text("permissions info: Permission granted, hiding banner"),
                                            text("permissions info: Permission already granted, registering hotkey"),
                                            text("hotkey info: Hotkey registered - keyCode: 49, modifiers: 768")}));
}

TEST_F(Permission, onlyAChangeFromNoToYesRegisters) {
    manager.checkPermission();
    EXPECT_EQ(desktop.callsOf(text("registerEventHotKey")).size(), 1);
    manager.checkPermission();
    comeForward();
    EXPECT_EQ(desktop.callsOf(text("registerEventHotKey")).size(), 1);
}

TEST_F(Permission, revokedWhileRunningTheNextActivationNotesItAndShowsNoBanner) {
    manager.checkPermission();
    ASSERT_EQ(desktop.hotKeys.size(), 1U);
    capture.clear();
    desktop.trusted = false;
    comeForward();
    EXPECT_FALSE(manager.hasAccessibilityPermission());
    EXPECT_FALSE(manager.showPermissionAlert());
    EXPECT_EQ(capture.lines(), (QStringList{text("permissions default: Permission denied: Accessibility"),
                                            text("permissions default: Permission not granted yet")}));
    EXPECT_EQ(desktop.hotKeys.size(), 1U) << "left as it is";
}

TEST_F(Permission, losingTheActiveStateIsNoOccasionToLook) {
    Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationInactive);
    EXPECT_EQ(looks(), 0);
}

TEST_F(Permission, aRequestAsksTheUserAndLooksHalfASecondLater) {
    launchWithout();
    manager.requestPermission();
    EXPECT_EQ(desktop.trustPrompts, 1);
    EXPECT_EQ(capture.lines(),
              (QStringList{text("permissions info: User initiated accessibility permission request"),
                           text("permissions info: Requesting accessibility permission via system dialog"),
                           text("permissions default: Permission not granted yet, waiting for user action")}));
    desktop.trusted = true;
    clock.advance(499ms);
    EXPECT_TRUE(manager.showPermissionAlert());
    clock.advance(1ms);
    EXPECT_FALSE(manager.showPermissionAlert());
    EXPECT_EQ(desktop.hotKeys.size(), 1U);
}

TEST_F(Permission, openSystemSettingsOpensThemAfterThreeTenthsAndLooksEachSecondUntilGranted) {
    launchWithout();
    manager.openSystemSettings();
    EXPECT_EQ(desktop.trustPrompts, 1);
    const QString opens = text("openAccessibilitySettings");
    clock.advance(299ms);
    EXPECT_FALSE(desktop.calls.contains(opens));
    clock.advance(1ms);
    EXPECT_EQ(desktop.calls.count(opens), 1);
    clock.advance(200ms); // the request's own look
    desktop.calls.clear();
    clock.advance(799ms);
    EXPECT_EQ(looks(), 0);
    clock.advance(1ms);
    EXPECT_EQ(looks(), 1);
    clock.advance(3s);
    EXPECT_EQ(looks(), 4);
    desktop.trusted = true;
    clock.advance(1s);
    EXPECT_TRUE(manager.hasAccessibilityPermission());
    desktop.calls.clear();
    clock.advance(10s);
    EXPECT_EQ(looks(), 0) << "the watch has ended";
    EXPECT_FALSE(desktop.calls.contains(opens));
}

TEST_F(Permission, twoClicksOnOpenSystemSettingsMakeTwoWatchesThatBothEnd) {
    launchWithout();
    manager.openSystemSettings();
    manager.openSystemSettings();
    clock.advance(1s);
    desktop.calls.clear();
    clock.advance(2s);
    EXPECT_EQ(looks(), 4);
    desktop.trusted = true;
    clock.advance(1s);
    desktop.calls.clear();
    clock.advance(10s);
    EXPECT_EQ(looks(), 0);
    EXPECT_EQ(desktop.hotKeys.size(), 1U);
}

TEST_F(Permission, aWatchGoesOnAfterTheBannerWasDismissed) {
    launchWithout();
    manager.openSystemSettings();
    clock.advance(1s);
    manager.dismissAlert();
    desktop.trusted = true;
    clock.advance(1s);
    EXPECT_EQ(desktop.hotKeys.size(), 1U);
}

TEST_F(Permission, aDismissedBannerStaysAway) {
    launchWithout();
    changes.clear();
    manager.dismissAlert();
    EXPECT_FALSE(manager.showPermissionAlert());
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].spring, Springs::toastIn);
    manager.checkPermission();
    manager.checkOnLaunch();
    comeForward();
    clock.advance(5s);
    EXPECT_FALSE(manager.showPermissionAlert());
}

TEST_F(Permission, oddity_whatTheSheetLearnsRegistersNothing) {
    launchWithout();
    desktop.trusted = true;
    EXPECT_TRUE(manager.refreshPermission());
    manager.checkPermission();
    EXPECT_TRUE(desktop.hotKeys.empty()) << "it was known already";
    EXPECT_FALSE(manager.showPermissionAlert());
}

} // namespace
} // namespace Quillstacks
