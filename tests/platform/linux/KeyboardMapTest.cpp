#include "HotKeysFixture.h"

namespace Quillstacks {

namespace {

void setLayout(const char* layout) {
    run(QStringLiteral("setxkbmap"), {QString::fromLatin1(layout)});
}

void changeModifiers(const char* expression) {
    run(QStringLiteral("xmodmap"), {QStringLiteral("-e"), QString::fromLatin1(expression)});
}

class KeyboardMap : public HotKeysFixture {
protected:
    void TearDown() override {
        setLayout("us");
        HotKeysFixture::TearDown();
    }
    /// Runs the main loop until our grab stands for these modifiers.
    bool weHold(int key, quint16 modifiers) {
        return eventually([&] { return !other.couldGrab(key, modifiers); });
    }
};

TEST_F(KeyboardMap, aChangeOfTheLayoutKeepsTheHotKeyAtItsPlace) {
    ASSERT_EQ(add(z, commandShift), HotKeys::noErr);
    int expected = 0;
    for (const char* layout : {"de", "us", "fr", "us"}) {
        setLayout(layout);
        ASSERT_TRUE(weHold(Key::z, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT));
        press({Key::control, Key::shift}, Key::z);
        EXPECT_EQ(pressesSoFar(), ++expected) << layout;
    }
}

TEST_F(KeyboardMap, registeringUnderAnotherLayoutTakesTheSamePlace) {
    setLayout("de");
    ASSERT_EQ(add(z, commandShift), HotKeys::noErr);
    press({Key::control, Key::shift}, Key::z);
    EXPECT_EQ(pressesSoFar(), 1);
}

TEST_F(KeyboardMap, aModifierThatMovesToAnotherBitIsFollowed) {
    ASSERT_EQ(add(z, HotKeys::controlBit), HotKeys::noErr);
    press({Key::super}, Key::z);
    ASSERT_EQ(pressesSoFar(), 1);
    changeModifiers("remove mod4 = Super_L Super_R Hyper_L");
    changeModifiers("clear mod3");
    changeModifiers("add mod3 = Super_L");
    ASSERT_TRUE(weHold(Key::z, XCB_MOD_MASK_3));
    EXPECT_TRUE(other.couldGrab(Key::z, XCB_MOD_MASK_4)) << "the old grab is let go";
    press({Key::super}, Key::z);
    EXPECT_EQ(pressesSoFar(), 2);
}

TEST_F(KeyboardMap, numLockOnAnotherBitIsFollowed) {
    ASSERT_EQ(add(z, commandShift), HotKeys::noErr);
    constexpr quint16 controlShift = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT;
    changeModifiers("clear mod3");
    changeModifiers("clear mod2");
    changeModifiers("add mod3 = Num_Lock");
    ASSERT_TRUE(weHold(Key::z, controlShift | XCB_MOD_MASK_3));
    run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Num_Lock")});
    press({Key::control, Key::shift}, Key::z);
    EXPECT_EQ(pressesSoFar(), 1);
    run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Num_Lock")});
}

TEST_F(KeyboardMap, aModifierThatIsOnNoKeyIsRefusedAndComesBackWithTheMap) {
    changeModifiers("remove mod4 = Super_L Super_R Hyper_L");
    EXPECT_EQ(add(z, HotKeys::controlBit), HotKeys::eventHotKeyInvalidErr);
    setLayout("us");
    ASSERT_TRUE(eventually([this] { return add(z, HotKeys::controlBit) == HotKeys::noErr; }));
    changeModifiers("remove mod4 = Super_L Super_R Hyper_L");
    ASSERT_TRUE(eventually([this] { return other.couldGrab(Key::z, XCB_MOD_MASK_4); }));
    setLayout("us");
    ASSERT_TRUE(weHold(Key::z, XCB_MOD_MASK_4)) << "a registered one is taken again by itself";
    press({Key::super}, Key::z);
    EXPECT_EQ(pressesSoFar(), 1);
}

} // namespace
} // namespace Quillstacks
