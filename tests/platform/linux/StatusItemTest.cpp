#include "platform/StatusItem.h"
#include "BusThread.h"
#include "FakeTrayHost.h"
#include "OtherClient.h"
#include "Tool.h"

#include <QMenu>
#include <QPixmap>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace Quillstacks {

namespace {

using TrayHost = BusThread<FakeTrayHost>;

std::unique_ptr<TrayHost> startHost() {
    return std::make_unique<TrayHost>("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher");
}

class StatusItemFixture : public testing::Test {
protected:
    static QIcon icon() {
        QPixmap pixmap(22, 22);
        pixmap.fill(Qt::black);
        return pixmap;
    }

    QMenu menu;
    StatusItem item{QStringLiteral("Quillstacks"), icon(), &menu};
    QSignalSpy none{&item, &StatusItem::noTrayFound};
    QSignalSpy shown{&item, &StatusItem::shown};
};

using StatusItemTest = StatusItemFixture;

TEST_F(StatusItemTest, withoutATrayItSaysSoOnceAndComesWhenAHostComes) {
    EXPECT_TRUE(eventually([this] { return none.size() == 1; }));
    EXPECT_FALSE(item.isShown());
    auto host = startHost();
    EXPECT_TRUE(eventually([&] { return item.isShown() && host->service.registrations == 1; }));
    host.reset();
    EXPECT_TRUE(eventually([this] { return !item.isShown(); }));
    host = startHost();
    EXPECT_TRUE(eventually([&] { return item.isShown() && host->service.registrations >= 1; })) << "comes back";
    EXPECT_EQ(none.size(), 1) << "told once";
    EXPECT_EQ(shown.size(), 2);
}

TEST_F(StatusItemTest, aWatcherWithoutAHostIsNoTray) {
    auto host = startHost();
    host->service.setHost(false);
    EXPECT_TRUE(eventually([this] { return none.size() + shown.size() > 0; }));
    EXPECT_TRUE(eventually([this] { return !item.isShown(); }));
    host->service.setHost(true);
    EXPECT_TRUE(eventually([this] { return item.isShown(); }));
}

// In a program of its own: the toolkit chooses between the two kinds of tray once per process.
class LegacyTray : public StatusItemFixture {};

TEST_F(LegacyTray, anItemGoesIntoATrayOfTheOlderKindHoweverLate) {
    EXPECT_TRUE(eventually([this] { return none.size() == 1; }));
    OtherClient other;
    const xcb_window_t tray = other.makeWindow();
    other.own("_NET_SYSTEM_TRAY_S0", tray);
    EXPECT_TRUE(eventually([this] { return item.isShown(); }));
    EXPECT_TRUE(eventually([&] { return other.hasMessage("_NET_SYSTEM_TRAY_OPCODE"); })) << "asks to be docked";
    other.destroyWindow(tray);
    EXPECT_TRUE(eventually([this] { return !item.isShown(); }));
}

} // namespace
} // namespace Quillstacks
