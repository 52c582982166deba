#include "upkeep/UpdateSettingsView.h"

#include "interface/BusyIndicator.h"
#include "interface/Switch.h"
#include "interface/Theme.h"
#include "UpdatesFixture.h"

namespace Quillstacks {
namespace {

class UpdateSettings : public UpdatesFixture {
protected:
    void open() {
        if (!manager)
            launch();
        view = std::make_unique<UpdateSettingsView>(*manager);
        view->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
    }
    [[nodiscard]] Switch* toggle(const char* name) const {
        for (Switch* each : view->findChildren<Switch*>())
            if (each->accessibleName() == QString::fromLatin1(name))
                return each;
        return nullptr;
    }
    [[nodiscard]] Switch* checks() const { return toggle("Automatically check for updates"); }
    [[nodiscard]] Switch* downloads() const { return toggle("Automatically download updates"); }
    [[nodiscard]] Button* button() const { return view->findChild<Button*>(); }
    [[nodiscard]] BusyIndicator* spinner() const { return view->findChild<BusyIndicator*>(); }
    [[nodiscard]] QStringList texts() const {
        QStringList result;
        for (const Label* label : view->findChildren<Label*>())
            if (label->isVisible())
                result += label->text();
        return result;
    }
    [[nodiscard]] Label* label(const char* text) const {
        for (Label* each : view->findChildren<Label*>())
            if (each->text() == QString::fromLatin1(text))
                return each;
        return nullptr;
    }
    /// Whether a stroke of the text has this colour, but for the smoothing of its edges.
    static bool isWrittenIn(QWidget& widget, const QColor& color) {
        constexpr int smoothing = 40;
        const QImage picture = widget.grab().toImage();
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const QColor found = picture.pixelColor(x, y);
                if (std::abs(found.red() - color.red()) + std::abs(found.green() - color.green()) +
                        std::abs(found.blue() - color.blue()) <
                    smoothing)
                    return true;
            }
        return false;
    }
    [[nodiscard]] std::optional<bool> stored(const char* key) { return preferences->boolean(QString::fromLatin1(key)); }

