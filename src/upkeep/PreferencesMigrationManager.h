#pragma once

#include <QString>
#include <QStringList>

namespace Quillstacks {

/// Looks once at the preferences of an installation and says in the log which of them are set. It changes none of them.
class PreferencesMigrationManager final {
public:
    static PreferencesMigrationManager& shared();

    /// Call it before the store is touched. Never fails.
    void migrateIfNeeded() const;

    const QString migrationCompletedKey = QStringLiteral("PreferencesMigrationCompleted_v3");
    const QStringList keysToMigrate = {
        QStringLiteral("globalHotkeyModifiers"),
        QStringLiteral("globalHotkeyKeyCode"),
        QStringLiteral("appearanceMode"),
        QStringLiteral("automaticallyCheckForUpdates"),
        QStringLiteral("automaticallyDownloadUpdates"),
        QStringLiteral("versionHistoryLimit"),
        QStringLiteral("showSplashScreen"),
        QStringLiteral("launchAtLogin"),
    };

private:
    PreferencesMigrationManager() = default;
    Q_DISABLE_COPY_MOVE(PreferencesMigrationManager)
};

} // namespace Quillstacks
