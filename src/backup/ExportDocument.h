#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

namespace Quillstacks {

class FileWriting;

/// A backup's bytes between the program and a file that was chosen in a dialog. JSON only.
struct ExportDocument {
    std::optional<QByteArray> data;

    /// The file's whole content. Throws BackupError (corruptFile) for what has no regular content, FileError else.
    [[nodiscard]] static ExportDocument read(const QString& path);
    /// Replaces the file, or leaves the older one as it is. Throws FileError, and BackupError (invalidFileName) where
    /// there is no data.
    void write(const QString& path) const;
    /// The same, to be made step by step.
    [[nodiscard]] std::unique_ptr<FileWriting> writing(const QString& path) const;
};

} // namespace Quillstacks
