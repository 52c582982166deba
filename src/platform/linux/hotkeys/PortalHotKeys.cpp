#include "hotkeys/PortalHotKeys.h"

#include "foundation/MainQueue.h"
#include "hotkeys/PortalShortcut.h"
#include "hotkeys/PortalTrigger.h"
#include "Session.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QPointer>

#include <utility>

namespace Quillstacks {

namespace {

const QString shortcutId = QStringLiteral("quick-access");
const QString applicationId = QStringLiteral("app.Quillstacks");
constexpr double returnDelay = 1.0; ///< seconds that a portal which went away gets to come back by itself

QDBusConnection privateBus() {
    static int count = 0;
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("hot key portal %1").arg(++count));
}

/// Old portals give the session's path as text.
QString pathIn(const QVariant& value) {
    return value.canConvert<QDBusObjectPath>() ? value.value<QDBusObjectPath>().path() : value.toString();
}

template <typename Done>
void callThen(const QDBusConnection& bus, const QDBusMessage& message, QObject* context, Done done) {
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [done](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        done(finished->reply());
    });
}

} // namespace

PortalHotKeys* PortalHotKeys::shared() {
    static QPointer<PortalHotKeys> instance;
    if (!Session::isWayland())
        return nullptr;
    if (!instance && QCoreApplication::instance())
        instance = new PortalHotKeys(QCoreApplication::instance());
    return instance;
}

PortalHotKeys::PortalHotKeys(QObject* parent) : QObject(parent), bus(privateBus()), requests(bus) {
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    if (!bus.isConnected())
        return;
    subscribe();
    if (!isWithinReach())
        return;
    presence = Presence::asking;
    lookForPortal();
}

PortalHotKeys::~PortalHotKeys() {
    // Ends the session with it.
    QDBusConnection::disconnectFromBus(bus.name());
}

void PortalHotKeys::subscribe() {
    const auto follow = [this](const char* signal, const char* slot) {
        bus.connect(Portal::service, Portal::path, Portal::globalShortcuts, QLatin1String(signal), this, slot);
    };
    follow("Activated", SLOT(portalActivated(QDBusMessage)));
    follow("ShortcutsChanged", SLOT(portalShortcutsChanged(QDBusMessage)));
    bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"), QStringLiteral("org.freedesktop.DBus.Local"),
                QStringLiteral("Disconnected"), this, SLOT(portalGone()));
    auto* watcher = new QDBusServiceWatcher(Portal::service, bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString& /*name*/, const QString& before, const QString& now) {
                if (!before.isEmpty())
                    portalGone();
                // One that comes may be what our own question has started: it has that question already.
                if (!now.isEmpty() && !isLooking)
                    lookForPortal();
            });
}

bool PortalHotKeys::isWithinReach() const {
    const auto* daemon = bus.isConnected() ? bus.interface() : nullptr;
    return daemon && (daemon->isServiceRegistered(Portal::service) ||
                      daemon->activatableServiceNames().value().contains(Portal::service));
}

