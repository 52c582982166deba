#include "upkeep/UpdateOrigin.h"

namespace Quillstacks {

UpdateOrigin UpdateOrigin::ofBuild() {
    return {QStringLiteral(QUILLSTACKS_UPDATE_ORIGIN), QByteArray::fromBase64(QUILLSTACKS_UPDATE_KEY)};
}

} // namespace Quillstacks
