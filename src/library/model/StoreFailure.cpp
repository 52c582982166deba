#include "StoreFailure.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>
#include <SQLiteCpp/Exception.h>
#include <sys/statvfs.h>

#include <cerrno>
#include <cstring>

namespace Quillstacks {

namespace {

/// Where the disk runs full while a side file grows, SQLite tells of a failed write, not of a full disk.
bool diskIsFull(const QString& path) {
    struct statvfs disk {};
    const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
    return statvfs(folder.constData(), &disk) == 0 && disk.f_bavail == 0;
}

StoreError::Kind kindOf(int sqliteCode, const QString& path) {
    switch (sqliteCode) {
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_FORMAT:
        return StoreError::Kind::notADatabase;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return StoreError::Kind::locked;
    case SQLITE_FULL:
        return StoreError::Kind::diskFull;
    case SQLITE_READONLY:
        return StoreError::Kind::readOnly;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        return diskIsFull(path) ? StoreError::Kind::diskFull : StoreError::Kind::cannotOpen;
    case SQLITE_IOERR:
        return diskIsFull(path) ? StoreError::Kind::diskFull : StoreError::Kind::failed;
    default:
        return StoreError::Kind::failed;
    }
}

} // namespace

StoreError storeError(const SQLite::Exception& error, const QString& path) {
    return StoreError(kindOf(error.getErrorCode() & 0xff, path), path, QString::fromUtf8(error.what()));
}

StoreError storeError(int errnoValue, const QString& path) {
    StoreError::Kind kind = StoreError::Kind::cannotOpen;
    if (errnoValue == EROFS) {
        kind = StoreError::Kind::readOnly;
    } else if (errnoValue == ENOSPC || errnoValue == EDQUOT) {
        kind = StoreError::Kind::diskFull;
    }
    return StoreError(kind, path, QString::fromLocal8Bit(std::strerror(errnoValue)));
}

} // namespace Quillstacks
