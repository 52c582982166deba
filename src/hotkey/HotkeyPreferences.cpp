#include "hotkey/HotkeyPreferences.h"

namespace Quillstacks {

const StoredPreference<qint64>& globalHotkeyKeyCodePreference() {
    static const StoredPreference<qint64> preference(QStringLiteral("globalHotkeyKeyCode"), 49);
    return preference;
}

const StoredPreference<qint64>& globalHotkeyModifiersPreference() {
    static const StoredPreference<qint64> preference(QStringLiteral("globalHotkeyModifiers"), 1179648);
    return preference;
}

} // namespace Quillstacks
