#include "upkeep/SparkleUpdaterManager.h"

#include "foundation/Clock.h"
#include "foundation/LocalizedError.h"
#include "upkeep/UpdatePreferences.h"

#include <cstdio>

namespace Quillstacks {
namespace {

constexpr double checkInterval = 86400.0; ///< a day, in seconds

} // namespace

SparkleUpdaterManager& SparkleUpdaterManager::shared() {
    static SparkleUpdaterManager manager(UpdateOrigin::ofBuild());
    return manager;
}

SparkleUpdaterManager::SparkleUpdaterManager(UpdateOrigin theOrigin, QObject* parent)
    : QObject(parent), origin(std::move(theOrigin)), updaterController(delegate(), origin.publicKey) {
    start();
    followPreference();
}

Updater::Delegate SparkleUpdaterManager::delegate() {
    return {[this] { return feedURLString(); }, [this] { updaterDidNotFindUpdate(); }};
}

void SparkleUpdaterManager::start() {
    Updater& updater = updaterController.updater();
    // At every launch, whatever was chosen in an earlier one.
    updater.setAutomaticallyChecksForUpdates(true);
    updater.setUpdateCheckInterval(checkInterval);
    try {
        updater.startUpdater();
    } catch (const std::exception& failure) {
        const QString opening = QStringLiteral("Failed to start Sparkle updater: ");
        error = opening + localizedDescription(failure);
        std::printf("%s\n", (opening + fullDescription(failure)).toUtf8().constData());
        std::fflush(stdout);
    }
}

void SparkleUpdaterManager::followPreference() {
    // Here rather than where the switch is: a restore takes the choice back while nothing shows it.
    const auto& checks = automaticallyCheckForUpdatesPreference();
    checks.observe(this,
                   [this, &checks] { updaterController.updater().setAutomaticallyChecksForUpdates(checks.value()); });
}

void SparkleUpdaterManager::checkForUpdates() {
    if (checking || inProgress)
        return;
    checking = true;
    error.reset();
    Q_EMIT changed();
    updaterController.updater().checkForUpdates();
}

QString SparkleUpdaterManager::feedURLString() const {
    if (origin.address.isEmpty())
        return {};
    QString address = origin.address;
    while (address.endsWith(u'/'))
        address.chop(1);
    return address + QStringLiteral("/updater/appcast.xml");
}

void SparkleUpdaterManager::updaterDidNotFindUpdate() {
    checking = false;
    available = false;
    lastCheck = Clock::now();
    error.reset();
    Q_EMIT changed();
}

void SparkleUpdaterManager::setUpdateAvailable(bool value) {
    available = value;
    Q_EMIT changed();
}

void SparkleUpdaterManager::setUpdateInProgress(bool value) {
    inProgress = value;
    Q_EMIT changed();
}

} // namespace Quillstacks
