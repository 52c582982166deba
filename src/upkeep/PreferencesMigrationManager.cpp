#include "upkeep/PreferencesMigrationManager.h"

#include "foundation/Log.h"
#include "foundation/Preferences.h"

namespace Quillstacks {

PreferencesMigrationManager& PreferencesMigrationManager::shared() {
    static PreferencesMigrationManager manager;
    return manager;
}

void PreferencesMigrationManager::migrateIfNeeded() const {
    Preferences& preferences = Preferences::standard();
    if (preferences.boolean(migrationCompletedKey).value_or(false)) {
        Log::general.debug(QStringLiteral("Preferences migration check already completed, skipping"));
        return;
    }
    Log::general.info(QStringLiteral("Checking preferences (bundle ID: app.Quillstacks)"));
    for (const QString& key : keysToMigrate) {
        // The value stays out of the log on purpose.
        if (preferences.contains(key))
            Log::general.debug(QStringLiteral("Preference '%1' exists with value").arg(key));
        else
            Log::general.debug(QStringLiteral("Preference '%1' not found (will use defaults)").arg(key));
    }
    preferences.set(migrationCompletedKey, true);
    preferences.synchronize();
    Log::general.info(QStringLiteral("Preferences check completed"));
}

} // namespace Quillstacks
