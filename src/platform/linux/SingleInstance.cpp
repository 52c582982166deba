#include "platform/SingleInstance.h"

#include "instance/ApplicationAdaptor.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>

namespace Quillstacks {

namespace {

constexpr int attempts = 3;
constexpr int handOverMilliseconds = 5000;

QString serviceName() {
    return QStringLiteral("app.Quillstacks");
}

QString objectPath() {
    return QStringLiteral("/app/Quillstacks");
}

/// False when the owner was gone before it could take the call: a process that is ending still has the name, and drops
/// the calls that wait for it.
bool activateOwner(const QDBusConnection& connection) {
    auto call = QDBusMessage::createMethodCall(
        serviceName(), objectPath(), QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
    call.setAutoStartService(false);
    call << ApplicationAdaptor::platformDataOfThisStart();
    const QDBusMessage reply = connection.call(call, QDBus::Block, handOverMilliseconds);
    if (reply.type() != QDBusMessage::ErrorMessage)
        return true;
    // An owner that lives on and is only slow to answer gets to the call in its time.
    return connection.interface()->isServiceRegistered(serviceName()).value();
}

} // namespace

SingleInstance::SingleInstance(QObject* parent) : QObject(parent) {
    new ApplicationAdaptor(this);
}

SingleInstance::~SingleInstance() {
    auto connection = QDBusConnection::sessionBus();
    if (connection.objectRegisteredAt(objectPath()) == this) {
        connection.unregisterService(serviceName());
        connection.unregisterObject(objectPath());
    }
}

SingleInstance::Outcome SingleInstance::start() {
    auto connection = QDBusConnection::sessionBus();
    bus = connection.isConnected();
    if (!bus)
        return Outcome::first;
    // The object comes before the name: who calls as soon as the name is there must find it.
    connection.registerObject(objectPath(), this, QDBusConnection::ExportAdaptors);
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const auto reply = connection.interface()->registerService(serviceName());
        if (reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered)
            return Outcome::first;
        if (activateOwner(connection)) {
            connection.unregisterObject(objectPath());
            return Outcome::handedOver;
        }
    }
    return Outcome::first;
}

} // namespace Quillstacks
