#pragma once

#include <QtGlobal>

#include <tuple>
#include <unistd.h>

namespace Quillstacks {

/// While one is alive, a process of root has the rights of nobody. Others have no more than their own anyway.
class AsNobody final {
public:
    AsNobody() {
        if (isRoot)
            std::ignore = ::seteuid(nobody); // the test sees it when it fails
    }
    ~AsNobody() {
        if (isRoot)
            std::ignore = ::seteuid(0);
    }
    Q_DISABLE_COPY_MOVE(AsNobody)

    static constexpr uid_t nobody = 65534;

private:
    const bool isRoot = ::geteuid() == 0;
};

} // namespace Quillstacks
