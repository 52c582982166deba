#include "platform/Files.h"

#include "platform/FileError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace Quillstacks::Files {

namespace {

constexpr mode_t privateFolder = 0700;
constexpr mode_t privateFile = 0600;
constexpr mode_t rightsOfOthers = 077;

[[noreturn]] void refuse(const QString& path, const char* operation) {
    const int number = errno;
    throw FileError(path, number, QString::fromLatin1(operation));
}

/// A file descriptor that is closed when it goes out of scope.
class Descriptor final {
public:
    explicit Descriptor(int descriptor) : number(descriptor) {}
    ~Descriptor() {
        if (number >= 0)
            ::close(number);
    }
    Q_DISABLE_COPY_MOVE(Descriptor)
    [[nodiscard]] int get() const { return number; }

private:
    int number = -1;
};

void writeAll(int to, const char* data, size_t size, const QString& path) {
    while (size > 0) {
        const ssize_t written = ::write(to, data, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            refuse(path, "write the file");
        data += written;
        size -= static_cast<size_t>(written);
    }
}

void copyContents(int from, int to, const QString& fromPath, const QString& toPath) {
    std::vector<char> buffer(1024 * 1024);
    for (;;) {
        const ssize_t got = ::read(from, buffer.data(), buffer.size());
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            refuse(fromPath, "read the file");
        if (got == 0)
            break;
        writeAll(to, buffer.data(), static_cast<size_t>(got), toPath);
    }
    // A library that is said to be copied must survive a power cut right after.
    if (::fsync(to) != 0)
        refuse(toPath, "write the file");
}

/// Gives a finished file its name unless something stands there.
int renameWithoutReplacing(const QByteArray& from, const QByteArray& to) {
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return -1;
    // Some file systems do not know the flag; nobody else writes into this folder, so looking first is enough there.
    struct stat there {};
    if (::lstat(to.constData(), &there) == 0) {
        errno = EEXIST;
        return -1;
    }
    return ::rename(from.constData(), to.constData());
}

} // namespace

void createDirectory(const QString& path) {
    const QString clean = QDir::cleanPath(path);
    const QByteArray name = QFile::encodeName(clean);
    struct stat there {};
    if (::stat(name.constData(), &there) == 0) {
        if (!S_ISDIR(there.st_mode))
            throw FileError(clean, ENOTDIR, QStringLiteral("make the folder"));
        // File systems without rights, and folders of another owner that are writable for us, refuse this; the folder
        // serves all the same.
        if ((there.st_mode & rightsOfOthers) != 0)
            ::chmod(name.constData(), there.st_mode & ~rightsOfOthers & 07777);
        return;
    }
    const QString parent = QFileInfo(clean).path();
    if (parent != clean && ::access(QFile::encodeName(parent).constData(), F_OK) != 0)
        createDirectory(parent);
    if (::mkdir(name.constData(), privateFolder) != 0 && errno != EEXIST)
        refuse(clean, "make the folder");
    if (::stat(name.constData(), &there) != 0 || !S_ISDIR(there.st_mode))
        throw FileError(clean, ENOTDIR, QStringLiteral("make the folder"));
}

bool fileExists(const QString& path) {
    return QFileInfo::exists(path);
}

void copyItem(const QString& from, const QString& to) {
    // Without waiting: a pipe of that name would hold the caller until somebody writes into it.
    const Descriptor source(::open(QFile::encodeName(from).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat there {};
    if (source.get() < 0 || ::fstat(source.get(), &there) != 0)
        refuse(from, "read the file");
    if (!S_ISREG(there.st_mode))
        throw FileError(from, S_ISDIR(there.st_mode) ? EISDIR : EOPNOTSUPP, QStringLiteral("read the file"));
    const QByteArray target = QFile::encodeName(to);
    QByteArray half = target + ".XXXXXX";
    const Descriptor copy(::mkostemp(half.data(), O_CLOEXEC)); // mode 0600
    if (copy.get() < 0)
        refuse(to, "make the file");
    auto dropHalf = qScopeGuard([&half] { ::unlink(half.constData()); });
    if (::fchmod(copy.get(), privateFile) != 0 && errno != EPERM && errno != ENOTSUP)
        refuse(to, "make the file");
    copyContents(source.get(), copy.get(), from, to);
    if (renameWithoutReplacing(half, target) != 0)
        refuse(to, "make the file");
    dropHalf.dismiss();
}

} // namespace Quillstacks::Files
