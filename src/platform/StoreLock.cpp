#include "platform/StoreLock.h"

#include <QFile>
#include <QLockFile>

namespace Quillstacks {

StoreLock::StoreLock(const QString& path) : file(std::make_unique<QLockFile>(path)) {
    // Held for days; only the death of its holder makes it stale.
    file->setStaleLockTime(0);
}

StoreLock::~StoreLock() = default;

bool StoreLock::tryLock() {
    if (file->tryLock(0)) {
        QFile::setPermissions(file->fileName(), QFile::ReadOwner | QFile::WriteOwner);
        return true;
    }
    // Where no lock can be made at all, nobody holds one; opening the store will say what is wrong with the folder.
    return file->error() != QLockFile::LockFailedError;
}

QString StoreLock::holder() const {
    qint64 process = 0;
    QString host;
    QString program;
    if (!file->getLockInfo(&process, &host, &program))
        return QStringLiteral("another process");
    return QStringLiteral("process %1 (%2) on %3").arg(QString::number(process), program, host);
}

} // namespace Quillstacks
