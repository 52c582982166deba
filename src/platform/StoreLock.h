#pragma once

#include <QString>

#include <memory>

class QLockFile;

namespace Quillstacks {

/// Keeps two processes without a session bus apart: a lock file beside the store.
class StoreLock final {
public:
    explicit StoreLock(const QString& path);
    ~StoreLock();

    /// False when another living process holds it.
    [[nodiscard]] bool tryLock();
    /// Who holds it: process number, program and host, for a message.
    [[nodiscard]] QString holder() const;

private:
    std::unique_ptr<QLockFile> file;
};

} // namespace Quillstacks
