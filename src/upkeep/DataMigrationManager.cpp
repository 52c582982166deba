#include "upkeep/DataMigrationManager.h"

#include "foundation/LocalizedError.h"
#include "foundation/Log.h"
#include "foundation/Preferences.h"
#include "platform/FileError.h"
#include "platform/Files.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

namespace Quillstacks {

DataMigrationManager& DataMigrationManager::shared() {
    static DataMigrationManager manager;
    return manager;
}

void DataMigrationManager::migrateIfNeeded(const QString& target) const {
    if (Preferences::standard().boolean(migrationCompletedKey).value_or(false)) {
        Log::general.debug(QStringLiteral("Data store migration check already completed, skipping"));
        return;
    }
    if (Files::fileExists(target)) {
        Log::general.info(QStringLiteral("Data store already exists at explicit location"));
        Preferences::standard().set(migrationCompletedKey, true);
        return;
    }
    Log::general.info(QStringLiteral("Checking for data store at default SwiftData location"));
    const QStringList directories = Files::applicationSupportDirectories();
    if (directories.isEmpty()) {
        // No marker here: the next start looks again.
        Log::general.error(QStringLiteral("Could not access Application Support directory"));
        return;
    }
    if (copyFirstOldStore(directories.first(), target))
        Log::general.standard(QStringLiteral("Data store migrated successfully to explicit location"));
    else
        Log::general.info(QStringLiteral("No data store found at default locations (starting fresh)"));
    // Also after a store that was found and could not be copied: it is not tried again.
    markCompleted();
}

bool DataMigrationManager::copyFirstOldStore(const QString& supportDirectory, const QString& target) const {
    for (const QString& location : oldLocations) {
        const QString old = supportDirectory + QLatin1Char('/') + location;
        if (!Files::fileExists(old))
            continue;
        Log::general.info(QStringLiteral("Found data store at default location: ") + location);
        if (copyStore(old, target)) {
            copySideFiles(old, target);
            return true;
        }
    }
    return false;
}

bool DataMigrationManager::copyStore(const QString& old, const QString& target) {
    try {
        Files::createDirectory(QFileInfo(target).path());
        setOrphansAside(target);
        Files::copyItem(old, target);
        return true;
    } catch (const std::exception& error) {
        Log::general.error(QStringLiteral("Failed to migrate data store: ") + localizedDescription(error));
        return false;
    }
}

void DataMigrationManager::setOrphansAside(const QString& target) {
    for (const QString& suffix : {QStringLiteral("-shm"), QStringLiteral("-wal")}) {
        const QString orphan = target + suffix;
        if (!Files::fileExists(orphan))
            continue;
        QString name;
        for (int number = 1; name.isEmpty() || Files::fileExists(name); ++number)
            name = QStringLiteral("%1.orphan-%2").arg(orphan).arg(number);
        if (std::rename(QFile::encodeName(orphan).constData(), QFile::encodeName(name).constData()) != 0)
            throw FileError(orphan, errno, QStringLiteral("set aside the file"));
    }
}

void DataMigrationManager::copySideFiles(const QString& old, const QString& target) {
    for (const QString& suffix : {QStringLiteral("-shm"), QStringLiteral("-wal")}) {
        if (!Files::fileExists(old + suffix))
            continue;
        try {
            Files::copyItem(old + suffix, target + suffix);
        } catch (const std::exception&) {
            // Dropped in silence: the store opens without the side file.
        }
    }
}

void DataMigrationManager::markCompleted() const {
    Preferences::standard().set(migrationCompletedKey, true);
    Preferences::standard().synchronize();
}

} // namespace Quillstacks
