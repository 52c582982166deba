#include "backup/format/BackupError.h"

namespace Quillstacks {
namespace {

QLatin1String name(BackupError::Kind kind) {
    switch (kind) {
    case BackupError::Kind::notJson:
        return QLatin1String("notJson");
    case BackupError::Kind::notABackup:
        return QLatin1String("notABackup");
    case BackupError::Kind::corruptFile:
        return QLatin1String("corruptFile");
    case BackupError::Kind::invalidFileName:
        break;
    }
    return QLatin1String("invalidFileName");
}

} // namespace

BackupError::BackupError(Kind kind, QString description) : failure(kind), text(std::move(description)) {}

QString BackupError::errorDescription() const {
    return text;
}

QString BackupError::debugDescription() const {
    return QStringLiteral("BackupError.%1: %2").arg(name(failure), text);
}

} // namespace Quillstacks
