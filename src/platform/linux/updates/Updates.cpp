#include "platform/Updates.h"

#include "platform/UpdateError.h"
#include "updates/Transfer.h"
#include "updates/UnnamedFile.h"

#include <QCoroSignal>
#include <QDir>
#include <QStandardPaths>

namespace Quillstacks::Updates {

namespace {

QString folder() {
    return QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
}

QCoro::Task<> end(Transfer& transfer) {
    co_await qCoro(&transfer, &Transfer::ended);
    if (const auto failure = transfer.failure())
        throw UpdateError(*failure);
}

/// The path of the file that is there already; empty when there is none, or another one of that name.
QString alreadyThere(const SignedFile& wanted) {
    const QString path = QDir(folder()).filePath(wanted.name);
    QFile file(path);
    const bool isIt = QFileInfo(path).isFile() && file.size() == wanted.length && file.open(QIODevice::ReadOnly) &&
                      isSignedFile(file, wanted.signature, wanted.publicKey);
    return isIt ? path : QString();
}

} // namespace

QString keptUpToDateBy() {
    if (QFileInfo::exists(QStringLiteral("/.flatpak-info")))
        return QStringLiteral("Flatpak");
    return qEnvironmentVariableIsEmpty("SNAP") ? QString() : QStringLiteral("Snap");
}

QCoro::Task<QByteArray> fetch(QUrl url, qint64 limit) {
    QByteArray answer;
    Transfer transfer(url, limit, [&answer](const QByteArray& bytes) {
        answer += bytes;
        return true;
    });
    co_await end(transfer);
    co_return answer;
}

QCoro::Task<QString> download(SignedFile file) {
    const QString there = alreadyThere(file);
    if (!there.isEmpty())
        co_return there;
    UnnamedFile target(folder());
    bool isWritten = true;
    Transfer transfer(file.url, file.length, [&](const QByteArray& bytes) { return isWritten = target.append(bytes); });
    co_await end(transfer);
    if (!isWritten)
        target.refuse();
    if (target.size() != file.length)
        throw UpdateError(UpdateError::Case::wrongLength);
    if (!target.isSigned(file.signature, file.publicKey))
        throw UpdateError(UpdateError::Case::wrongSignature);
    co_return target.keepAs(file.name);
}

} // namespace Quillstacks::Updates
