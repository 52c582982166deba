#include "FakePortal.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QThread>

namespace Quillstacks {

QDBusVariant FakePortal::ReadOne(const QString& /*nameSpace*/, const QString& key) {
    while (isSilent)
        QThread::yieldCurrentThread();
    if (key == QStringLiteral("color-scheme"))
        return QDBusVariant(QVariant::fromValue(uint{1}));
    sendErrorReply(QDBusError::UnknownMethod, QStringLiteral("no such method"));
    return {};
}

QDBusVariant FakePortal::Read(const QString& nameSpace, const QString& key) {
    if (nameSpace == QStringLiteral("org.gnome.desktop.interface") && key == QStringLiteral("enable-animations"))
        return QDBusVariant(QVariant::fromValue(QDBusVariant(QVariant::fromValue(false))));
    sendErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"), QStringLiteral("no such setting"));
    return {};
}

} // namespace Quillstacks
