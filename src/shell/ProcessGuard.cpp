#include "shell/ProcessGuard.h"

#include "platform/Files.h"
#include "platform/StoreLock.h"
#include "shell/StoreLocation.h"

#include <cstdio>

namespace Quillstacks {

ProcessGuard::ProcessGuard() = default;
ProcessGuard::~ProcessGuard() = default;

std::optional<int> ProcessGuard::enter() {
    if (single.start() == SingleInstance::Outcome::handedOver)
        return 0;
    return single.hasBus() ? std::nullopt : lockStore();
}

std::optional<int> ProcessGuard::lockStore() {
    const QString store = StoreLocation::store();
    if (store.isEmpty())
        return std::nullopt;
    try {
        Files::createDirectory(StoreLocation::folder());
    } catch (const std::exception&) {
        // The start meets the same refusal a moment later and shows it.
        return std::nullopt;
    }
    lock = std::make_unique<StoreLock>(store + QStringLiteral(".lock"));
    if (lock->tryLock())
        return std::nullopt;
    std::fprintf(stderr, "Quillstacks is running already: its library is held by %s.\n",
                 qUtf8Printable(lock->holder()));
    return 1;
}

} // namespace Quillstacks
