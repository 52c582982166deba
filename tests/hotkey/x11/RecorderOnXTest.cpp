#include "hotkey/HotkeyManager.h"
#include "hotkey/HotkeyPreferences.h"
#include "hotkey/HotkeySettingsView.h"
#include "interface/Button.h"
#include "platform/linux/Tool.h"
#include "support/TestPreferences.h"

#include <QTest>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

constexpr int keyA = 38; ///< X key codes, as those of Key
constexpr int keyK = 45;

/// The settings of the hot key in a real window, typed into by a real keyboard as far as the X server can tell.
class RecorderOnX : public testing::Test {
protected:
    RecorderOnX() {
        HotkeyManager::shared().onHotkeyPressed = [this] { ++presses; };
        HotkeyManager::shared().registerIfPermitted();
        view.show();
        view.activateWindow();
    }
    ~RecorderOnX() override {
        HotkeyManager::shared().unregister();
        HotkeyManager::shared().onHotkeyPressed = {};
    }
    void record() {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
        view.findChild<Button*>()->click();
        ASSERT_TRUE(view.isRecording());
    }
    /// Longer than the restore step and the keyboard's delay before it repeats.
    static void wait() { QTest::qWait(1500); }

    TestPreferences preferences;
    HotkeySettingsView view;
    int presses = 0;
};

TEST_F(RecorderOnX, theHotKeyItselfReachesTheRecorderAndOpensNothing) {
    record();
    press({Key::control, Key::shift}, Key::space);
    EXPECT_TRUE(eventually([this] { return !view.isRecording(); }));
    EXPECT_EQ(presses, 0);
    EXPECT_EQ(globalHotkeyKeyCodePreference().value(), 49);
}

TEST_F(RecorderOnX, plainKeysAndTheLetterAAreRefused) {
    record();
    press({}, keyK);
    press({Key::control}, keyA);
    press({Key::shift}, Key::one);
    EXPECT_TRUE(eventually([this] { return !view.isRecording(); }));
    EXPECT_EQ(globalHotkeyKeyCodePreference().value(), 18) << "the first that was none of these";
    EXPECT_EQ(globalHotkeyModifiersPreference().value(), 0x20000);
}

TEST_F(RecorderOnX, aRecordedShortcutThatIsHeldDownDoesNotFireUntilItIsPressedAnew) {
    record();
    keys("keydown", {Key::control, Key::shift, keyK});
    EXPECT_TRUE(eventually([this] { return !view.isRecording(); }));
    wait();
    EXPECT_EQ(presses, 0);
    keys("keyup", {keyK, Key::shift, Key::control});
    press({Key::control, Key::shift}, keyK);
    EXPECT_TRUE(eventually([this] { return presses > 0; }));
    EXPECT_EQ(presses, 1);
}

TEST_F(RecorderOnX, eachModifierIsRecordedAsTheOneThatThenFires) {
    int expected = 0;
    for (const auto& [key, flag] : {std::pair(Key::control, 0x100000), std::pair(Key::super, 0x40000),
                                    std::pair(Key::alt, 0x80000), std::pair(Key::shift, 0x20000)}) {
        record();
        press({key}, keyK);
        EXPECT_TRUE(eventually([this] { return !view.isRecording(); })) << flag;
        EXPECT_EQ(globalHotkeyModifiersPreference().value(), flag);
        EXPECT_EQ(globalHotkeyKeyCodePreference().value(), 40);
        wait();
        press({key}, keyK);
        ++expected;
        EXPECT_TRUE(eventually([&] { return presses == expected; })) << flag;
    }
}

TEST_F(RecorderOnX, anotherLayoutChangesNeitherTheCodeNorThePlace) {
    run(QStringLiteral("setxkbmap"), {QStringLiteral("fr")});
    record();
    press({Key::alt}, keyA); // a Q is printed there
    press({Key::alt}, Key::z);
    EXPECT_TRUE(eventually([this] { return !view.isRecording(); }));
    EXPECT_EQ(globalHotkeyKeyCodePreference().value(), 6);
    run(QStringLiteral("setxkbmap"), {QStringLiteral("us")});
    wait();
    press({Key::alt}, Key::z);
    EXPECT_TRUE(eventually([this] { return presses > 0; }));
}

} // namespace
} // namespace Quillstacks
