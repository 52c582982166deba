#include "foundation/MainQueue.h"
#include "hotkey/HotkeyFixture.h"

namespace Quillstacks {

namespace {

constexpr HotKeys::Status parameterMissing = -9870;

class HotkeyPress : public HotkeyFixture {
protected:
    void SetUp() override {
        manager.onHotkeyPressed = [this] { ++presses; };
        manager.registerHotkey();
    }
    int presses = 0;
};

TEST_F(HotkeyPress, reachesTheCallbackOnTheNextTurnOfTheMainLoop) {
    EXPECT_EQ(desktop.press(), HotKeys::noErr);
    EXPECT_EQ(presses, 0);
    turn();
    EXPECT_EQ(presses, 1);
}

TEST_F(HotkeyPress, whileTheCallbackIsEmptyDoesNothingAndStillCountsAsHandled) {
    manager.onHotkeyPressed = nullptr;
    EXPECT_EQ(desktop.press(), HotKeys::noErr);
    turn();
    EXPECT_EQ(presses, 0);
}

TEST_F(HotkeyPress, theCallbackIsReadWhenTheBlockRunsNotWhenTheEventComes) {
    std::ignore = desktop.press();
    int others = 0;
    manager.onHotkeyPressed = [&others] { ++others; };
    turn();
    EXPECT_EQ(presses, 0);
    EXPECT_EQ(others, 1);
}

TEST_F(HotkeyPress, whoseIdentifierCannotBeReadIsConsumedWithoutACall) {
    EXPECT_EQ(desktop.press(parameterMissing), HotKeys::noErr);
    turn();
    EXPECT_EQ(presses, 0);
}

TEST_F(HotkeyPress, ofAnyIdentifierCounts) {
    EXPECT_EQ(desktop.press(HotKeys::Event{.hotKeyID = {.signature = 1, .id = 77}, .time = 5}), HotKeys::noErr);
    turn();
    EXPECT_EQ(presses, 1);
}

TEST_F(HotkeyPress, withoutUserDataIsNotHandled) {
    EXPECT_EQ(HotkeyManager::handleEvent(nullptr, HotKeys::Event()), -9874);
    turn();
    EXPECT_EQ(presses, 0);
}

TEST_F(HotkeyPress, thatIsUnderWayWhenTheManagerGoesIsDropped) {
    auto passing = std::make_unique<HotkeyManager>();
    passing->onHotkeyPressed = [this] { ++presses; };
    passing->registerHotkey();
    std::ignore = desktop.press();
    passing.reset();
    turn();
    EXPECT_EQ(presses, 0);
}

TEST_F(HotkeyPress, aCallbackMayReplaceItself) {
    manager.onHotkeyPressed = [this] {
        manager.onHotkeyPressed = nullptr;
        ++presses;
    };
    std::ignore = desktop.press();
    std::ignore = desktop.press();
    turn();
    EXPECT_EQ(presses, 1);
}

TEST_F(HotkeyPress, takesTwoTurnsToAClosureThatHopsAsTheStartOfTheProgramInstallsIt) {
    QStringList steps;
    manager.onHotkeyPressed = [&] {
        steps << QStringLiteral("called");
        MainQueue::async(nullptr, [&steps] { steps << QStringLiteral("toggled"); });
    };
    std::ignore = desktop.press();
    steps << QStringLiteral("handled");
    MainQueue::async(nullptr, [&steps] { steps << QStringLiteral("end of the first turn"); });
    turn();
    EXPECT_EQ(steps, (QStringList{QStringLiteral("handled"), QStringLiteral("called"),
                                  QStringLiteral("end of the first turn"), QStringLiteral("toggled")}));
}

} // namespace
} // namespace Quillstacks
