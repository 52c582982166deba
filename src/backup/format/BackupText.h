#pragma once

#include "foundation/Date.h"
#include "foundation/Uuid.h"

#include <QByteArray>

#include <optional>
#include <string_view>

namespace Quillstacks {

/// How dates and identifiers stand in a backup file.
///
///     2025-03-14T09:26:53Z                     ISO 8601, UTC, whole seconds, no other form
///     6F9619FF-8B86-4011-B42D-00C04FC964FF     upper case on writing, either case on reading
namespace BackupText {

/// Fractions of a second are dropped. What lies outside the years 0 to 9999 becomes the nearest moment that can be
/// written: a date that is wrong already must not make the whole file unreadable.
void appendDate(QByteArray& text, Date date);
[[nodiscard]] std::optional<Date> date(std::string_view text);

void appendUuid(QByteArray& text, const Uuid& uuid);
[[nodiscard]] std::optional<Uuid> uuid(std::string_view text);

} // namespace BackupText
} // namespace Quillstacks
