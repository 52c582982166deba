#pragma once

#include "OtherClient.h"
#include "platform/HotKeys.h"
#include "Tool.h"

#include <QScopeGuard>

#include <gtest/gtest.h>

namespace Quillstacks {

/// Counts the presses of the hot keys that it registers.
class HotKeysFixture : public testing::Test {
protected:
    static constexpr quint32 space = 49;
    static constexpr quint32 z = 6;
    static constexpr quint32 f9 = 101;
    static constexpr quint32 commandShift = HotKeys::commandBit | HotKeys::shiftBit;
    static constexpr quint32 endMark = 77; ///< the identifier of the key that marks an end

    void SetUp() override {
        handler = HotKeys::installEventHandler([this](const HotKeys::Event& event) {
            (event.hotKeyID.id == endMark ? marks : presses) += 1;
            last = event;
            return HotKeys::noErr;
        });
        ASSERT_EQ(add(f9, 0, endMark), HotKeys::noErr);
    }
    void TearDown() override {
        for (const HotKeys::HotKeyRef ref : refs)
            HotKeys::unregisterEventHotKey(ref);
        HotKeys::removeEventHandler(handler);
    }

    HotKeys::Status add(quint32 keyCode, quint32 modifiers, quint32 id = 1) {
        HotKeys::HotKeyRef ref = 0;
        const auto status = HotKeys::registerEventHotKey(keyCode, modifiers, {.signature = 0x51, .id = id}, &ref);
        if (status == HotKeys::noErr)
            refs.push_back(ref);
        return status;
    }
    void removeLast() {
        HotKeys::unregisterEventHotKey(refs.back());
        refs.pop_back();
    }
    /// How often the hot key fired for everything that was typed up to now. The keys of another hot key, typed after
    /// it, tell that all of it has arrived.
    int pressesSoFar() {
        const int before = marks;
        press({}, Key::f9);
        EXPECT_TRUE(eventually([&] { return marks > before; }));
        return presses;
    }

    HotKeys::HandlerRef handler = 0;
    std::vector<HotKeys::HotKeyRef> refs;
    int presses = 0;
    int marks = 0;
    HotKeys::Event last;
    OtherClient other;
};

} // namespace Quillstacks
