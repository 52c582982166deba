#include "library/ClipboardStep.h"

#include "foundation/ManualClock.h"
#include "interface/ToastManager.h"
#include "platform/FakeDesktop.h"

#include <gtest/gtest.h>

using namespace Quillstacks;
using namespace std::chrono_literals;

TEST(ClipboardStep, clearsTheClipboardBeforeItPutsTheText) {
    FakeDesktop& desktop = FakeDesktop::fresh();
    const ManualClock clock;
    ClipboardStep::copyBody(QStringLiteral("text"));
    EXPECT_EQ(desktop.calls, (QStringList{QStringLiteral("clipboard clear"), QStringLiteral("clipboard set")}));
    EXPECT_EQ(desktop.clipboardText, QStringLiteral("text"));
}

TEST(ClipboardStep, theToastOfABodyStaysForTwoSeconds) {
    FakeDesktop::fresh();
    ManualClock clock;
    ClipboardStep::copyBody(QStringLiteral("text"));
    EXPECT_EQ(ToastManager::shared().message(), QStringLiteral("Copied to clipboard"));
    EXPECT_TRUE(ToastManager::shared().isShowing());
    clock.advance(1999ms);
    EXPECT_TRUE(ToastManager::shared().isShowing());
    clock.advance(1ms);
    EXPECT_FALSE(ToastManager::shared().isShowing());
}

TEST(ClipboardStep, theToastOfAPromptNamesItsTitleAsItStands) {
    FakeDesktop::fresh();
    ManualClock clock;
    ClipboardStep::copyPromptText(QStringLiteral("filled"), QStringLiteral(" %1 \"x\" %2"));
    EXPECT_EQ(ToastManager::shared().message(), QStringLiteral("Copied \" %1 \"x\" %2\" to clipboard"));
    EXPECT_EQ(FakeDesktop::shared().clipboardText, QStringLiteral("filled"));
    clock.advance(2s);
    EXPECT_FALSE(ToastManager::shared().isShowing());
}

TEST(ClipboardStep, keepsEveryCharacter) {
    FakeDesktop& desktop = FakeDesktop::fresh();
    const ManualClock clock;
    const QString text = QStringLiteral(" a\r\nb\rc\u0085d\u2028e\u2029f\u00A0") + QChar(0xFDD0) + QChar(0xFDD1);
    ClipboardStep::copyBody(text);
    EXPECT_EQ(desktop.clipboardText, text);
}
