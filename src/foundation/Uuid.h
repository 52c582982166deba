#pragma once

#include <QString>
#include <QUuid>

namespace Quillstacks {

using Uuid = QUuid;

/// A random identifier (RFC 4122, version 4).
[[nodiscard]] Uuid randomUuid();
/// 36 characters, upper case, without braces.
[[nodiscard]] QString uuidText(const Uuid& uuid);

} // namespace Quillstacks
