#include "upkeep/PreferencesMigrationManager.h"

#include "support/LogCapture.h"
#include "support/TestPreferences.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

class PreferencesMigration : public testing::Test {
protected:
    void migrate() {
        log.clear();
        PreferencesMigrationManager::shared().migrateIfNeeded();
    }
    TestPreferences preferences;
    LogCapture log;
};

TEST_F(PreferencesMigration, anEmptyDomainIsReportedKeyByKeyInOrderAndMarked) {
    migrate();
    const QStringList expected = {
        QStringLiteral("general info: Checking preferences (bundle ID: app.Quillstacks)"),
        QStringLiteral("general debug: Preference 'globalHotkeyModifiers' not found (will use defaults)"),
        QStringLiteral("general debug: Preference 'globalHotkeyKeyCode' not found (will use defaults)"),
        QStringLiteral("general debug: Preference 'appearanceMode' not found (will use defaults)"),
        QStringLiteral("general debug: Preference 'automaticallyCheckForUpdates' not found (will use defaults)"),
        QStringLiteral("general debug: Preference 'automaticallyDownloadUpdates' not found (will use defaults)"),
        QStringLiteral("general debug: Preference 'versionHistoryLimit' not found (will use defaults)"),
        QStringLiteral("general debug: Preference 'showSplashScreen' not found (will use defaults)"),
        QStringLiteral("general debug: Preference 'launchAtLogin' not found (will use defaults)"),
        QStringLiteral("general info: Preferences check completed"),
    };
    EXPECT_EQ(log.lines(), expected);
    EXPECT_EQ(preferences->boolean(QStringLiteral("PreferencesMigrationCompleted_v3")), true);
}

TEST_F(PreferencesMigration, aSecondStartLogsTheAlreadyCompletedLineAndNothingElse) {
    migrate();
    migrate();
    EXPECT_EQ(log.lines(),
              QStringList{QStringLiteral("general debug: Preferences migration check already completed, skipping")});
}

TEST_F(PreferencesMigration, aStoredPreferenceIsReportedWithoutItsValue) {
    preferences->set(QStringLiteral("appearanceMode"), QStringLiteral("a secret"));
    migrate();
    EXPECT_TRUE(log.contains(QStringLiteral("Preference 'appearanceMode' exists with value")));
    EXPECT_TRUE(log.contains(QStringLiteral("Preference 'globalHotkeyKeyCode' not found (will use defaults)")));
    EXPECT_FALSE(log.lines().join(QLatin1Char('\n')).contains(QStringLiteral("secret")));
}

TEST_F(PreferencesMigration, oddity_despiteItsNameItMovesNothing) {
    preferences->set(QStringLiteral("versionHistoryLimit"), qint64(7));
    preferences->set(QStringLiteral("launchAtLogin"), QStringLiteral("unread"));
    migrate();
    EXPECT_EQ(preferences->integer(QStringLiteral("versionHistoryLimit")), 7);
    EXPECT_EQ(preferences->text(QStringLiteral("launchAtLogin")), QStringLiteral("unread"));
    EXPECT_FALSE(preferences->contains(QStringLiteral("appearanceMode")));
}

TEST_F(PreferencesMigration, aMarkerOfAnotherTypeReadsAsUnset) {
    preferences->set(QStringLiteral("PreferencesMigrationCompleted_v3"), QStringLiteral("true"));
    migrate();
    EXPECT_TRUE(log.contains(QStringLiteral("Preferences check completed")));
    EXPECT_EQ(preferences->boolean(QStringLiteral("PreferencesMigrationCompleted_v3")), true);
}

TEST_F(PreferencesMigration, theMarkerIsOnDiskAtOnce) {
    migrate();
    EXPECT_TRUE(preferences.fileContents().contains("PreferencesMigrationCompleted_v3"));
}

TEST_F(PreferencesMigration, afterTheDomainIsRemovedTheCheckRunsAgain) {
    migrate();
    preferences->removePersistentDomain();
    migrate();
    EXPECT_TRUE(log.contains(QStringLiteral("Preferences check completed")));
}

} // namespace
} // namespace Quillstacks
