#include "FakeShortcutsPortal.h"

#include "hotkeys/PortalShortcut.h"

#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include <utility>

namespace Quillstacks {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString root = QStringLiteral("/org/freedesktop/portal/desktop");
const QString shortcutsInterface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");

QDBusConnection ownBus() {
    static int count = 0;
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("fake portal %1").arg(++count));
}

QString senderPart(const QDBusMessage& message) {
    return message.service().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
}

QVariant listing(bool withOurs) {
    QList<PortalShortcut> shortcuts{{QStringLiteral("of-another"), {}}};
    if (withOurs)
        shortcuts.append({QStringLiteral("quick-access"),
                          {{QStringLiteral("trigger_description"), QStringLiteral("Press something")}}});
    return QVariant::fromValue(shortcuts);
}

} // namespace

FakeShortcutsPortal::FakeShortcutsPortal() : bus(ownBus()) {
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    bus.registerVirtualObject(root, this, QDBusConnection::SubPath);
    bus.registerService(service);
}

FakeShortcutsPortal::~FakeShortcutsPortal() {
    bus.unregisterService(service);
    bus.unregisterObject(root, QDBusConnection::UnregisterTree);
    QDBusConnection::disconnectFromBus(bus.name());
}

QString FakeShortcutsPortal::introspect(const QString& /*path*/) const {
    return {};
}

bool FakeShortcutsPortal::refuse(const QDBusMessage& message, const char* error) {
    return bus.send(message.createErrorReply(QString::fromLatin1(error), QStringLiteral("no")));
}

bool FakeShortcutsPortal::handleMessage(const QDBusMessage& message, const QDBusConnection& /*connection*/) {
    return isSilent || answer(message);
}

bool FakeShortcutsPortal::answer(const QDBusMessage& message) {
    const QString member = message.member();
    if (member == QStringLiteral("Get")) {
        calls << QStringLiteral("version");
        if (!hasShortcuts)
            return refuse(message, "org.freedesktop.DBus.Error.InvalidArgs");
        return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(uint{1}))));
    }
    if (member == QStringLiteral("Register")) {
        calls << QStringLiteral("Register ") + message.arguments().value(0).toString();
        if (!hasRegistry)
            return refuse(message, "org.freedesktop.DBus.Error.UnknownMethod");
        if (!acceptsProgram)
            return refuse(message, "org.freedesktop.portal.Error.Failed");
        return bus.send(message.createReply());
    }
    if (member == QStringLiteral("CreateSession")) {
        createSession(message);
    } else if (member == QStringLiteral("BindShortcuts")) {
        bindShortcuts(message);
    } else if (member == QStringLiteral("Close")) {
        calls << message.interface().section(QLatin1Char('.'), -1) + QStringLiteral(".Close");
        if (message.path() == session)
            session.clear();
        return bus.send(message.createReply());
    } else {
        return false;
    }
    return true;
}

void FakeShortcutsPortal::createSession(const QDBusMessage& message) {
    calls << QStringLiteral("CreateSession");
    if (!acceptsProgram) {
        std::ignore = refuse(message, "org.freedesktop.portal.Error.NotAllowed");
        return;
    }
    const auto options = qdbus_cast<QVariantMap>(message.arguments().value(0));
    session = root + QStringLiteral("/session/") + senderPart(message) + QLatin1Char('/') +
              options.value(QStringLiteral("session_handle_token")).toString();
    answerRequest(message, options, 0, {{QStringLiteral("session_handle"), session}});
}

void FakeShortcutsPortal::bindShortcuts(const QDBusMessage& message) {
    const QVariantList arguments = message.arguments();
    for (const auto& shortcut : qdbus_cast<QList<PortalShortcut>>(arguments.value(1)))
        calls << QStringLiteral("BindShortcuts ") + shortcut.id + QLatin1Char(' ') +
                     shortcut.details.value(QStringLiteral("preferred_trigger")).toString();
    const auto options = qdbus_cast<QVariantMap>(arguments.value(3));
    bindRequest = root + QStringLiteral("/request/") + senderPart(message) + QLatin1Char('/') +
                  options.value(QStringLiteral("handle_token")).toString();
    bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(bindRequest))));
    if (user != User::isAway)
        sendBindResponse(user);
}

void FakeShortcutsPortal::answerRequest(const QDBusMessage& message, const QVariantMap& options, uint code,
                                        const QVariantMap& results) {
    const QString token = options.value(QStringLiteral("handle_token")).toString();
    const QString path = choosesPaths
                             ? root + QStringLiteral("/request/own/r%1").arg(++lastRequest)
                             : root + QStringLiteral("/request/") + senderPart(message) + QLatin1Char('/') + token;
    if (answersFirst)
        sendResponse(path, code, results);
    bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(path))));
    if (choosesPaths) // the caller cannot know the path before the reply
        QMetaObject::invokeMethod(
            this, [this, path, code, results] { sendResponse(path, code, results); }, Qt::QueuedConnection);
    else if (!answersFirst)
        sendResponse(path, code, results);
}

void FakeShortcutsPortal::sendResponse(const QString& path, uint code, const QVariantMap& results) {
    auto signal =
        QDBusMessage::createSignal(path, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
    signal << code << results;
    bus.send(signal);
}

void FakeShortcutsPortal::sendBindResponse(User with) {
    const QString shortcuts = QStringLiteral("shortcuts");
    if (with == User::agrees)
        sendResponse(bindRequest, 0, {{shortcuts, listing(true)}});
    else if (with == User::leavesItOut)
        sendResponse(bindRequest, 0, {{shortcuts, listing(false)}});
    else
        sendResponse(bindRequest, with == User::declines ? 1 : 2, {});
}

void FakeShortcutsPortal::answerBind(User with) {
    sendBindResponse(with);
}

void FakeShortcutsPortal::press(const QString& id) {
    auto signal = QDBusMessage::createSignal(root, shortcutsInterface, QStringLiteral("Activated"));
    signal << QVariant::fromValue(QDBusObjectPath(session.isEmpty() ? root + QStringLiteral("/session/none") : session))
           << id << quint64{4711} << QVariantMap{{QStringLiteral("activation_token"), QStringLiteral("token-1")}};
    bus.send(signal);
}

void FakeShortcutsPortal::listShortcuts(bool withOurs) {
    auto signal = QDBusMessage::createSignal(root, shortcutsInterface, QStringLiteral("ShortcutsChanged"));
    signal << QVariant::fromValue(QDBusObjectPath(session)) << listing(withOurs);
    bus.send(signal);
}

void FakeShortcutsPortal::endSession() {
    auto signal = QDBusMessage::createSignal(
        std::exchange(session, QString()), QStringLiteral("org.freedesktop.portal.Session"), QStringLiteral("Closed"));
    signal << QVariantMap();
    bus.send(signal);
}

} // namespace Quillstacks
