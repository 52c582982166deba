#pragma once

#include <QByteArray>
#include <QTemporaryFile>

namespace Quillstacks {

/// A file in the download folder that has no name of its own until it is proven, and is gone when it never is.
class UnnamedFile final {
public:
    /// Throws UpdateError, as all do.
    explicit UnnamedFile(const QString& folder);

    [[nodiscard]] qint64 size() const { return file.size(); }
    /// False when the disk does not take it.
    [[nodiscard]] bool append(const QByteArray& bytes);
    [[nodiscard]] bool isSigned(const QByteArray& signature, const QByteArray& publicKey);
    /// On disk, and called so in its folder, with a number before the suffix where the name is taken. The path.
    [[nodiscard]] QString keepAs(const QString& name);
    [[noreturn]] void refuse() const;

private:
    QString folder;
    QTemporaryFile file;
};

/// Whether a file holds what was signed.
[[nodiscard]] bool isSignedFile(QFile& file, const QByteArray& signature, const QByteArray& publicKey);

} // namespace Quillstacks
