#include "FakeTrayHost.h"

namespace Quillstacks {

void FakeTrayHost::setHost(bool isThere) {
    isHostThere = isThere;
    // The bus takes signals from the object's own thread only.
    QMetaObject::invokeMethod(this, [this, isThere] {
        if (isThere)
            Q_EMIT StatusNotifierHostRegistered();
        else
            Q_EMIT StatusNotifierHostUnregistered();
    });
}

void FakeTrayHost::RegisterStatusNotifierItem(const QString& /*service*/) {
    ++registrations;
}

void FakeTrayHost::RegisterStatusNotifierHost(const QString& /*service*/) {
    isHostThere = true;
    Q_EMIT StatusNotifierHostRegistered();
}

} // namespace Quillstacks
