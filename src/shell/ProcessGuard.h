#pragma once

#include "platform/SingleInstance.h"

#include <memory>
#include <optional>

namespace Quillstacks {

class StoreLock;

/// Keeps the program to one process: over the session bus, and where there is none by a lock beside the store.
class ProcessGuard final {
public:
    ProcessGuard();
    ~ProcessGuard();
    Q_DISABLE_COPY_MOVE(ProcessGuard)

    /// The status to end with at once, because another process is there; empty when this is the only one. Ask before
    /// anything shows on screen.
    [[nodiscard]] std::optional<int> enter();
    [[nodiscard]] SingleInstance& instance() { return single; }

private:
    [[nodiscard]] std::optional<int> lockStore();

    SingleInstance single;
    std::unique_ptr<StoreLock> lock;
};

} // namespace Quillstacks
