#include "upkeep/UpdateUserDriver.h"

#include "interface/Sheet.h"
#include "interface/ToastManager.h"
#include "platform/Files.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>
#include <QWindow>

namespace Quillstacks {
namespace {

constexpr double toastDuration = 2.0; ///< seconds

QString releaseText(const UpdateItem& item) {
    QString text =
        QStringLiteral("Version %1 (%2)").arg(item.displayVersion, QLocale::c().formattedDataSize(item.length));
    if (!item.published.isEmpty())
        text += QStringLiteral(" of %1").arg(item.published);
    text += QStringLiteral(" can be downloaded. You install it yourself.");
    if (!item.link.isEmpty())
        text += u'\n' + item.link.toDisplayString();
    return text;
}

} // namespace

UpdateUserDriver::UpdateUserDriver(QObject* parent) : QObject(parent) {
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &UpdateUserDriver::sayPending);
}

void UpdateUserDriver::showUpdateFound(const UpdateItem& item, bool isAwaited, std::function<void()> download) {
    say({{QStringLiteral("A new version of Quillstacks is available"), releaseText(item), QStringLiteral("Download"),
          false, QStringLiteral("Later")},
         std::move(download)},
        isAwaited);
}

void UpdateUserDriver::showDownloadStarted(const UpdateItem& item) {
    ToastManager::shared().show(QStringLiteral("Downloading Quillstacks %1…").arg(item.displayVersion), toastDuration);
}

void UpdateUserDriver::showDownloaded(const UpdateItem& item, const QString& path, bool isAwaited) {
    const QFileInfo file(path);
    say({{QStringLiteral("Quillstacks %1 is downloaded").arg(item.displayVersion),
          QStringLiteral("“%1” is what the publisher signed. Quit Quillstacks and install it when it suits you.")
              .arg(file.fileName()),
          QStringLiteral("Show Folder"), false, QStringLiteral("Close")},
         [folder = file.path()] { Files::openFolder(folder); }},
        isAwaited);
}

void UpdateUserDriver::showNoUpdateFound(const QString& presentVersion) {
    say({{QStringLiteral("You’re up to date"),
          QStringLiteral("Quillstacks %1 is the newest version available.").arg(presentVersion), QStringLiteral("OK"),
          false, QString()},
         {}},
        true);
}

void UpdateUserDriver::showFailure(const QString& reason) {
    say({{QStringLiteral("No update"), reason, QStringLiteral("OK"), false, QString()}, {}}, true);
}

void UpdateUserDriver::say(Notice notice, bool isAwaited) {
    QWidget* host = window ? window(isAwaited) : nullptr;
    // What nobody asked for neither stacks up nor comes between somebody and a sheet that is being filled in.
    if (host && (isAwaited || !Sheet::top(host))) {
        const auto confirmed = notice.confirmed ? notice.confirmed : [] {};
        Alert::show(host, notice.text, confirmed);
        return;
    }
    if (const Sheet* above = host ? Sheet::top(host) : nullptr)
        connect(above, &Sheet::closed, this, &UpdateUserDriver::sayPending, Qt::QueuedConnection);
    pending = [this, notice] { say(notice, false); };
}

void UpdateUserDriver::sayPending() {
    if (!pending || !window || !window(false))
        return;
    const auto waiting = std::exchange(pending, {});
    waiting();
}

} // namespace Quillstacks
