#include "shell/DataStoreError.h"

namespace Quillstacks {

QString DataStoreError::errorDescription() const {
    return QStringLiteral("Cannot access Application Support directory");
}

QString DataStoreError::debugDescription() const {
    return QStringLiteral("DataStoreError.cannotAccessApplicationSupport");
}

} // namespace Quillstacks
