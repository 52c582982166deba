#pragma once

#include <QCoroTask>

#include <QByteArray>
#include <QString>
#include <QUrl>

/// Getting updates over the network. Nothing here installs anything.
namespace Quillstacks::Updates {

/// Who else keeps this installation up to date, as a name for the user ("Flatpak"); empty for nobody.
[[nodiscard]] QString keptUpToDateBy();

/// The whole answer to a request for an address, which must be HTTPS, and so must all that it leads to. Throws
/// UpdateError, also for an answer of more than `limit` bytes.
[[nodiscard]] QCoro::Task<QByteArray> fetch(QUrl url, qint64 limit);

/// A file as its publisher announces it.
struct SignedFile {
    QUrl url;
    qint64 length = 0;    ///< in bytes
    QByteArray signature; ///< Ed25519 over the whole file, 64 bytes
    QByteArray publicKey; ///< 32 bytes
    QString name;         ///< what it is called when it is there
};
/// Puts the file into the user's download folder and gives its path. It has no name before it is verified, and leaves
/// nothing behind when it isn't the signed one. A file of that name that is, is taken as it stands; another one is
/// left alone, and ours gets a number. Throws UpdateError.
[[nodiscard]] QCoro::Task<QString> download(SignedFile file);

} // namespace Quillstacks::Updates
