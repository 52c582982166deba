#pragma once

#include <QString>
#include <QtGlobal>

#include <array>
#include <optional>
#include <sys/types.h>
#include <utility>

namespace Quillstacks {

/// The store's file seen from outside: what is done to it before and after SQLite has it open. Functions throw
/// StoreError.
namespace StoreFile {

/// The names of the two side files.
[[nodiscard]] QString walPath(const QString& path);
[[nodiscard]] QString shmPath(const QString& path);

/// Refuses what can't be a store that this program may open and write, without leaving a trace. False where no file
/// stands. Must not be called while this process has the store open: closing a file drops all locks that the process
/// holds on it, SQLite's among them.
[[nodiscard]] bool check(const QString& path);
/// Makes an empty store, whole or not at all, mode 0600 from its first byte. Never replaces a file. A write-ahead log
/// that was left behind by a store which is gone is set aside, as SQLite would delete it.
void create(const QString& path);
/// Gives file and side files the mode 0600, whatever they had.
void makePrivate(const QString& path);

/// Sizes and times of the last change of the file and its write-ahead log; equal while nobody has written.
struct Signature {
    std::array<qint64, 4> values{};
    bool operator==(const Signature&) const = default;
};
[[nodiscard]] Signature signature(const QString& path);

} // namespace StoreFile

/// Keeps a store from being opened twice within this process, which SQLite's locks would not survive.
class StoreClaim final {
public:
    /// Throws StoreError (locked) where the file is claimed already. A file that does not exist can't be claimed.
    explicit StoreClaim(const QString& path);
    ~StoreClaim();
    Q_DISABLE_COPY_MOVE(StoreClaim)

private:
    std::optional<std::pair<dev_t, ino_t>> identity;
};

} // namespace Quillstacks
