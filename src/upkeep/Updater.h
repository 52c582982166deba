#pragma once

#include "upkeep/feed/UpdateItem.h"

#include <QCoroTask>

#include <QObject>

#include <functional>
#include <optional>

namespace Quillstacks {

class UpdateUserDriver;

/// Finds newer versions of the program: at intervals of its own, and when it is asked to. It tells, downloads on
/// request what the publisher signed, and installs nothing.
class Updater final : public QObject {
    Q_OBJECT
public:
    /// Whom it asks and tells, on the main thread.
    struct Delegate {
        std::function<QString()> feedURLString; ///< empty where there is no feed
        std::function<void()> updaterDidNotFindUpdate;
    };
    /// The delegate's functions and the user driver must outlive it. `publicKey` is what files must be signed with.
    Updater(Delegate delegate, UpdateUserDriver& userDriver, QByteArray publicKey);

    [[nodiscard]] bool automaticallyChecksForUpdates() const { return checksByItself; }
    void setAutomaticallyChecksForUpdates(bool checks);
    /// Lasts from run to run: it is the preference of that name.
    [[nodiscard]] bool automaticallyDownloadsUpdates() const;
    void setAutomaticallyDownloadsUpdates(bool downloads);
    /// In seconds.
    void setUpdateCheckInterval(double seconds);

    /// From now on it checks by itself, for the first time after 3 seconds. Throws UpdateError where
    /// there is nothing to check, and stays unstarted.
    void startUpdater();
    /// A check that the user waits for; what comes of it is told in any case. Where the updater has not started, it
    /// tells why not, and finds nothing.
    void checkForUpdates();

private:
    void mustBeAbleToStart() const;
    void scheduleNextCheck();
    void beginCheck();
    QCoro::Task<> check();
    void conclude(const QByteArray& feed);
    void fail(const QString& reason);
    void findNothing();
    void downloadOnRequest(const UpdateItem& item);
    QCoro::Task<> download(UpdateItem item, bool byRequest);

    Delegate delegate;
    UpdateUserDriver& userDriver;
    QByteArray publicKey;
    bool checksByItself = false;
    double interval = 86400;
    std::optional<QString> startFailure; ///< empty from the start on
    bool isStarted = false;
    bool isChecking = false;
    bool isAwaited = false;
    bool isDownloading = false;
    bool isDownloadAwaited = false;
    bool hasChecked = false;
    quint64 schedules = 0;
};

} // namespace Quillstacks
