#pragma once

#include <QtGlobal>

#include <chrono>

namespace Quillstacks {

/// A moment in time, in microseconds since 1970-01-01T00:00:00Z, leap seconds not counted (POSIX time).
using Date = std::chrono::sys_time<std::chrono::microseconds>;

/// Earlier than every moment that can be stored.
inline constexpr Date distantPast = Date::min();

[[nodiscard]] constexpr qint64 microsecondsSinceEpoch(Date date) {
    return date.time_since_epoch().count();
}
[[nodiscard]] constexpr Date dateFromMicroseconds(qint64 microseconds) {
    return Date{std::chrono::microseconds{microseconds}};
}

} // namespace Quillstacks
