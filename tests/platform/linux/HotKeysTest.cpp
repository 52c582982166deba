#include "HotKeysFixture.h"
#include "platform/Accessibility.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>

namespace Quillstacks {

namespace {

using HotKeysOnX11 = HotKeysFixture;

constexpr quint16 lock = XCB_MOD_MASK_LOCK;
constexpr quint16 numLock = XCB_MOD_MASK_2;
constexpr quint16 controlShift = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT;

/// Counts how often the server says that a key went down, repeats included.
class RawPresses final : public QAbstractNativeEventFilter {
public:
    explicit RawPresses(int key) : wanted(key) { QCoreApplication::instance()->installNativeEventFilter(this); }
    bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override {
        const auto* event = static_cast<const xcb_key_press_event_t*>(message);
        if ((event->response_type & 0x7f) == XCB_KEY_PRESS && event->detail == wanted)
            ++count;
        return false;
    }
    int count = 0;

private:
    int wanted = 0;
};

TEST_F(HotKeysOnX11, aPressFiresOnceWithItsIdentifierAndTheServersTime) {
    ASSERT_EQ(add(space, commandShift, 5), HotKeys::noErr);
    press({Key::control, Key::shift}, Key::space);
    ASSERT_TRUE(eventually([this] { return presses == 1; }));
    EXPECT_EQ(last.hotKeyID, (HotKeys::EventHotKeyID{.signature = 0x51, .id = 5}));
    EXPECT_EQ(last.parameterStatus, HotKeys::noErr);
    EXPECT_NE(last.time, 0U);
    EXPECT_EQ(HotKeys::takeEventTime(), last.time);
    EXPECT_EQ(HotKeys::takeEventTime(), 0U) << "it is good for one window";
    const quint32 first = last.time;
    press({Key::control, Key::shift}, Key::space);
    ASSERT_TRUE(eventually([this] { return presses == 2; }));
    EXPECT_GT(last.time, first);
}

TEST_F(HotKeysOnX11, eachModifierIsTheKeyThatStandsForIt) {
    const std::vector<std::pair<quint32, int>> modifiers = {{HotKeys::commandBit, Key::control},
                                                            {HotKeys::controlBit, Key::super},
                                                            {HotKeys::optionBit, Key::alt},
                                                            {HotKeys::shiftBit, Key::shift}};
    int expected = 0;
    for (const auto& [bit, key] : modifiers) {
        ASSERT_EQ(add(z, bit), HotKeys::noErr);
        for (const auto& [otherBit, otherKey] : modifiers)
            press({otherKey}, Key::z);
        EXPECT_EQ(pressesSoFar(), ++expected) << bit;
        removeLast();
    }
}

TEST_F(HotKeysOnX11, otherKeysAndOtherModifiersDoNotFire) {
    ASSERT_EQ(add(space, commandShift), HotKeys::noErr);
    press({Key::control}, Key::space);
    press({Key::shift}, Key::space);
    press({Key::control, Key::shift, Key::alt}, Key::space);
    press({Key::control, Key::shift}, Key::one);
    EXPECT_EQ(pressesSoFar(), 0);
}

TEST_F(HotKeysOnX11, firesWhateverTheLockKeysAre) {
    ASSERT_EQ(add(space, commandShift), HotKeys::noErr);
    run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Num_Lock")});
    press({Key::control, Key::shift}, Key::space);
    EXPECT_EQ(pressesSoFar(), 1) << "num lock";
    run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Caps_Lock")});
    press({Key::control, Key::shift}, Key::space);
    EXPECT_EQ(pressesSoFar(), 2) << "num lock and caps lock";
    run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Num_Lock")});
    press({Key::control, Key::shift}, Key::space);
    EXPECT_EQ(pressesSoFar(), 3) << "caps lock";
    run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Caps_Lock")});
}

TEST_F(HotKeysOnX11, aKeyThatIsHeldDownAndRepeatsFiresOnce) {
    ASSERT_EQ(add(space, commandShift), HotKeys::noErr);
    run(QStringLiteral("xset"),
        {QStringLiteral("r"), QStringLiteral("rate"), QStringLiteral("100"), QStringLiteral("50")});
    RawPresses raw(Key::space);
    keys("keydown", {Key::control, Key::shift, Key::space});
    EXPECT_TRUE(eventually([&raw] { return raw.count > 5; })) << "the key does not repeat";
    keys("keyup", {Key::space, Key::shift, Key::control});
    EXPECT_EQ(pressesSoFar(), 1);
    press({Key::control, Key::shift}, Key::space);
    EXPECT_EQ(pressesSoFar(), 2) << "after its release it fires again";
    run(QStringLiteral("xset"), {QStringLiteral("r"), QStringLiteral("rate")});
}

TEST_F(HotKeysOnX11, aCombinationThatAnotherProgramHoldsIsRefusedAndNothingStaysGrabbed) {
    ASSERT_TRUE(other.grab(Key::space, controlShift | lock | numLock));
    EXPECT_EQ(add(space, commandShift), HotKeys::eventHotKeyExistsErr);
    OtherClient third;
    for (const quint16 modifiers : {controlShift, quint16(controlShift | lock), quint16(controlShift | numLock)})
        EXPECT_TRUE(third.couldGrab(Key::space, modifiers)) << modifiers;
    other.ungrab(Key::space, controlShift | lock | numLock);
    EXPECT_EQ(add(space, commandShift), HotKeys::noErr);
}

TEST_F(HotKeysOnX11, aRegisteredCombinationIsOursUnderEveryLockAndFreeAfterwards) {
    ASSERT_EQ(add(space, commandShift), HotKeys::noErr);
    const std::vector<quint16> locks = {0, lock, numLock, lock | numLock};
    for (const quint16 state : locks)
        EXPECT_FALSE(other.couldGrab(Key::space, controlShift | state)) << state;
    EXPECT_TRUE(other.couldGrab(Key::space, XCB_MOD_MASK_CONTROL));
    removeLast();
    for (const quint16 state : locks)
        EXPECT_TRUE(other.couldGrab(Key::space, controlShift | state)) << state;
    press({Key::control, Key::shift}, Key::space);
    EXPECT_EQ(pressesSoFar(), 0);
}

TEST_F(HotKeysOnX11, aKeyCodeWithoutAKeyIsRefused) {
    for (const quint32 code : {52U, 55U, 127U, 128U, 0xFFFFFFFFU})
        EXPECT_EQ(add(code, commandShift), HotKeys::eventHotKeyInvalidErr) << code;
}

TEST_F(HotKeysOnX11, unregisteringWhatIsNotRegisteredDoesNothing) {
    HotKeys::unregisterEventHotKey(0);
    HotKeys::unregisterEventHotKey(123456);
    EXPECT_EQ(pressesSoFar(), 0);
}

TEST_F(HotKeysOnX11, underAWaylandSessionNothingIsGrabbedAlthoughAnXServerIsThere) {
    const auto expectRefusal = [this] {
        HotKeys::HotKeyRef ref = 0;
        std::optional<HotKeys::Status> answer;
        EXPECT_EQ(HotKeys::registerEventHotKey(space, commandShift, {.signature = 0x51, .id = 1}, &ref,
                                               [&answer](HotKeys::Status status) { answer = status; }),
                  HotKeys::answerPending);
        EXPECT_TRUE(eventually([&answer] { return answer.has_value(); }));
        EXPECT_EQ(answer, HotKeys::eventHotKeyInvalidErr) << "this desktop has no portal";
        EXPECT_FALSE(HotKeys::isSupported());
        EXPECT_FALSE(Accessibility::isProcessTrusted(false));
        press({Key::control, Key::shift}, Key::space);
        EXPECT_EQ(pressesSoFar(), 0);
        HotKeys::unregisterEventHotKey(ref);
    };
    const QByteArray type = qgetenv("XDG_SESSION_TYPE");
    qputenv("XDG_SESSION_TYPE", "wayland");
    expectRefusal();
    qputenv("XDG_SESSION_TYPE", type);
    qputenv("WAYLAND_DISPLAY", "wayland-0");
    expectRefusal();
    qunsetenv("WAYLAND_DISPLAY");
    EXPECT_TRUE(HotKeys::isSupported());
    EXPECT_TRUE(Accessibility::isProcessTrusted(false));
    EXPECT_EQ(add(space, commandShift), HotKeys::noErr);
}

} // namespace
} // namespace Quillstacks
