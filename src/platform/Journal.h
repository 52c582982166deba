#pragma once

#include "foundation/Log.h"

namespace Quillstacks::Journal {

/// A sink for Log: the systemd journal where there is one, standard error otherwise; never both for one line.
[[nodiscard]] Log::Sink sink();

} // namespace Quillstacks::Journal
