#include "backup/ExportDocument.h"

#include "backup/format/BackupError.h"

#include "FileReading.h"
#include "FileWriting.h"

#include <QFileInfo>

namespace Quillstacks {

ExportDocument ExportDocument::read(const QString& path) {
    FileReading reading(path);
    while (reading.step()) {
    }
    return {reading.take()};
}

std::unique_ptr<FileWriting> ExportDocument::writing(const QString& path) const {
    if (!data)
        throw BackupError(
            BackupError::Kind::invalidFileName,
            QStringLiteral("“%1” can't be written: there is nothing to save.").arg(QFileInfo(path).fileName()));
    return std::make_unique<FileWriting>(path, *data);
}

void ExportDocument::write(const QString& path) const {
    const auto file = writing(path);
    while (file->step()) {
    }
}

} // namespace Quillstacks
