#pragma once

#include "foundation/LocalizedError.h"

#include <QString>

namespace Quillstacks {

/// What can be wrong with a backup file or with the place that it is to be written to.
class BackupError final : public LocalizedError {
public:
    enum class Kind {
        notJson,         ///< the text breaks JSON's own rules
        notABackup,      ///< JSON, but a key is missing, stands twice or holds something of another type
        corruptFile,     ///< the file has no regular content
        invalidFileName, ///< nothing to be written under that name
    };
    /// `description` is the whole sentence.
    BackupError(Kind kind, QString description);

    [[nodiscard]] Kind kind() const { return failure; }
    [[nodiscard]] QString errorDescription() const override;
    [[nodiscard]] QString debugDescription() const override;

private:
    Kind failure;
    QString text;
};

} // namespace Quillstacks
