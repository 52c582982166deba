#include "hotkeys/PortalShortcut.h"

#include <algorithm>

namespace Quillstacks {

bool listsShortcut(const QVariant& value, const QString& id) {
    if (!value.canConvert<QDBusArgument>())
        return false;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("a(sa{sv})"))
        return false;
    const auto shortcuts = qdbus_cast<QList<PortalShortcut>>(argument);
    return std::ranges::any_of(shortcuts, [&id](const PortalShortcut& shortcut) { return shortcut.id == id; });
}

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut) {
    argument.beginStructure();
    argument << shortcut.id << shortcut.details;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut) {
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.details;
    argument.endStructure();
    return argument;
}

} // namespace Quillstacks
