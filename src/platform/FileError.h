#pragma once

#include "foundation/LocalizedError.h"

#include <QString>

namespace Quillstacks {

/// A refusal of the file system, with the path it was about.
class FileError final : public LocalizedError {
public:
    FileError(QString path, int errorNumber, QString what);

    [[nodiscard]] QString errorDescription() const override;
    [[nodiscard]] QString debugDescription() const override;

private:
    QString path;
    int errorNumber;
    QString operation; ///< "make the folder", "copy the file"
};

} // namespace Quillstacks
