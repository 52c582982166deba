#include "upkeep/Updater.h"

#include "foundation/LocalizedError.h"
#include "foundation/Log.h"
#include "foundation/MainQueue.h"
#include "platform/UpdateError.h"
#include "platform/Updates.h"
#include "upkeep/feed/Appcast.h"
#include "upkeep/UpdatePreferences.h"
#include "upkeep/UpdateUserDriver.h"

#include <QCoreApplication>
#include <QPointer>

#include <utility>

namespace Quillstacks {
namespace {

constexpr qsizetype keyLength = 32;
/// The start has better things to do.
constexpr double firstCheckDelay = 3; ///< seconds

/// A name for the file that is one in any folder: the address's last part, without what a shell or a file manager
/// could trip over.
QString fileNameFor(const UpdateItem& item) {
    QString name;
    for (const QChar letter : item.url.fileName())
        name += letter.unicode() < 128 && (letter.isLetterOrNumber() || QStringLiteral("._-+~").contains(letter))
                    ? letter
                    : QChar(u'_');
    while (name.startsWith(u'.') || name.startsWith(u'-'))
        name.remove(0, 1);
    return name.isEmpty() ? QStringLiteral("Quillstacks-%1").arg(item.version.toString()) : name.right(200);
}

QVersionNumber presentVersion() {
    return QVersionNumber::fromString(QCoreApplication::applicationVersion());
}

} // namespace

Updater::Updater(Delegate theDelegate, UpdateUserDriver& driver, QByteArray key)
    : delegate(std::move(theDelegate)), userDriver(driver), publicKey(std::move(key)) {}

void Updater::setAutomaticallyChecksForUpdates(bool checks) {
    if (checksByItself == checks)
        return;
    checksByItself = checks;
    scheduleNextCheck();
}

bool Updater::automaticallyDownloadsUpdates() const {
    return automaticallyDownloadUpdatesPreference().value();
}

void Updater::setAutomaticallyDownloadsUpdates(bool downloads) {
    automaticallyDownloadUpdatesPreference().set(downloads);
}

void Updater::setUpdateCheckInterval(double seconds) {
    interval = seconds;
    scheduleNextCheck();
}

void Updater::mustBeAbleToStart() const {
    const QString keeper = Updates::keptUpToDateBy();
    if (!keeper.isEmpty())
        throw UpdateError(UpdateError::Case::packaged, keeper);
    const QUrl feed(delegate.feedURLString(), QUrl::StrictMode);
    if (feed.isEmpty())
        throw UpdateError(UpdateError::Case::noOrigin);
    if (!feed.isValid() || feed.scheme() != QStringLiteral("https"))
        throw UpdateError(UpdateError::Case::notSecure);
    if (publicKey.size() != keyLength)
        throw UpdateError(UpdateError::Case::noKey);
}

void Updater::startUpdater() {
    try {
        mustBeAbleToStart();
    } catch (const UpdateError& error) {
        startFailure = error.errorDescription();
        throw;
    }
    startFailure.reset();
    isStarted = true;
    scheduleNextCheck();
}

void Updater::scheduleNextCheck() {
    // Whatever was planned before is void.
    const quint64 schedule = ++schedules;
    if (!isStarted || !checksByItself)
        return;
    MainQueue::after(hasChecked ? interval : firstCheckDelay, this, [this, schedule] {
        if (schedule == schedules)
            beginCheck();
    });
}

void Updater::checkForUpdates() {
    isAwaited = true;
    if (isStarted)
        return beginCheck();
    MainQueue::async(this, [this] {
        fail(startFailure.value_or(QStringLiteral("The updater has not started.")));
        findNothing();
    });
}

void Updater::beginCheck() {
    if (isChecking)
        return;
    isChecking = true;
    hasChecked = true;
    scheduleNextCheck();
    check();
}

QCoro::Task<> Updater::check() {
    const QPointer<Updater> self(this);
    const QUrl url(delegate.feedURLString(), QUrl::StrictMode);
    QByteArray feed;
    QString failure;
    try {
        feed = co_await Updates::fetch(url, Appcast::largestFeed);
    } catch (const std::exception& error) {
        failure = localizedDescription(error);
    }
    if (!self)
        co_return;
    isChecking = false;
    if (failure.isEmpty())
        conclude(feed);
    else
        fail(failure);
}

void Updater::conclude(const QByteArray& feed) {
    std::optional<UpdateItem> found;
    try {
        found = Appcast::newest(Appcast::read(feed), presentVersion());
    } catch (const UpdateError& error) {
        return fail(error.errorDescription());
    }
    const bool wasAwaited = std::exchange(isAwaited, false);
    if (!found) {
        if (wasAwaited)
            userDriver.showNoUpdateFound(QCoreApplication::applicationVersion());
        return findNothing();
    }
    Log::general.info(QStringLiteral("Found update %1").arg(found->version.toString()));
    if (automaticallyDownloadsUpdates() && !wasAwaited)
        download(*found, false);
    else
        userDriver.showUpdateFound(*found, wasAwaited, [self = QPointer(this), item = *found] {
            if (self)
                self->downloadOnRequest(item);
        });
}

void Updater::fail(const QString& reason) {
    Log::general.error(QStringLiteral("Update check failed: ") + reason);
    if (std::exchange(isAwaited, false))
        userDriver.showFailure(reason);
}

void Updater::findNothing() {
    delegate.updaterDidNotFindUpdate();
}

void Updater::downloadOnRequest(const UpdateItem& item) {
    userDriver.showDownloadStarted(item);
    download(item, true);
}

QCoro::Task<> Updater::download(UpdateItem item, bool byRequest) {
    isDownloadAwaited = isDownloadAwaited || byRequest;
    if (isDownloading)
        co_return;
    isDownloading = true;
    const QPointer<Updater> self(this);
    // A variable: g++ 12 destroys what is made in braces within an awaited call twice.
    Updates::SignedFile file{item.url, item.length, item.signature, publicKey, fileNameFor(item)};
    QString path;
    QString failure;
    try {
        path = co_await Updates::download(std::move(file));
    } catch (const std::exception& error) {
        failure = localizedDescription(error);
    }
    if (!self)
        co_return;
    isDownloading = false;
    const bool wasAwaited = std::exchange(isDownloadAwaited, false);
    if (failure.isEmpty()) {
        userDriver.showDownloaded(item, path, wasAwaited);
        co_return;
    }
    Log::general.error(QStringLiteral("Update download failed: ") + failure);
    if (wasAwaited)
        userDriver.showFailure(failure);
}

} // namespace Quillstacks
