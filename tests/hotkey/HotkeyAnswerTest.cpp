#include "HotkeyFixture.h"

namespace Quillstacks {
namespace {

class HotkeyAnswer : public HotkeyFixture {
protected:
    HotkeyAnswer() { desktop.hotKeysAnswerLater = true; }
};

const QString registered = QStringLiteral("hotkey info: Hotkey registered - keyCode: 49, modifiers: 768");
const QStringList refused{QStringLiteral("hotkey error: Failed to register hotkey - keyCode: 49, modifiers: 768"),
                          QStringLiteral("hotkey error: RegisterEventHotKey failed with status: -9879")};

TEST_F(HotkeyAnswer, whileItIsPendingNothingIsLoggedAndNothingCountsAsRegistered) {
    manager.registerHotkey();
    EXPECT_TRUE(log().isEmpty());
    EXPECT_FALSE(manager.hotKeyRef);
    EXPECT_TRUE(manager.eventHandler);
}

TEST_F(HotkeyAnswer, theLogLineComesWithTheAnswer) {
    manager.registerHotkey();
    desktop.answerHotKeys(HotKeys::noErr);
    EXPECT_EQ(log(), QStringList{registered});
    EXPECT_TRUE(manager.hotKeyRef);
}

TEST_F(HotkeyAnswer, aRefusalThatComesLaterIsLoggedAsOneThatComesAtOnce) {
    manager.registerHotkey();
    desktop.answerHotKeys(HotKeys::eventHotKeyInvalidErr);
    EXPECT_EQ(log(), refused);
    EXPECT_FALSE(manager.hotKeyRef);
    EXPECT_TRUE(manager.eventHandler);
}

TEST_F(HotkeyAnswer, whatIsGivenAfterARefusalIsRegistered) {
    manager.registerHotkey();
    desktop.answerHotKeys(HotKeys::eventHotKeyInvalidErr);
    desktop.answerHotKeys(HotKeys::noErr);
    EXPECT_TRUE(manager.hotKeyRef);
    EXPECT_EQ(log(), refused + QStringList{registered});
}

TEST_F(HotkeyAnswer, unregisteringBeforeTheAnswerTakesItBackAndLogsNothing) {
    manager.registerHotkey();
    manager.unregister();
    EXPECT_TRUE(desktop.hotKeys.empty());
    EXPECT_TRUE(desktop.handlers.empty());
    EXPECT_TRUE(log().isEmpty());
}

TEST_F(HotkeyAnswer, anAnswerAfterTheManagersEndTouchesNothing) {
    HotKeys::Answer answer;
    {
        HotkeyManager shortLived;
        shortLived.registerHotkey();
        answer = desktop.hotKeyAnswers.begin()->second;
    }
    answer(HotKeys::noErr);
    EXPECT_TRUE(log().isEmpty());
}

} // namespace
} // namespace Quillstacks
