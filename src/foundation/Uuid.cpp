#include "foundation/Uuid.h"

namespace Quillstacks {

Uuid randomUuid() {
    return QUuid::createUuid();
}

QString uuidText(const Uuid& uuid) {
    return uuid.toString(QUuid::WithoutBraces).toUpper();
}

} // namespace Quillstacks
