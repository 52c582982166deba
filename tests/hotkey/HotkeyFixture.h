#pragma once

#include "foundation/ManualClock.h"
#include "hotkey/HotkeyManager.h"
#include "hotkey/HotkeyPreferences.h"
#include "platform/FakeDesktop.h"
#include "support/LogCapture.h"
#include "support/TestPreferences.h"

#include <gtest/gtest.h>

namespace Quillstacks {

/// A manager on a fresh fake desktop with empty preferences.
class HotkeyFixture : public testing::Test {
protected:
    /// Runs what was put off to the next turn of the main loop.
    void turn() { clock.advance(std::chrono::nanoseconds(0)); }
    [[nodiscard]] QStringList log() const { return capture.lines(); }

    ManualClock clock;
    TestPreferences preferences;
    LogCapture capture;
    FakeDesktop& desktop = FakeDesktop::fresh();
    HotkeyManager manager;
};

} // namespace Quillstacks
