#pragma once

#include "foundation/StoredPreference.h"

namespace Quillstacks {

/// "versionHistoryLimit", 50 by default: how many versions are kept of one prompt. Used as it stands, without clamping.
[[nodiscard]] const StoredPreference<qint64>& versionHistoryLimitPreference();

} // namespace Quillstacks