void PortalHotKeys::lookForPortal() {
    isLooking = true;
    const quint32 round = ++lookRound;
    auto question = QDBusMessage::createMethodCall(
        Portal::service, Portal::path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << Portal::globalShortcuts << QStringLiteral("version");
    callThen(bus, question, this, [this, round](const QDBusMessage& reply) {
        if (round != lookRound)
            return;
        if (reply.type() == QDBusMessage::ReplyMessage) {
            registerApplication(round);
        } else {
            isLooking = false;
            presence = Presence::absent;
            tell(HotKeys::eventHotKeyInvalidErr);
        }
    });
}

void PortalHotKeys::registerApplication(quint32 round) {
    auto introduction = QDBusMessage::createMethodCall(Portal::service, Portal::path,
                                                       QStringLiteral("org.freedesktop.host.portal.Registry"),
                                                       QStringLiteral("Register"));
    introduction << applicationId << QVariantMap();
    // Whatever it says: an older portal knows no such call, and one that refuses us refuses the session too.
    callThen(bus, introduction, this, [this, round](const QDBusMessage& /*reply*/) {
        if (round == lookRound)
            portalFound();
    });
}

void PortalHotKeys::portalFound() {
    isLooking = false;
    presence = Presence::there;
    if (wish && !isDeclined)
        openSession();
}

void PortalHotKeys::portalGone() {
    ++lookRound;
    ++sessionRound;
    requests.forgetAll();
    isLooking = false;
    presence = Presence::absent;
    binding = Binding::none;
    sessionPath.clear();
    tell(HotKeys::eventHotKeyInvalidErr);
    MainQueue::after(returnDelay, this, [this] {
        if (presence == Presence::absent && !isLooking && isWithinReach())
            lookForPortal();
    });
}

HotKeys::Status PortalHotKeys::grab(HotKeys::HotKeyRef ref, quint32 keyCode, quint32 modifiers,
                                    HotKeys::Answer answered) {
    const auto wanted = portalTrigger(keyCode, modifiers);
    if (!wanted || wish)
        return HotKeys::eventHotKeyInvalidErr;
    wish = Wish{.ref = ref, .trigger = *wanted, .answered = std::move(answered)};
    if (binding != Binding::none && trigger == *wanted) {
        if (binding == Binding::bound && !isDeclined)
            return HotKeys::noErr;
        // Taken away in the desktop's settings, where the user may give it back to this session; or being asked for.
        if (binding == Binding::bound)
            tellSoon(HotKeys::eventHotKeyInvalidErr);
        return HotKeys::answerPending;
    }
    closeSession();
    if (presence == Presence::absent || isDeclined)
        tellSoon(HotKeys::eventHotKeyInvalidErr);
    else if (presence == Presence::there)
        openSession();
    return HotKeys::answerPending;
}

void PortalHotKeys::release(HotKeys::HotKeyRef ref) {
    if (!wish || wish->ref != ref)
        return;
    wish.reset();
    MainQueue::async(this, [this] {
        if (!wish)
            closeSession();
    });
}

void PortalHotKeys::askAgain() {
    if (presence == Presence::absent) {
        if (!isLooking && isWithinReach())
            lookForPortal();
        return;
    }
    if (!isDeclined)
        return;
    if (!wish) {
        isDeclined = false; // there is nothing to ask about until a key is registered
    } else if (presence == Presence::there && (binding == Binding::none || binding == Binding::bound)) {
        wish->told.reset(); // a second decline is told as the first was
        closeSession();
        openSession();
    }
}

void PortalHotKeys::openSession() {
    binding = Binding::creating;
    trigger = wish->trigger;
    const quint32 round = ++sessionRound;
    requests.call(QStringLiteral("CreateSession"), {}, {{QStringLiteral("session_handle_token"), requests.nextToken()}},
                  [this, round](uint code, const QVariantMap& results) {
                      const QString session = pathIn(results.value(QStringLiteral("session_handle")));
                      if (round != sessionRound) {
                          if (!session.isEmpty())
                              requests.close(session, Portal::sessionInterface);
                      } else if (code != PortalRequests::success || session.isEmpty()) {
                          sessionFailed(code == PortalRequests::refused);
                      } else {
                          bind(session);
                      }
                  });
}

void PortalHotKeys::bind(const QString& session) {
    binding = Binding::binding;
    sessionPath = session;
    bus.connect(Portal::service, session, Portal::sessionInterface, QStringLiteral("Closed"), this,
                SLOT(portalSessionClosed(QDBusMessage)));
    const PortalShortcut shortcut{shortcutId,
                                  {{QStringLiteral("description"), QStringLiteral("Quick Access")},
                                   {QStringLiteral("preferred_trigger"), trigger}}};
    const QVariantList arguments{QVariant::fromValue(QDBusObjectPath(session)),
                                 QVariant::fromValue(QList<PortalShortcut>{shortcut}), QString()};
    bindRequest = requests.call(QStringLiteral("BindShortcuts"), arguments, {},
                                [this, round = sessionRound](uint code, const QVariantMap& results) {
                                    if (round == sessionRound)
                                        bindAnswered(code, results);
                                });
}

void PortalHotKeys::bindAnswered(uint code, const QVariantMap& results) {
    const bool isListed = listsShortcut(results.value(QStringLiteral("shortcuts")), shortcutId);
    if (code == PortalRequests::success && isListed) {
        binding = Binding::bound;
        isDeclined = false;
        tell(HotKeys::noErr);
        return;
    }
    closeSession();
    // A user who leaves the shortcut out of what he agrees to has declined it.
    if (code == PortalRequests::cancelled || code == PortalRequests::success)
        declined();
    else
        sessionFailed(code == PortalRequests::refused);
}

void PortalHotKeys::closeSession() {
    ++sessionRound;
    // The user need not answer any more.
    if (binding == Binding::binding)
        requests.withdraw(bindRequest);
    binding = Binding::none;
    if (sessionPath.isEmpty())
        return;
    const QString session = std::exchange(sessionPath, QString());
    bus.disconnect(Portal::service, session, Portal::sessionInterface, QStringLiteral("Closed"), this,
                   SLOT(portalSessionClosed(QDBusMessage)));
    requests.close(session, Portal::sessionInterface);
}

void PortalHotKeys::sessionFailed(bool refused) {
    binding = Binding::none;
    // A portal that will not have us is none.
    if (refused)
        presence = Presence::absent;
    tell(HotKeys::eventHotKeyInvalidErr);
}

void PortalHotKeys::declined() {
    isDeclined = true;
    tell(HotKeys::eventHotKeyInvalidErr);
}

void PortalHotKeys::portalActivated(const QDBusMessage& message) {
    const QVariantList arguments = message.arguments();
    if (arguments.size() != 4 || !wish || binding != Binding::bound || pathIn(arguments.at(0)) != sessionPath ||
        arguments.at(1).toString() != shortcutId)
        return;
    const auto options = qdbus_cast<QVariantMap>(arguments.at(3));
    Q_EMIT pressed(wish->ref, static_cast<quint32>(arguments.at(2).toULongLong()),
                   options.value(QStringLiteral("activation_token")).toString());
}

void PortalHotKeys::portalShortcutsChanged(const QDBusMessage& message) {
    const QVariantList arguments = message.arguments();
    if (arguments.size() != 2 || binding != Binding::bound || pathIn(arguments.at(0)) != sessionPath)
        return;
    if (!listsShortcut(arguments.at(1), shortcutId)) {
        declined();
    } else if (std::exchange(isDeclined, false)) {
        tell(HotKeys::noErr);
    }
}

void PortalHotKeys::portalSessionClosed(const QDBusMessage& message) {
    if (message.path() != sessionPath)
        return;
    ++sessionRound;
    binding = Binding::none;
    sessionPath.clear();
    declined();
}

void PortalHotKeys::tell(HotKeys::Status status) {
    if (!wish || wish->told == status)
        return;
    wish->told = status;
    if (const auto answered = wish->answered)
        answered(status);
}

void PortalHotKeys::tellSoon(HotKeys::Status status) {
    MainQueue::async(this, [this, status, ref = wish->ref] {
        if (wish && wish->ref == ref)
            tell(status);
    });
}

} // namespace Quillstacks
