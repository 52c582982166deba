#pragma once

#include "foundation/LocalizedError.h"

#include <QString>

namespace Quillstacks {

/// What can go wrong with the store's file. Every description names the path.
class StoreError final : public LocalizedError {
public:
    enum class Kind {
        cannotOpen,    ///< missing rights, a folder in its place, any other refusal of the system
        notADatabase,  ///< corrupt, or another kind of file
        unknownSchema, ///< another program's database, or one of a newer version of this program
        locked,        ///< held open by another process
        diskFull,
        readOnly,
        failed, ///< any other failure of a read or a write
    };
    /// `systemDetail` is what the system or SQLite says of it; may be empty.
    StoreError(Kind kind, QString storePath, QString systemDetail);

    [[nodiscard]] Kind kind() const { return failure; }
    [[nodiscard]] QString errorDescription() const override;
    [[nodiscard]] QString debugDescription() const override;

private:
    Kind failure;
    QString path;
    QString detail; ///< SQLite's own words
};

} // namespace Quillstacks
