#pragma once

#include <QByteArray>
#include <QString>

namespace Quillstacks {

/// Reads a whole file into memory, a part at a time. Throws FileError for what the system refuses, for a file that
/// became shorter while it was read, and for one that is too large; BackupError for what is no regular file.
class FileReading final {
public:
    explicit FileReading(QString path);
    ~FileReading();
    Q_DISABLE_COPY_MOVE(FileReading)

    /// Reads the next part; false when the file is read.
    [[nodiscard]] bool step();
    /// How much has been read, from 0 to 1.
    [[nodiscard]] double fraction() const;
    [[nodiscard]] QByteArray take() { return std::move(bytes); }

    /// In bytes. No library comes near it, and its records must find room beside it.
    static constexpr qint64 largest = qint64(1) << 31;

private:
    void open();
    [[noreturn]] void refuse(int errorNumber) const;

    const QString path;
    int descriptor = -1;
    qint64 expected = 0; ///< bytes, as the file was when it was opened
    QByteArray bytes;
};

} // namespace Quillstacks
