#include "FileReading.h"

#include "backup/format/BackupError.h"
#include "platform/FileError.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace Quillstacks {

namespace {

constexpr qsizetype partSize = 1 << 20;

} // namespace

FileReading::FileReading(QString filePath) : path(std::move(filePath)) {}

FileReading::~FileReading() {
    if (descriptor >= 0)
        ::close(descriptor);
}

void FileReading::refuse(int errorNumber) const {
    throw FileError(path, errorNumber, QStringLiteral("read the file"));
}

void FileReading::open() {
    // Without waiting: a pipe of that name would hold the program until somebody writes into it.
    descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat there {};
    if (descriptor < 0 || ::fstat(descriptor, &there) != 0)
        refuse(errno);
    if (!S_ISREG(there.st_mode))
        throw BackupError(BackupError::Kind::corruptFile,
                          QStringLiteral("“%1” is not a file with content.").arg(QFileInfo(path).fileName()));
    expected = there.st_size;
    if (expected >= largest)
        refuse(EFBIG);
    try {
        bytes.reserve(expected + partSize);
    } catch (const std::bad_alloc&) {
        refuse(ENOMEM);
    }
}

bool FileReading::step() {
    if (descriptor < 0)
        open();
    const qsizetype before = bytes.size();
    bytes.resize(before + partSize);
    ssize_t got = 0;
    do {
        got = ::read(descriptor, bytes.data() + before, partSize);
    } while (got < 0 && errno == EINTR);
    const int errorNumber = errno;
    bytes.resize(before + std::max<ssize_t>(got, 0));
    if (got < 0)
        refuse(errorNumber);
    if (bytes.size() >= largest)
        refuse(EFBIG);
    if (got > 0)
        return true;
    if (bytes.size() < expected)
        throw BackupError(BackupError::Kind::corruptFile,
                          QStringLiteral("“%1” became shorter while it was read.").arg(QFileInfo(path).fileName()));
    return false;
}

double FileReading::fraction() const {
    return expected > 0 ? std::min(1.0, static_cast<double>(bytes.size()) / static_cast<double>(expected)) : 1;
}

} // namespace Quillstacks
