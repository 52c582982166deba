#include "hotkey/HotkeyFixture.h"

namespace Quillstacks {

namespace {

using HotkeyPermission = HotkeyFixture;

TEST_F(HotkeyPermission, registerWithoutThePermissionStillAttemptsTheRegistration) {
    desktop.trusted = false;
    manager.registerHotkey();
    EXPECT_EQ(desktop.hotKeys.size(), 1U);
    EXPECT_EQ(log(), (QStringList{QStringLiteral("hotkey error: Accessibility permissions not granted. Hotkey "
                                                 "registration may fail."),
                                  QStringLiteral("hotkey info: Hotkey registered - keyCode: 49, modifiers: 768")}));
    EXPECT_EQ(desktop.trustPrompts, 0);
}

TEST_F(HotkeyPermission, registerIfPermittedWithoutThePermissionDoesNot) {
    desktop.trusted = false;
    manager.registerIfPermitted();
    EXPECT_EQ(desktop.calls, QStringList{QStringLiteral("isProcessTrusted")});
    EXPECT_EQ(log(), QStringList{QStringLiteral(
                         "permissions default: No accessibility permission, hotkey registration skipped")});
}

TEST_F(HotkeyPermission, registerIfPermittedWithoutThePermissionLeavesARegistrationAsItIs) {
    manager.registerHotkey(12, 0x100);
    const auto before = manager.hotKeyRef;
    desktop.trusted = false;
    manager.registerIfPermitted();
    EXPECT_EQ(manager.hotKeyRef, before);
    EXPECT_EQ(desktop.hotKeys.size(), 1U);
}

TEST_F(HotkeyPermission, registerIfPermittedWithThePermissionDropsTheOldAndRegistersTheStored) {
    manager.registerHotkey(12, 0x100);
    capture.clear();
    manager.registerIfPermitted();
    EXPECT_EQ(log(), (QStringList{QStringLiteral("permissions info: Permission already granted, registering hotkey"),
                                  QStringLiteral("hotkey debug: Hotkey unregistered"),
                                  QStringLiteral("hotkey info: Hotkey registered - keyCode: 49, modifiers: 768")}));
    ASSERT_EQ(desktop.hotKeys.size(), 1U);
    EXPECT_EQ(desktop.hotKeys.begin()->second.keyCode, 49U);
}

TEST_F(HotkeyPermission, requestWithoutThePermissionAsksTheUserAndWaits) {
    desktop.trusted = false;
    manager.requestPermissionAndRegister();
    EXPECT_EQ(desktop.trustPrompts, 1);
    EXPECT_TRUE(desktop.hotKeys.empty());
    EXPECT_EQ(log(), (QStringList{
                         QStringLiteral("permissions info: Requesting accessibility permission via system dialog"),
                         QStringLiteral("permissions default: Permission not granted yet, waiting for user action")}));
}

TEST_F(HotkeyPermission, requestWithThePermissionRegistersAtOnce) {
    manager.requestPermissionAndRegister();
    EXPECT_EQ(log(),
              (QStringList{QStringLiteral("permissions info: Requesting accessibility permission via system dialog"),
                           QStringLiteral("permissions info: Permission granted: Accessibility"),
                           QStringLiteral("hotkey info: Hotkey registered - keyCode: 49, modifiers: 768")}));
    EXPECT_EQ(desktop.calls.value(0), QStringLiteral("isProcessTrusted prompt"));
    EXPECT_EQ(desktop.hotKeys.size(), 1U);
}

} // namespace
} // namespace Quillstacks
