#include "platform/FakeDesktop.h"

#include "foundation/ManualClock.h"
#include "platform/Clipboard.h"
#include "platform/StatusItem.h"
#include "platform/Windows.h"

#include <QMenu>

#include <gtest/gtest.h>

namespace Quillstacks {

namespace {

TEST(FakeDesktop, freshForgetsWhatWasAsked) {
    Clipboard::setString(QStringLiteral("old"));
    FakeDesktop& desktop = FakeDesktop::fresh();
    EXPECT_TRUE(desktop.calls.isEmpty());
    EXPECT_TRUE(Clipboard::string().isEmpty());
}

TEST(FakeDesktop, theClipboardGivesBackWhatWasPutOnIt) {
    FakeDesktop& desktop = FakeDesktop::fresh();
    Clipboard::clearContents();
    Clipboard::setString(QStringLiteral("text"));
    EXPECT_EQ(desktop.clipboardText, QStringLiteral("text"));
    EXPECT_EQ(desktop.calls, (QStringList{QStringLiteral("clipboard clear"), QStringLiteral("clipboard set")}));
}

TEST(FakeDesktop, settingsTellOfEachChangeOnce) {
    FakeDesktop& desktop = FakeDesktop::fresh();
    int changes = 0;
    QObject context;
    QObject::connect(&DesktopSettings::shared(), &DesktopSettings::changed, &context, [&changes] { ++changes; });
    desktop.setColorScheme(ColorScheme::dark);
    desktop.setColorScheme(ColorScheme::dark);
    desktop.setReducedMotion(true);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(DesktopSettings::shared().colorScheme(), ColorScheme::dark);
    EXPECT_TRUE(DesktopSettings::shared().reducedMotion());
}

TEST(FakeDesktop, aStatusItemAppearsWhenATrayComes) {
    ManualClock clock;
    FakeDesktop& desktop = FakeDesktop::fresh();
    desktop.trayAvailable = false;
    QMenu menu;
    StatusItem item(QStringLiteral("Quillstacks"), QIcon(), &menu);
    int without = 0;
    QObject::connect(&item, &StatusItem::noTrayFound, &item, [&without] { ++without; });
    clock.advance(std::chrono::nanoseconds(0));
    EXPECT_EQ(without, 1);
    EXPECT_FALSE(item.isShown());
    desktop.setTrayAvailable(true);
    EXPECT_TRUE(item.isShown());
    EXPECT_EQ(desktop.contentsOf(&item).menu, &menu);
}

TEST(FakeDesktop, compositingIsToldToWhoeverIsAlive) {
    FakeDesktop& desktop = FakeDesktop::fresh();
    int alive = 0;
    int gone = 0;
    QObject context;
    Windows::observeComposited(&context, [&alive] { ++alive; });
    {
        QObject passing;
        Windows::observeComposited(&passing, [&gone] { ++gone; });
    }
    desktop.setComposited(false);
    EXPECT_FALSE(Windows::isComposited());
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(gone, 0);
}

} // namespace
} // namespace Quillstacks
