#pragma once

#include <QDBusArgument>
#include <QList>
#include <QString>
#include <QVariantMap>

namespace Quillstacks {

/// A shortcut as the portal takes and lists it: an identifier of our own, and what it has to say of it.
struct PortalShortcut {
    QString id;
    QVariantMap details;
};

/// Whether a value that the portal sent is a list of shortcuts with this one in it.
[[nodiscard]] bool listsShortcut(const QVariant& value, const QString& id);

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut);

} // namespace Quillstacks

Q_DECLARE_METATYPE(Quillstacks::PortalShortcut)
