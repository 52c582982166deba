#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

namespace Quillstacks {

/// While one is alive, no file can be written: every save of a store fails.
class FullDisk final {
public:
    FullDisk() : signalHandler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit none{0, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, signalHandler);
    }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    void (*signalHandler)(int);
    rlimit before{};
};

} // namespace Quillstacks
