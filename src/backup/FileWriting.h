#pragma once

#include <QByteArray>
#include <QString>

namespace Quillstacks {

/// Writes a file a part at a time, beside its target, and gives it the target's name when all of it is on the disk. So
/// there is never half a file under that name, and what stood there before stays until then, whatever happens. A
/// link's target is replaced, not the link; a file that is write-protected is not. Throws FileError.
class FileWriting final {
public:
    /// Nothing happens before the first step. A new file is the user's alone (0600), an older one's rights are kept.
    FileWriting(QString path, QByteArray content);
    ~FileWriting();
    Q_DISABLE_COPY_MOVE(FileWriting)

    /// Writes the next part; false when the file stands in its place.
    [[nodiscard]] bool step();
    /// How much has been written, from 0 to 1.
    [[nodiscard]] double fraction() const;

private:
    void open();
    void writePart();
    void sync();
    void moveIntoPlace();
    [[noreturn]] void refuse(int errorNumber) const;

    const QString path;
    QByteArray target; ///< where the path leads in the end, as the system names it
    QByteArray half;   ///< the file that is being written; empty while there is none
    const QByteArray bytes;
    qsizetype written = 0;
    int descriptor = -1;
};

} // namespace Quillstacks
