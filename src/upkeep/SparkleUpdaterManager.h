#pragma once

#include "foundation/Date.h"
#include "upkeep/UpdateOrigin.h"
#include "upkeep/UpdaterController.h"

#include <QObject>

#include <optional>

namespace Quillstacks {

/// Gives the updater its feed and its schedule, and turns what it tells into state that screens can show.
class SparkleUpdaterManager final : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isCheckingForUpdates READ isCheckingForUpdates NOTIFY changed)
    Q_PROPERTY(bool updateAvailable READ updateAvailable NOTIFY changed)
    Q_PROPERTY(bool updateInProgress READ updateInProgress NOTIFY changed)
    Q_PROPERTY(QString errorMessage READ errorText NOTIFY changed)
public:
    /// Made on first use, with the build's origin; lives as long as the process.
    static SparkleUpdaterManager& shared();
    /// Starts the updater.
    explicit SparkleUpdaterManager(UpdateOrigin origin, QObject* parent = nullptr);

    /// A check that the user asked for runs. Nothing but a check that finds no update ends it.
    [[nodiscard]] bool isCheckingForUpdates() const { return checking; }
    /// Nothing sets the two to true yet; what shows them is ready for it.
    [[nodiscard]] bool updateAvailable() const { return available; }
    [[nodiscard]] bool updateInProgress() const { return inProgress; }
    /// When a check found nothing.
    [[nodiscard]] std::optional<Date> lastUpdateCheckDate() const { return lastCheck; }
    [[nodiscard]] std::optional<QString> errorMessage() const { return error; }

    /// The program's one way to ask for a check.
    void checkForUpdates();

    // What the updater asks and tells
    [[nodiscard]] QString feedURLString() const;
    void updaterDidNotFindUpdate();

    void setUpdateAvailable(bool value);
    void setUpdateInProgress(bool value);

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] QString errorText() const { return error.value_or(QString()); }
    [[nodiscard]] Updater::Delegate delegate();
    void start();
    void followPreference();

    bool checking = false;
    bool available = false;
    bool inProgress = false;
    std::optional<Date> lastCheck;
    std::optional<QString> error;
    UpdateOrigin origin;

public:
    UpdaterController updaterController;
};

} // namespace Quillstacks
