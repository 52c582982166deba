#include "StoreFile.h"

#include "StoreFailure.h"
#include "StoreSchema.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <fcntl.h>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace Quillstacks {

namespace StoreFile {

namespace {

// The header of an SQLite file: https://www.sqlite.org/fileformat2.html, section 1.3.
constexpr qsizetype headerBytes = 100;
constexpr const char magic[16] = "SQLite format 3";
constexpr qsizetype userVersionAt = 60;
constexpr qsizetype applicationIdAt = 68;

bool mayAccess(const QByteArray& path, int mode) {
    return ::faccessat(AT_FDCWD, path.constData(), mode, AT_EACCESS) == 0;
}

void checkFolder(const QString& path) {
    const QFileInfo folder(QFileInfo(path).path());
    if (!folder.isDir())
        throw StoreError(StoreError::Kind::cannotOpen, path, QStringLiteral("its folder does not exist"));
    const QByteArray name = QFile::encodeName(folder.filePath());
    if (!mayAccess(name, X_OK))
        throw storeError(errno, path);
    if (!mayAccess(name, W_OK))
        throw StoreError(StoreError::Kind::readOnly, path, QStringLiteral("its folder can't be written"));
}

void checkRights(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    if (!mayAccess(name, R_OK))
        throw storeError(errno, path);
    if (!mayAccess(name, W_OK))
        throw StoreError(StoreError::Kind::readOnly, path, QString::fromLocal8Bit(std::strerror(errno)));
}

QByteArray readHeader(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw StoreError(StoreError::Kind::cannotOpen, path, file.errorString());
    return file.read(headerBytes);
}

void checkHeader(const QString& path) {
    const QByteArray header = readHeader(path);
    if (header.size() < headerBytes || std::memcmp(header.constData(), magic, sizeof magic) != 0)
        throw StoreError(StoreError::Kind::notADatabase, path, {});
    const auto number = [&header](qsizetype at) { return qFromBigEndian<qint32>(header.constData() + at); };
    if (number(applicationIdAt) != StoreSchema::applicationId)
        throw StoreError(StoreError::Kind::unknownSchema, path, QStringLiteral("it is another program's file"));
    const qint32 version = number(userVersionAt);
    if (version < 1 || version > StoreSchema::currentVersion())
        throw StoreError(StoreError::Kind::unknownSchema, path, QStringLiteral("its version is %1").arg(version));
}

} // namespace

QString walPath(const QString& path) {
    return path + QLatin1String("-wal");
}

QString shmPath(const QString& path) {
    return path + QLatin1String("-shm");
}

bool check(const QString& path) {
    checkFolder(path);
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) {
        if (errno == ENOENT)
            return false;
        throw storeError(errno, path);
    }
    if (!S_ISREG(status.st_mode))
        throw StoreError(StoreError::Kind::cannotOpen, path, QStringLiteral("something else bears its name"));
    checkRights(path);
    checkHeader(path);
    return true;
}

void makePrivate(const QString& path) {
    for (const QString& name : {path, walPath(path), shmPath(path)}) {
        const QByteArray encoded = QFile::encodeName(name);
        struct stat status {};
        if (::stat(encoded.constData(), &status) != 0 || (status.st_mode & 07777) == 0600)
            continue;
        // The file of another owner that we may write keeps its mode: the library still opens.
        (void)::chmod(encoded.constData(), 0600);
    }
}

Signature signature(const QString& path) {
    Signature result;
    size_t at = 0;
    for (const QString& name : {path, walPath(path)}) {
        struct stat status {};
        // An empty log is as good as none.
        if (::stat(QFile::encodeName(name).constData(), &status) == 0 && status.st_size > 0) {
            result.values.at(at) = status.st_size;
            result.values.at(at + 1) = status.st_mtim.tv_sec * 1'000'000'000 + status.st_mtim.tv_nsec;
        }
        at += 2;
    }
    return result;
}

} // namespace StoreFile

namespace {

std::set<std::pair<dev_t, ino_t>>& claims() {
    static std::set<std::pair<dev_t, ino_t>> all;
    return all;
}

} // namespace

StoreClaim::StoreClaim(const QString& path) {
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return;
    const std::pair key(status.st_dev, status.st_ino);
    if (!claims().insert(key).second)
        throw StoreError(StoreError::Kind::locked, path, QStringLiteral("this program has it open already"));
    identity = key;
}

StoreClaim::~StoreClaim() {
    if (identity)
        claims().erase(*identity);
}

} // namespace Quillstacks
