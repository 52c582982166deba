#include "updates/UnnamedFile.h"

#include "platform/UpdateError.h"
#include "updates/Ed25519.h"

#include <QDir>
#include <QFileInfo>

#include <unistd.h>

namespace Quillstacks {

namespace {

constexpr int mostNumbers = 100;

QString numbered(const QString& name, int number) {
    const QFileInfo parts(name);
    const QString suffix = parts.completeSuffix();
    // A version's dots are no suffixes: only what follows the last one, or ".tar.gz" and its like, moves to the end.
    const QString end = name.contains(QStringLiteral(".tar.")) ? name.mid(name.lastIndexOf(QStringLiteral(".tar.")))
                        : suffix.isEmpty()                     ? QString()
                                                               : u'.' + parts.suffix();
    return name.chopped(end.size()) + QStringLiteral(" (%1)").arg(number) + end;
}

} // namespace

bool isSignedFile(QFile& file, const QByteArray& signature, const QByteArray& publicKey) {
    const qint64 size = file.size();
    // The algorithm wants all of it at once; mapped, it need not fit into memory.
    uchar* const start = size > 0 ? file.map(0, size) : nullptr;
    if (!start)
        return false;
    const bool isGood =
        Ed25519::verifies(QByteArrayView(reinterpret_cast<const char*>(start), size), signature, publicKey);
    file.unmap(start);
    return isGood;
}

UnnamedFile::UnnamedFile(const QString& place)
    : folder(place), file(QDir(place).filePath(QStringLiteral(".Quillstacks-XXXXXX.part"))) {
    if (!QDir().mkpath(folder) || !file.open())
        refuse();
}

void UnnamedFile::refuse() const {
    throw UpdateError(
        UpdateError::Case::notWritten,
        QStringLiteral("“%1”: %2.")
            .arg(folder, file.error() == QFileDevice::NoError ? QStringLiteral("No such folder") : file.errorString()));
}

bool UnnamedFile::append(const QByteArray& bytes) {
    return file.write(bytes) == bytes.size() && file.flush();
}

bool UnnamedFile::isSigned(const QByteArray& signature, const QByteArray& publicKey) {
    return isSignedFile(file, signature, publicKey);
}

QString UnnamedFile::keepAs(const QString& name) {
    if (::fsync(file.handle()) != 0)
        refuse();
    for (int number = 1; number < mostNumbers; ++number) {
        const QString path = QDir(folder).filePath(number == 1 ? name : numbered(name, number));
        if (QFileInfo::exists(path) || QFileInfo(path).isSymLink())
            continue;
        if (!file.rename(path)) // never replaces
            refuse();
        file.setAutoRemove(false);
        return path;
    }
    refuse();
}

} // namespace Quillstacks
