#include "hotkey/HotkeyPreferences.h"

#include <QtGlobal>

#include <limits>

namespace Quillstacks {

const StoredPreference<qint64>& globalHotkeyKeyCodePreference() {
    static const StoredPreference<qint64> preference(QStringLiteral("globalHotkeyKeyCode"), 49);
    return preference;
}

const StoredPreference<qint64>& globalHotkeyModifiersPreference() {
    static const StoredPreference<qint64> preference(QStringLiteral("globalHotkeyModifiers"), 1179648);
    return preference;
}

quint16 shownHotkeyKeyCode() {
    const qint64 value = globalHotkeyKeyCodePreference().value();
    if (value < 0 || value > std::numeric_limits<quint16>::max())
        qFatal("The stored key code cannot be shown: %lld", static_cast<long long>(value));
    return static_cast<quint16>(value);
}

quint64 shownHotkeyModifiers() {
    const qint64 value = globalHotkeyModifiersPreference().value();
    if (value < 0)
        qFatal("The stored modifiers cannot be shown: %lld", static_cast<long long>(value));
    return static_cast<quint64>(value);
}

} // namespace Quillstacks
