#pragma once

#include <QString>
#include <QStringList>

namespace Quillstacks {

/// Brings a store that stands at one of the older places to the present one, once. It copies and never moves or
/// deletes; what it copies is not looked into.
class DataMigrationManager final {
public:
    static DataMigrationManager& shared();

    /// `target` is the absolute path of the store's file. Call it after the target's folder was made and before the
    /// store is opened. Never throws: a failure is logged, and the start goes on.
    void migrateIfNeeded(const QString& target) const;

    const QString migrationCompletedKey = QStringLiteral("DataStoreMigrationCompleted_v3");

private:
    DataMigrationManager() = default;
    Q_DISABLE_COPY_MOVE(DataMigrationManager)

    [[nodiscard]] bool copyFirstOldStore(const QString& supportDirectory, const QString& target) const;
    [[nodiscard]] static bool copyStore(const QString& old, const QString& target);
    /// Side files of a store that is gone would be taken for those of the copy.
    static void setOrphansAside(const QString& target);
    static void copySideFiles(const QString& old, const QString& target);
    void markCompleted() const;

    /// Relative to the application support directory, in the order of the search.
    const QStringList oldLocations = {QStringLiteral("default.store"), QStringLiteral("app.Quillstacks/default.store")};
};

} // namespace Quillstacks
