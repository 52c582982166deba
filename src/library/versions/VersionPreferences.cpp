#include "library/versions/VersionPreferences.h"

namespace Quillstacks {

const StoredPreference<qint64>& versionHistoryLimitPreference() {
    static const StoredPreference<qint64> preference(QStringLiteral("versionHistoryLimit"), 50);
    return preference;
}

} // namespace Quillstacks
