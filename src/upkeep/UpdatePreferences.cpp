#include "upkeep/UpdatePreferences.h"

namespace Quillstacks {

const StoredPreference<bool>& automaticallyCheckForUpdatesPreference() {
    static const StoredPreference<bool> preference(QStringLiteral("automaticallyCheckForUpdates"), true);
    return preference;
}

const StoredPreference<bool>& automaticallyDownloadUpdatesPreference() {
    static const StoredPreference<bool> preference(QStringLiteral("automaticallyDownloadUpdates"), false);
    return preference;
}

} // namespace Quillstacks
