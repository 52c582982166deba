#include "shell/Version.h"

#include "foundation/Log.h"

#include <QCoreApplication>

namespace Quillstacks {

void announceVersion() {
    // What updates are compared with.
    QCoreApplication::setApplicationVersion(QStringLiteral(QUILLSTACKS_VERSION));
    Log::setVersion(QStringLiteral(QUILLSTACKS_VERSION), QStringLiteral(QUILLSTACKS_BUILD_NUMBER));
}

} // namespace Quillstacks
