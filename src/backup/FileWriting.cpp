#include "FileWriting.h"

#include "platform/FileError.h"

#include <QDir>
#include <QFile>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Quillstacks {

namespace {

constexpr qsizetype partSize = 1 << 20;
/// Now and then on the way, so that the end has not all of it to wait for.
constexpr qsizetype syncedAtOnce = 16 * partSize;
constexpr mode_t allRights = 0777;
constexpr int mostLinks = 40; ///< as many as the system itself follows

/// Where a path leads in the end, which need not be there yet. Empty where links lead in a circle.
QByteArray behindLinks(QByteArray path) {
    std::array<char, PATH_MAX> link{};
    for (int followed = 0; followed < mostLinks; ++followed) {
        const ssize_t size = ::readlink(path.constData(), link.data(), link.size());
        if (size < 0)
            return path; // not a link, or nothing
        const QByteArray next(link.data(), size);
        path = next.startsWith('/') ? next : path.left(path.lastIndexOf('/') + 1) + next;
    }
    return {};
}

} // namespace

FileWriting::FileWriting(QString filePath, QByteArray content) : path(std::move(filePath)), bytes(std::move(content)) {}

FileWriting::~FileWriting() {
    if (descriptor >= 0)
        ::close(descriptor);
    if (!half.isEmpty())
        ::unlink(half.constData());
}

void FileWriting::refuse(int errorNumber) const {
    throw FileError(path, errorNumber, QStringLiteral("write the file"));
}

void FileWriting::open() {
    target = behindLinks(QFile::encodeName(QDir::isAbsolutePath(path) ? path : QDir::current().filePath(path)));
    if (target.isEmpty())
        refuse(ELOOP);
    struct stat older {};
    const bool replaces = ::stat(target.constData(), &older) == 0;
    if (replaces && !S_ISREG(older.st_mode))
        refuse(S_ISDIR(older.st_mode) ? EISDIR : EEXIST);
    // Its name could be given to another file all the same; but somebody has protected it.
    if (replaces && ::faccessat(AT_FDCWD, target.constData(), W_OK, AT_EACCESS) != 0)
        refuse(errno);
    // A name of its own length: the target's may be as long as names can be.
    QByteArray name = target.left(target.lastIndexOf('/') + 1) + ".Quillstacks-XXXXXX";
    descriptor = ::mkostemp(name.data(), O_CLOEXEC); // mode 0600
    if (descriptor < 0)
        refuse(errno);
    half = name;
    // File systems without rights refuse it; the file is as private there as all others are.
    if (replaces)
        ::fchmod(descriptor, older.st_mode & allRights);
}

bool FileWriting::step() {
    if (half.isEmpty())
        open();
    if (written < bytes.size()) {
        writePart();
        return true;
    }
    sync();
    moveIntoPlace();
    return false;
}

void FileWriting::writePart() {
    const qsizetype size = std::min(partSize, bytes.size() - written);
    const ssize_t got = ::write(descriptor, bytes.constData() + written, static_cast<std::size_t>(size));
    if (got < 0 && errno != EINTR)
        refuse(errno);
    const qsizetype before = written;
    written += std::max<ssize_t>(got, 0);
    if (before / syncedAtOnce != written / syncedAtOnce)
        sync();
}

void FileWriting::sync() {
    if (::fsync(descriptor) != 0)
        refuse(errno);
}

void FileWriting::moveIntoPlace() {
    if (::close(std::exchange(descriptor, -1)) != 0)
        refuse(errno);
    if (::rename(half.constData(), target.constData()) != 0)
        refuse(errno);
    half.clear();
    // So that the new name survives a power cut as well. Some file systems can't, and then the rename itself must do.
    const int folder = ::open(target.left(target.lastIndexOf('/') + 1).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder >= 0) {
        ::fsync(folder);
        ::close(folder);
    }
}

double FileWriting::fraction() const {
    return bytes.isEmpty() ? 1 : static_cast<double>(written) / static_cast<double>(bytes.size());
}

} // namespace Quillstacks
