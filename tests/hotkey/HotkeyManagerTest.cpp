#include "hotkey/HotkeyFixture.h"

namespace Quillstacks {

namespace {

const QString keyCodeKey = QStringLiteral("globalHotkeyKeyCode");
const QString modifiersKey = QStringLiteral("globalHotkeyModifiers");

class HotkeyManagerTest : public HotkeyFixture {
protected:
    [[nodiscard]] QStringList registrations() const { return desktop.callsOf(QStringLiteral("registerEventHotKey")); }
    [[nodiscard]] QString lastRegistration() const { return registrations().value(registrations().size() - 1); }
};

TEST_F(HotkeyManagerTest, startsWithNothingInstalled) {
    EXPECT_FALSE(manager.eventHandler);
    EXPECT_FALSE(manager.hotKeyRef);
    EXPECT_FALSE(manager.onHotkeyPressed);
    EXPECT_EQ(manager.hotKeyID, (HotKeys::EventHotKeyID{.signature = 0x5153544B, .id = 1}));
    EXPECT_TRUE(desktop.calls.isEmpty());
}

TEST_F(HotkeyManagerTest, sharedIsOneInstance) {
    EXPECT_EQ(&HotkeyManager::shared(), &HotkeyManager::shared());
}

TEST_F(HotkeyManagerTest, withNoPreferenceStoredRegistersKeyCode49WithModifiers0x300) {
    manager.registerIfPermitted();
    EXPECT_EQ(registrations(), QStringList{QStringLiteral("registerEventHotKey 49 0x300")});
    ASSERT_EQ(desktop.hotKeys.size(), 1U);
    EXPECT_EQ(desktop.hotKeys.begin()->second.id, manager.hotKeyID);
    EXPECT_EQ(manager.hotKeyRef, desktop.hotKeys.begin()->first);
}

TEST_F(HotkeyManagerTest, registersTheStoredShortcutConverted) {
    preferences->set(keyCodeKey, qint64{40});
    preferences->set(modifiersKey, qint64{0x1E0000});
    manager.registerHotkey();
    EXPECT_EQ(lastRegistration(), QStringLiteral("registerEventHotKey 40 0x1b00"));
}

TEST_F(HotkeyManagerTest, aStoredKeyCodeThatIsAStringFallsBackAndTheOtherKeyStillCounts) {
    preferences->set(keyCodeKey, QStringLiteral("40"));
    preferences->set(modifiersKey, qint64{0x80000});
    manager.registerHotkey();
    EXPECT_EQ(lastRegistration(), QStringLiteral("registerEventHotKey 49 0x800"));
}

TEST_F(HotkeyManagerTest, storedModifiersThatAreAStringFallBackAndTheOtherKeyStillCounts) {
    preferences->set(keyCodeKey, qint64{40});
    preferences->set(modifiersKey, QStringLiteral("524288"));
    manager.registerHotkey();
    EXPECT_EQ(lastRegistration(), QStringLiteral("registerEventHotKey 40 0x300"));
}

TEST_F(HotkeyManagerTest, argumentsGoBeforeThePreferencesAndAreTakenAsTheyAre) {
    preferences->set(keyCodeKey, qint64{40});
    preferences->set(modifiersKey, qint64{0x80000});
    manager.registerHotkey(12, 0x1000);
    EXPECT_EQ(lastRegistration(), QStringLiteral("registerEventHotKey 12 0x1000"));
    manager.registerHotkey(12, std::nullopt);
    EXPECT_EQ(lastRegistration(), QStringLiteral("registerEventHotKey 12 0x800"));
    manager.registerHotkey(std::nullopt, 0x200);
    EXPECT_EQ(lastRegistration(), QStringLiteral("registerEventHotKey 40 0x200"));
}

TEST_F(HotkeyManagerTest, neverWritesThePreferences) {
    manager.registerHotkey(12, 0x1000);
    manager.unregister();
    EXPECT_FALSE(preferences->contains(keyCodeKey));
    EXPECT_FALSE(preferences->contains(modifiersKey));
}

TEST_F(HotkeyManagerTest, aRegistrationIsLoggedWithTheHotKeyServicesModifiers) {
    manager.registerHotkey();
    EXPECT_EQ(log(), QStringList{QStringLiteral("hotkey info: Hotkey registered - keyCode: 49, modifiers: 768")});
}

TEST_F(HotkeyManagerTest, aRegistrationStartsCleanSoThatAHandlerIsNeverInstalledTwice) {
    manager.registerHotkey();
    manager.registerHotkey();
    EXPECT_EQ(desktop.handlers.size(), 1U);
    EXPECT_EQ(desktop.hotKeys.size(), 1U);
    EXPECT_EQ(desktop.calls,
              (QStringList{QStringLiteral("isProcessTrusted"), QStringLiteral("installEventHandler"),
                           QStringLiteral("registerEventHotKey 49 0x300"), QStringLiteral("unregisterEventHotKey"),
                           QStringLiteral("removeEventHandler"), QStringLiteral("isProcessTrusted"),
                           QStringLiteral("installEventHandler"), QStringLiteral("registerEventHotKey 49 0x300")}));
}

TEST_F(HotkeyManagerTest, unregisterTwiceInARowLogsHotkeyUnregisteredOnce) {
    manager.registerHotkey();
    capture.clear();
    manager.unregister();
    manager.unregister();
    EXPECT_EQ(log(), QStringList{QStringLiteral("hotkey debug: Hotkey unregistered")});
    EXPECT_TRUE(desktop.hotKeys.empty());
    EXPECT_TRUE(desktop.handlers.empty());
    EXPECT_FALSE(manager.hotKeyRef);
    EXPECT_FALSE(manager.eventHandler);
}

TEST_F(HotkeyManagerTest, aRefusedRegistrationGivesTwoErrorLinesAndKeepsTheHandler) {
    desktop.registerStatus = HotKeys::eventHotKeyExistsErr;
    manager.registerHotkey();
    EXPECT_EQ(log(),
              (QStringList{QStringLiteral("hotkey error: Failed to register hotkey - keyCode: 49, modifiers: 768"),
                           QStringLiteral("hotkey error: RegisterEventHotKey failed with status: -9878")}));
    EXPECT_FALSE(manager.hotKeyRef);
    EXPECT_TRUE(manager.eventHandler);
    EXPECT_EQ(desktop.handlers.size(), 1U);
    EXPECT_EQ(registrations().size(), 1) << "nothing is tried again";
}

TEST_F(HotkeyManagerTest, afterAFailedRegistrationUnregisterLogsNothingAndStillRemovesTheHandler) {
    desktop.registerStatus = HotKeys::eventHotKeyInvalidErr;
    manager.registerHotkey();
    capture.clear();
    manager.unregister();
    EXPECT_TRUE(log().isEmpty());
    EXPECT_TRUE(desktop.handlers.empty());
    EXPECT_FALSE(manager.eventHandler);
}

TEST_F(HotkeyManagerTest, isDestroyedUnregistered) {
    {
        HotkeyManager passing;
        passing.registerHotkey();
        ASSERT_EQ(desktop.hotKeys.size(), 1U);
    }
    EXPECT_TRUE(desktop.hotKeys.empty());
    EXPECT_TRUE(desktop.handlers.empty());
}

using HotkeyManagerDeathTest = HotkeyManagerTest;

TEST_F(HotkeyManagerDeathTest, storedModifiersBelowZeroEndTheProcess) {
    preferences->set(modifiersKey, qint64{-1});
    EXPECT_DEATH(manager.registerHotkey(), "modifiers cannot be converted");
}

TEST_F(HotkeyManagerDeathTest, aStoredKeyCodeBelowZeroEndsTheProcess) {
    preferences->set(keyCodeKey, qint64{-1});
    EXPECT_DEATH(manager.registerHotkey(), "key code cannot be converted");
}

TEST_F(HotkeyManagerDeathTest, aStoredKeyCodeAbove32BitsEndsTheProcess) {
    preferences->set(keyCodeKey, qint64{0x100000000});
    EXPECT_DEATH(manager.registerHotkey(), "key code cannot be converted");
}

TEST_F(HotkeyManagerDeathTest, bothAreReadOnEveryCallEvenWhenBothArgumentsAreGiven) {
    preferences->set(modifiersKey, qint64{-1});
    EXPECT_DEATH(manager.registerHotkey(49, 0x300), "modifiers cannot be converted");
}

TEST_F(HotkeyManagerTest, theGreatestStoredKeyCodeThatFitsIsPassedOn) {
    preferences->set(keyCodeKey, qint64{0xFFFFFFFF});
    manager.registerHotkey();
    EXPECT_EQ(lastRegistration(), QStringLiteral("registerEventHotKey 4294967295 0x300"));
}

} // namespace
} // namespace Quillstacks
