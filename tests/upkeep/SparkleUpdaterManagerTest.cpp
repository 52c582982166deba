#include "upkeep/SparkleUpdaterManager.h"

#include "foundation/Clock.h"
#include "UpdatesFixture.h"

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;

class UpdaterManager : public UpdatesFixture {};

TEST_F(UpdaterManager, startsWithItsInitialValues) {
    launch();
    EXPECT_FALSE(manager->isCheckingForUpdates());
    EXPECT_FALSE(manager->updateAvailable());
    EXPECT_FALSE(manager->updateInProgress());
    EXPECT_EQ(manager->lastUpdateCheckDate(), std::nullopt);
    EXPECT_EQ(manager->errorMessage(), std::nullopt);
    EXPECT_TRUE(updater().automaticallyChecksForUpdates());
    EXPECT_FALSE(updater().automaticallyDownloadsUpdates());
}

TEST_F(UpdaterManager, theFeedHasItsPathBelowTheOrigin) {
    launch();
    EXPECT_EQ(manager->feedURLString(), QStringLiteral("https://example.org/updater/appcast.xml"));
    launch({QStringLiteral("https://example.org/"), QByteArray(32, 'k')});
    EXPECT_EQ(manager->feedURLString(), QStringLiteral("https://example.org/updater/appcast.xml"));
}

TEST_F(UpdaterManager, aFailedStartIsToldAndTheProgramGoesOnWithoutUpdates) {
    testing::internal::CaptureStdout();
    launch({});
    const std::string output = testing::internal::GetCapturedStdout();
    EXPECT_EQ(manager->errorMessage(), QStringLiteral("Failed to start Sparkle updater: This build of Quillstacks "
                                                      "names no place to get updates from."));
    EXPECT_TRUE(QString::fromStdString(output).startsWith(QStringLiteral("Failed to start Sparkle updater: ")));
    EXPECT_TRUE(QString::fromStdString(output).contains(QStringLiteral("noOrigin")));
    EXPECT_EQ(output.find('\n'), output.size() - 1);
    pass(10 * 24h);
    EXPECT_EQ(fetches(), 0);
}

TEST_F(UpdaterManager, whatElseKeepsItFromStarting) {
    const auto failure = [this](const UpdateOrigin& origin) {
        testing::internal::CaptureStdout();
        launch(origin);
        testing::internal::GetCapturedStdout();
        return manager->errorMessage().value_or(QString());
    };
    const QByteArray key(32, 'k');
    EXPECT_TRUE(failure({QStringLiteral("http://example.org"), key}).contains(QStringLiteral("not secure")));
    EXPECT_TRUE(failure({QStringLiteral("https://example.org"), {}}).contains(QStringLiteral("no key")));
    EXPECT_TRUE(failure({QStringLiteral("https://example.org"), "short"}).contains(QStringLiteral("no key")));
    desktop.updateKeeper = QStringLiteral("Flatpak");
    EXPECT_TRUE(failure({QStringLiteral("https://example.org"), key}).contains(QStringLiteral("by Flatpak")));
    EXPECT_EQ(fetches(), 0);
}

TEST_F(UpdaterManager, withoutAnOriginACheckTellsSoAndEndsAsOneThatFoundNothing) {
    testing::internal::CaptureStdout();
    launch({});
    testing::internal::GetCapturedStdout();
    manager->checkForUpdates();
    EXPECT_TRUE(manager->isCheckingForUpdates());
    pass();
    EXPECT_TRUE(alert().contains(QStringLiteral("This build of Quillstacks names no place to get updates from.")));
    EXPECT_FALSE(manager->isCheckingForUpdates());
    EXPECT_EQ(manager->lastUpdateCheckDate(), Clock::now());
    EXPECT_EQ(manager->errorMessage(), std::nullopt);
    EXPECT_EQ(fetches(), 0);
}

TEST_F(UpdaterManager, aSecondPressWhileACheckRunsDoesNothing) {
    launch();
    desktop.fetchAnswer = {};
    check();
    int changes = 0;
    QObject::connect(manager.get(), &SparkleUpdaterManager::changed, manager.get(), [&changes] { ++changes; });
    check();
    EXPECT_EQ(fetches(), 1);
    EXPECT_EQ(changes, 0);
}

TEST_F(UpdaterManager, aPressWhileAnUpdateIsInProgressDoesNothing) {
    launch();
    manager->setUpdateInProgress(true);
    check();
    EXPECT_EQ(fetches(), 0);
    EXPECT_FALSE(manager->isCheckingForUpdates());
}

TEST_F(UpdaterManager, aCheckThatFindsNothingSetsTheDateAndClearsTheSpinner) {
    launch();
    clock.advance(1s);
    manager->checkForUpdates();
    EXPECT_TRUE(manager->isCheckingForUpdates());
    pass();
    EXPECT_FALSE(manager->isCheckingForUpdates());
    EXPECT_FALSE(manager->updateAvailable());
    EXPECT_EQ(manager->lastUpdateCheckDate(), Clock::now());
    EXPECT_EQ(manager->errorMessage(), std::nullopt);
}

TEST_F(UpdaterManager, oddity_aCheckThatFindsAnUpdateLeavesTheSpinnerAndTheDisabledButton) {
    launch();
    publish({feedItem({})});
    check();
    EXPECT_TRUE(manager->isCheckingForUpdates());
    EXPECT_FALSE(manager->updateAvailable());
    EXPECT_FALSE(manager->updateInProgress());
    EXPECT_EQ(manager->lastUpdateCheckDate(), std::nullopt);
}

TEST_F(UpdaterManager, oddity_aCheckThatFailsLeavesThemToo) {
    launch();
    failWith(UpdateError::Case::badStatus);
    check();
    EXPECT_TRUE(manager->isCheckingForUpdates());
    EXPECT_EQ(manager->errorMessage(), std::nullopt);
}

TEST_F(UpdaterManager, oddity_anAutomaticCheckThatFindsNothingClearsTheSpinnerOfAnEarlierOne) {
    launch();
    publish({feedItem({})});
    check();
    ASSERT_TRUE(manager->isCheckingForUpdates());
    publish({});
    pass(24h);
    EXPECT_FALSE(manager->isCheckingForUpdates());
    EXPECT_EQ(manager->lastUpdateCheckDate(), Clock::now());
}

TEST_F(UpdaterManager, whenAllPreferencesAreRemovedBothChoicesAreWhatTheyWereAtFirst) {
    launch();
    preferences->set(QStringLiteral("automaticallyCheckForUpdates"), false);
    preferences->set(QStringLiteral("automaticallyDownloadUpdates"), true);
    EXPECT_FALSE(updater().automaticallyChecksForUpdates());
    EXPECT_TRUE(updater().automaticallyDownloadsUpdates());
    preferences->removePersistentDomain();
    EXPECT_TRUE(updater().automaticallyChecksForUpdates());
    EXPECT_FALSE(updater().automaticallyDownloadsUpdates());
}

TEST_F(UpdaterManager, oddity_eachLaunchTurnsAutomaticChecksOnWhateverIsStored) {
    preferences->set(QStringLiteral("automaticallyCheckForUpdates"), false);
    launch();
    EXPECT_TRUE(updater().automaticallyChecksForUpdates());
    EXPECT_EQ(preferences->boolean(QStringLiteral("automaticallyCheckForUpdates")), false)
        << "the settings write it when they are opened";
}

} // namespace
} // namespace Quillstacks
