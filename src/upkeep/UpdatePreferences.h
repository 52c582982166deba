#pragma once

#include "foundation/StoredPreference.h"

namespace Quillstacks {

/// "automaticallyCheckForUpdates", true by default.
[[nodiscard]] const StoredPreference<bool>& automaticallyCheckForUpdatesPreference();
/// "automaticallyDownloadUpdates", false by default.
[[nodiscard]] const StoredPreference<bool>& automaticallyDownloadUpdatesPreference();

} // namespace Quillstacks
