#include "shell/Version.h"

#include "foundation/Log.h"

namespace Quillstacks {

void announceVersion() {
    Log::setVersion(QStringLiteral(QUILLSTACKS_VERSION), QStringLiteral(QUILLSTACKS_BUILD_NUMBER));
}

} // namespace Quillstacks
