#include "HotkeySettingsFixture.h"

#include "interface/SymbolImage.h"
#include "support/ShownSymbol.h"
#include "support/Text.h"

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

using HotkeySettings = HotkeySettingsFixture;
using HotkeySettingsDeathTest = HotkeySettingsFixture;

TEST_F(HotkeySettings, saysWhatItIs) {
    open();
    EXPECT_EQ(texts(), QStringList({text("Global Hotkey"),
                                    text("Press a keyboard shortcut to quickly access your prompts from anywhere.")}));
}

TEST_F(HotkeySettings, showsWhatIsStoredAndFollowsIt) {
    preferences->set(QStringLiteral("globalHotkeyKeyCode"), qint64{40});
    preferences->set(QStringLiteral("globalHotkeyModifiers"), qint64{0x80000});
    open();
    EXPECT_EQ(shownShortcut(), text("⌥K"));
    globalHotkeyKeyCodePreference().set(123);
    EXPECT_EQ(shownShortcut(), text("⌥←"));
}

TEST_F(HotkeySettings, aCaptureIsStored) {
    open();
    startRecording();
    strike({KEY_F5, Qt::Key_F5, Qt::ShiftModifier | Qt::AltModifier});
    EXPECT_EQ(preferences->integer(QStringLiteral("globalHotkeyKeyCode")), std::optional<qint64>(96));
    EXPECT_EQ(preferences->integer(QStringLiteral("globalHotkeyModifiers")), std::optional<qint64>(0xA0000));
}

TEST_F(HotkeySettings, everyKeyOfTheKeyboardButAIsStoredByItsCode) {
    open();
    for (const auto& [evdev, code] : {std::pair(KEY_S, 1), std::pair(KEY_102ND, 10), std::pair(KEY_0, 29),
                                      std::pair(KEY_GRAVE, 50), std::pair(KEY_KP0, 82), std::pair(KEY_UP, 126)}) {
        startRecording();
        strike({static_cast<quint32>(evdev), Qt::Key_unknown, Qt::ControlModifier});
        EXPECT_EQ(storedKeyCode(), code);
    }
}

TEST_F(HotkeySettings, afterACaptureTheNewShortcutWorksAtOnceAndIsRegisteredASecondTimeATenthLater) {
    open();
    HotkeyManager::shared().registerHotkey();
    startRecording();
    desktop.calls.clear();
    strike(Strokes::commandK);
    const QString registration = text("registerEventHotKey 40 0x100");
    EXPECT_EQ(registrations(), QStringList({registration}));
    clock.advance(99ms);
    EXPECT_EQ(registrations().size(), 1);
    clock.advance(1ms);
    EXPECT_EQ(registrations(), QStringList({registration, registration}));
    ASSERT_EQ(desktop.hotKeys.size(), 1U);
    EXPECT_EQ(desktop.hotKeys.begin()->second.keyCode, 40U);
    EXPECT_EQ(desktop.hotKeys.begin()->second.modifiers, 0x100U);
}

TEST_F(HotkeySettings, withoutThePermissionACaptureIsStoredAndOnlyTheRestoreStepAttemptsIt) {
    desktop.trusted = false;
    open();
    startRecording();
    desktop.calls.clear();
    strike(Strokes::commandK);
    EXPECT_EQ(storedKeyCode(), 40);
    EXPECT_TRUE(registrations().isEmpty());
    clock.advance(100ms);
    EXPECT_EQ(registrations(), QStringList{text("registerEventHotKey 40 0x100")});
}

TEST_F(HotkeySettings, thePermissionIsAskedForOnAppearingWithoutAPrompt) {
    open();
    EXPECT_TRUE(view->hasAccessibilityPermission());
    EXPECT_EQ(desktop.calls, QStringList{text("isProcessTrusted")});
    EXPECT_EQ(desktop.trustPrompts, 0);
}

TEST_F(HotkeySettings, theAnswerIsTheLastOneThatWasAskedFor) {
    open();
    desktop.trusted = false;
    EXPECT_TRUE(view->hasAccessibilityPermission());
    EXPECT_FALSE(button("Grant Permission"));
    view->hide();
    view->show();
    EXPECT_FALSE(view->hasAccessibilityPermission());
    EXPECT_TRUE(button("Grant Permission"));
}

TEST_F(HotkeySettings, theNoticeShowsOnlyWithoutThePermission) {
    desktop.trusted = false;
    open();
    EXPECT_TRUE(texts().contains(text("Accessibility permission required for global shortcuts")));
    EXPECT_TRUE(showsSymbol(*window.findChild<SymbolImage*>(), text("info.circle.fill"), 16,
                            Theme::shared().color(ColorRole::blue)));
    desktop.trusted = true;
    view->hide();
    view->show();
    EXPECT_FALSE(texts().contains(text("Accessibility permission required for global shortcuts")));
}

TEST_F(HotkeySettings, whereTheDesktopHasNoHotKeysItSaysHowToGetOneAllTheSame) {
    const QString command = text("gapplication action app.Quillstacks quick-access");
    open();
    EXPECT_FALSE(texts().contains(command));
    desktop.hotKeysSupported = false;
    view->hide();
    view->show();
    EXPECT_TRUE(texts().contains(command));
}

TEST_F(HotkeySettingsDeathTest, aNegativeModifiersValueEndsTheProcess) {
    preferences->set(QStringLiteral("globalHotkeyModifiers"), qint64{-1});
    EXPECT_DEATH(HotkeySettingsView(), "stored modifiers cannot be shown: -1");
}

TEST_F(HotkeySettingsDeathTest, aKeyCodeOutOfItsRangeEndsTheProcess) {
    preferences->set(QStringLiteral("globalHotkeyKeyCode"), qint64{-1});
    EXPECT_DEATH(HotkeySettingsView(), "stored key code cannot be shown: -1");
    preferences->set(QStringLiteral("globalHotkeyKeyCode"), qint64{65536});
    EXPECT_DEATH(HotkeySettingsView(), "stored key code cannot be shown: 65536");
}

TEST_F(HotkeySettings, theLargestKeyCodeShowsAsAQuestionMark) {
    preferences->set(QStringLiteral("globalHotkeyKeyCode"), qint64{65535});
    open();
    EXPECT_EQ(shownShortcut(), text("⇧⌘?"));
}

} // namespace
} // namespace Quillstacks
