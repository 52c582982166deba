#include "SettingsFixture.h"
#include "upkeep/LaunchAtLoginSettingsView.h"

namespace Quillstacks {
namespace {

class SettingsUpkeep : public SettingsFixture {
protected:
    [[nodiscard]] QRect cardOf(const char* name) const {
        const QWidget* card = part(name)->parentWidget();
        return {card->mapTo(&window, QPoint(0, 0)), card->size()};
    }
};

TEST_F(SettingsUpkeep, updatesAndLoginStandSideBySideAtTheEndOfTheGeneralTab) {
    open();
    const QRect updates = cardOf("UpdateSettingsView");
    const QRect login = cardOf("LaunchAtLoginSettingsView");
    EXPECT_EQ(updates.top(), login.top());
    EXPECT_EQ(login.left() - updates.right() - 1, 20);
    EXPECT_EQ(updates.width(), login.width());
    EXPECT_GT(updates.top(), cardOf("AppearanceSettingsView").bottom());
}

TEST_F(SettingsUpkeep, openingTheSettingsReadsTheLoginItemAnew) {
    FakeDesktop::shared().loginItem = true;
    open();
    EXPECT_TRUE(window.findChild<LaunchAtLoginSettingsView*>()->launchAtLogin);
    settings->selectTab(SettingsTab::advanced);
    FakeDesktop::shared().loginItem = false;
    settings->selectTab(SettingsTab::general);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(window.findChild<LaunchAtLoginSettingsView*>()->launchAtLogin);
}

TEST_F(SettingsUpkeep, theLoginLineGoesWithTheSheet) {
    open();
    window.findChild<LaunchAtLoginSettingsView*>()->setLaunchAtLogin(true);
    clock.advance({});
    EXPECT_TRUE(texts(window).contains(QStringLiteral("Quillstacks will start after you log in.")));
    settings->selectTab(SettingsTab::advanced);
    settings->selectTab(SettingsTab::general);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(texts(window).contains(QStringLiteral("Quillstacks will start after you log in.")));
}

} // namespace
} // namespace Quillstacks
