#pragma once

#include "foundation/Date.h"

#include <QString>

namespace Quillstacks {

enum class RelativeDateUnits { full, abbreviated };

/// How long ago a moment was, in the largest unit that has passed whole by the calendar of the local time zone; what is
/// left over is dropped. In English, as the rest of the interface.
///
/// | passed                | full             | abbreviated     |
/// |-----------------------|------------------|-----------------|
/// | less than a second    | "now"            | "now"           |
/// | 45 seconds            | "45 seconds ago" | "45 sec. ago"   |
/// | 2 hours 59 minutes    | "2 hours ago"    | "2 hr. ago"     |
/// | 1 day                 | "1 day ago"      | "1 day ago"     |
/// | 20 days               | "2 weeks ago"    | "2 wk. ago"     |
/// | a month and a half    | "1 month ago"    | "1 mo. ago"     |
/// | -3 minutes            | "in 3 minutes"   | "in 3 min."     |
///
/// Less than a second either way is "now": nobody expects to read "in 0 seconds" of what was saved just now.
[[nodiscard]] QString relativeDate(Date date, Date now, RelativeDateUnits units);

} // namespace Quillstacks
