#include "StoreFile.h"

#include "StoreFailure.h"
#include "StoreSchema.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <SQLiteCpp/Database.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace Quillstacks::StoreFile {

namespace {

/// Removes a draft with all that SQLite may have put beside it.
void removeDraft(const QString& draft) {
    for (const char* suffix : {"", "-journal", "-wal", "-shm"})
        QFile::remove(draft + QLatin1String(suffix));
}

void reserve(const QString& draft) {
    const int file = ::open(QFile::encodeName(draft).constData(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0600);
    if (file < 0)
        throw storeError(errno, draft);
    ::close(file);
}

void fill(const QString& draft) {
    SQLite::Database database(QFile::encodeName(draft).constData(), SQLite::OPEN_READWRITE);
    database.exec("PRAGMA synchronous=FULL");
    // The tables come before the log is turned on, so that the file itself says from the start what it is.
    StoreSchema::create(database);
    database.exec("PRAGMA journal_mode=WAL");
}

void moveIntoPlace(const QString& draft, const QString& path) {
    const QByteArray from = QFile::encodeName(draft);
    const QByteArray to = QFile::encodeName(path);
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return;
    if (errno != EINVAL && errno != ENOSYS)
        throw storeError(errno, path);
    // Some file systems can't rename without replacing; a hard link doesn't replace either.
    if (::link(from.constData(), to.constData()) == 0) {
        ::unlink(from.constData());
        return;
    }
    // Nor have some of them links. Nobody else writes into this folder, so looking first is enough there.
    struct stat there {};
    if (::lstat(to.constData(), &there) == 0)
        throw storeError(EEXIST, path);
    if (::rename(from.constData(), to.constData()) != 0)
        throw storeError(errno, path);
}

void flushFolder(const QString& path) {
    const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
    const int file = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0)
        return; // the store is there; only its surviving a power cut in the next seconds is less sure
    (void)::fsync(file);
    ::close(file);
}

void setOrphanAside(const QString& path) {
    QFile::remove(shmPath(path));
    const QString orphan = walPath(path);
    if (QFileInfo(orphan).size() == 0) {
        QFile::remove(orphan);
        return;
    }
    for (int number = 1;; ++number) {
        const QString name = QStringLiteral("%1.orphan-%2").arg(orphan).arg(number);
        if (QFile::exists(name))
            continue;
        if (QFile::rename(orphan, name))
            return;
        throw StoreError(StoreError::Kind::cannotOpen, orphan, QStringLiteral("it can't be set aside"));
    }
}

} // namespace

void create(const QString& path) {
    const QString draft = path + QLatin1String(".new");
    removeDraft(draft); // of a start that was cut short
    try {
        reserve(draft);
        fill(draft);
        setOrphanAside(path);
        moveIntoPlace(draft, path);
    } catch (const SQLite::Exception& error) {
        const StoreError failure = storeError(error, path);
        removeDraft(draft);
        throw failure;
    } catch (const StoreError&) {
        removeDraft(draft);
        throw;
    }
    flushFolder(path);
}

} // namespace Quillstacks::StoreFile
