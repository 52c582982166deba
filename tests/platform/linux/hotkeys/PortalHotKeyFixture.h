#pragma once

#include "FakeShortcutsPortal.h"
#include "hotkeys/PortalHotKeys.h"

#include <QTest>

#include <gtest/gtest.h>

namespace Quillstacks {

using User = FakeShortcutsPortal::User;

inline constexpr quint32 space = 49;
inline constexpr quint32 keyF5 = 96;
inline constexpr quint32 commandShift = HotKeys::commandBit | HotKeys::shiftBit;

template <typename Condition>
bool eventually(Condition condition) {
    return QTest::qWaitFor(condition, 10'000);
}

/// The hot key by a portal that answers as the test says.
class PortalHotKey : public testing::Test {
protected:
    void start() {
        keys = std::make_unique<PortalHotKeys>();
        QObject::connect(keys.get(), &PortalHotKeys::pressed, keys.get(),
                         [this](HotKeys::HotKeyRef ref, quint32 time, const QString& token) {
                             presses << QStringLiteral("%1 %2 %3").arg(ref).arg(time).arg(token);
                         });
    }
    HotKeys::Status grab(HotKeys::HotKeyRef ref = 1, quint32 keyCode = space, quint32 modifiers = commandShift) {
        return keys->grab(ref, keyCode, modifiers, [this](HotKeys::Status status) { answers.push_back(status); });
    }
    void startAndBind() {
        start();
        ASSERT_EQ(grab(), HotKeys::answerPending);
        ASSERT_TRUE(eventually([this] { return answers == std::vector{HotKeys::noErr}; }));
    }
    /// Long enough for what is under way to arrive, where nothing is to come of it that could be waited for.
    void settle() const { QTest::qWait(50); }

    std::unique_ptr<FakeShortcutsPortal> portal = std::make_unique<FakeShortcutsPortal>();
    std::unique_ptr<PortalHotKeys> keys;
    std::vector<HotKeys::Status> answers;
    QStringList presses;
};

} // namespace Quillstacks