    std::unique_ptr<UpdateSettingsView> view;
};

TEST_F(UpdateSettings, showsItsControlsFromTopToBottom) {
    open();
    EXPECT_EQ(texts(), (QStringList{QStringLiteral("Updates"), QStringLiteral("Automatically check for updates"),
                                    QStringLiteral("Automatically download updates")}));
    EXPECT_EQ(button()->accessibleName(), QStringLiteral("Check for Updates Now"));
    EXPECT_EQ(checks()->toolTip(), QStringLiteral("Check for updates automatically when the app starts"));
    EXPECT_EQ(downloads()->toolTip(), QStringLiteral("Download updates in the background when available"));
    EXPECT_TRUE(checks()->isChecked());
    EXPECT_FALSE(downloads()->isChecked());
    EXPECT_FALSE(spinner()->isVisible());
}

TEST_F(UpdateSettings, withAutomaticChecksOffTheDownloadSwitchIsHiddenButItsStoredValueStays) {
    preferences->set(QStringLiteral("automaticallyDownloadUpdates"), true);
    open();
    EXPECT_TRUE(downloads()->isVisible());
    QTest::mouseClick(checks(), Qt::LeftButton);
    EXPECT_FALSE(downloads()->isVisible());
    EXPECT_EQ(stored("automaticallyCheckForUpdates"), false);
    EXPECT_EQ(stored("automaticallyDownloadUpdates"), true);
    QTest::mouseClick(checks(), Qt::LeftButton);
    EXPECT_TRUE(downloads()->isVisible());
    EXPECT_TRUE(downloads()->isChecked());
}

TEST_F(UpdateSettings, aChangeReachesTheUpdaterAtOnce) {
    open();
    QTest::mouseClick(downloads(), Qt::LeftButton);
    EXPECT_TRUE(updater().automaticallyDownloadsUpdates());
    EXPECT_EQ(stored("automaticallyDownloadUpdates"), true);
    QTest::mouseClick(checks(), Qt::LeftButton);
    EXPECT_FALSE(updater().automaticallyChecksForUpdates());
}

TEST_F(UpdateSettings, aChangeOfThePreferenceFromElsewhereIsShownAndReachesTheUpdater) {
    open();
    preferences->set(QStringLiteral("automaticallyCheckForUpdates"), false);
    EXPECT_FALSE(checks()->isChecked());
    EXPECT_FALSE(updater().automaticallyChecksForUpdates());
}

TEST_F(UpdateSettings, oddity_afterALaunchWithThePreferenceStoredAsFalseTheSwitchIsOn) {
    preferences->set(QStringLiteral("automaticallyCheckForUpdates"), false);
    open();
    EXPECT_TRUE(checks()->isChecked());
    EXPECT_TRUE(downloads()->isVisible());
    EXPECT_EQ(stored("automaticallyCheckForUpdates"), true) << "the preference follows the updater";
}

TEST_F(UpdateSettings, aSwitchTurnedOffStaysOffUntilTheNextLaunch) {
    open();
    QTest::mouseClick(checks(), Qt::LeftButton);
    open();
    EXPECT_FALSE(checks()->isChecked());
    view.reset();
    launch();
    open();
    EXPECT_TRUE(checks()->isChecked());
}

TEST_F(UpdateSettings, openedAfterARestoreItShowsTheDefaults) {
    open();
    QTest::mouseClick(downloads(), Qt::LeftButton);
    QTest::mouseClick(checks(), Qt::LeftButton);
    view.reset();
    preferences->removePersistentDomain();
    open();
    EXPECT_TRUE(checks()->isChecked());
    EXPECT_FALSE(downloads()->isChecked());
    EXPECT_EQ(stored("automaticallyDownloadUpdates"), false);
}

TEST_F(UpdateSettings, theButtonStartsACheckAndIsDisabledWhileItRuns) {
    open();
    QTest::mouseClick(button(), Qt::LeftButton);
    EXPECT_TRUE(manager->isCheckingForUpdates());
    EXPECT_FALSE(button()->isEnabled());
    EXPECT_TRUE(spinner()->isVisible());
    EXPECT_EQ(spinner()->sizeHint(), QSize(19, 19)) << "0.8 of the usual";
    pass();
    EXPECT_EQ(fetches(), 1);
    EXPECT_TRUE(button()->isEnabled());
    EXPECT_FALSE(spinner()->isVisible());
}

TEST_F(UpdateSettings, oddity_aCheckThatFindsAnUpdateLeavesTheSpinnerAndTheDisabledButton) {
    open();
    publish({feedItem({})});
    QTest::mouseClick(button(), Qt::LeftButton);
    pass();
    EXPECT_FALSE(button()->isEnabled());
    EXPECT_TRUE(spinner()->isVisible());
    EXPECT_FALSE(texts().contains(QStringLiteral("Update Available!")));
}

TEST_F(UpdateSettings, theButtonIsDisabledWhileAnUpdateIsInProgressAndNothingTurns) {
    open();
    manager->setUpdateInProgress(true);
    EXPECT_FALSE(button()->isEnabled());
    EXPECT_FALSE(spinner()->isVisible());
}

TEST_F(UpdateSettings, anAvailableUpdateIsSaidInGreen) {
    open();
    manager->setUpdateAvailable(true);
    EXPECT_TRUE(texts().contains(QStringLiteral("Update Available!")));
    EXPECT_TRUE(isWrittenIn(*label("Update Available!"), Theme::shared().color(ColorRole::green)));
    EXPECT_TRUE(button()->isEnabled());
    manager->setUpdateAvailable(false);
    EXPECT_FALSE(texts().contains(QStringLiteral("Update Available!")));
}

} // namespace
} // namespace Quillstacks
