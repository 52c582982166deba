#include "hotkeys/PortalRequests.h"

#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace Quillstacks {

namespace {

QString pathOf(const QDBusConnection& bus, const QString& token) {
    const QString sender = bus.baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
    return Portal::path + QStringLiteral("/request/") + sender + QLatin1Char('/') + token;
}

} // namespace

PortalRequests::PortalRequests(const QDBusConnection& connection) : bus(connection) {
    // Whatever the path: one that the portal chooses is known too late.
    bus.connect(Portal::service, QString(), Portal::requestInterface, QStringLiteral("Response"), this,
                SLOT(responded(QDBusMessage)));
}

QString PortalRequests::call(const QString& method, const QVariantList& arguments, QVariantMap options,
                             Continuation then) {
    const QString token = nextToken();
    const QString path = pathOf(bus, token);
    // Before the call: the response may come before its reply.
    waiting.insert_or_assign(path, std::move(then));
    options.insert(QStringLiteral("handle_token"), token);
    auto message = QDBusMessage::createMethodCall(Portal::service, Portal::path, Portal::globalShortcuts, method);
    message.setArguments(arguments + QVariantList{options});
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, path](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        const QDBusPendingReply<QDBusObjectPath> reply = *finished;
        if (reply.isError()) {
            if (const auto failed = take(path))
                failed(refused, {});
        } else if (reply.value().path() != path && waiting.contains(path)) {
            // An old portal, which chooses the path itself.
            auto continuation = take(path);
            waiting.insert_or_assign(reply.value().path(), std::move(continuation));
        }
    });
    return path;
}

void PortalRequests::withdraw(const QString& request) {
    // Not there under this path: answered, or with an old portal, which has its question stand until its session ends.
    if (take(request))
        close(request, Portal::requestInterface);
}

QString PortalRequests::nextToken() {
    return QStringLiteral("quillstacks_%1").arg(++lastToken);
}

void PortalRequests::close(const QString& path, const QString& interface) {
    bus.send(QDBusMessage::createMethodCall(Portal::service, path, interface, QStringLiteral("Close")));
}

void PortalRequests::forgetAll() {
    waiting.clear();
}

PortalRequests::Continuation PortalRequests::take(const QString& path) {
    const auto found = waiting.find(path);
    if (found == waiting.end())
        return {};
    Continuation then = std::move(found->second);
    waiting.erase(found);
    return then;
}

void PortalRequests::responded(const QDBusMessage& message) {
    const QVariantList arguments = message.arguments();
    const auto then = take(message.path());
    if (!then)
        return;
    if (arguments.size() == 2)
        then(arguments.at(0).toUInt(), qdbus_cast<QVariantMap>(arguments.at(1)));
    else
        then(otherEnd, {});
}

} // namespace Quillstacks
