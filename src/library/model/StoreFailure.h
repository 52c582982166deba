#pragma once

#include "library/model/StoreError.h"

#include <QString>

namespace SQLite {
class Exception;
}

namespace Quillstacks {

/// What SQLite's failure on this store means to the person whose store it is.
[[nodiscard]] StoreError storeError(const SQLite::Exception& error, const QString& path);
/// The same of a failed system call.
[[nodiscard]] StoreError storeError(int errnoValue, const QString& path);

} // namespace Quillstacks
