#include "tray/TrayHostWatch.h"

#include "foundation/MainQueue.h"
#include "x11/SelectionWatch.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include <utility>

namespace Quillstacks {

namespace {

QString watcherService() {
    return QStringLiteral("org.kde.StatusNotifierWatcher");
}

} // namespace

TrayHostWatch::TrayHostWatch(QObject* parent)
    : QObject(parent), x11Tray(new X11::SelectionWatch("_NET_SYSTEM_TRAY_S0", this)) {
    connect(x11Tray, &X11::SelectionWatch::changed, this, &TrayHostWatch::look);
    auto bus = QDBusConnection::sessionBus();
    if (bus.isConnected()) {
        auto* owner = new QDBusServiceWatcher(watcherService(), bus, QDBusServiceWatcher::WatchForOwnerChange, this);
        connect(owner, &QDBusServiceWatcher::serviceOwnerChanged, this, &TrayHostWatch::look);
        for (const auto* name : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
            bus.connect(watcherService(), QStringLiteral("/StatusNotifierWatcher"), watcherService(),
                        QString::fromLatin1(name), this, SLOT(look()));
    }
    look();
}

void TrayHostWatch::look() {
    if (looking) {
        lookAgain = true;
        return;
    }
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        MainQueue::async(this, [this] { conclude(false); });
        return;
    }
    looking = true;
    auto ask = QDBusMessage::createMethodCall(watcherService(), QStringLiteral("/StatusNotifierWatcher"),
                                              QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    ask.setAutoStartService(false);
    ask << watcherService() << QStringLiteral("IsStatusNotifierHostRegistered");
    auto* call = new QDBusPendingCallWatcher(bus.asyncCall(ask), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, &TrayHostWatch::answered);
}

void TrayHostWatch::answered(QDBusPendingCallWatcher* call) {
    call->deleteLater();
    looking = false;
    const QDBusPendingReply<QDBusVariant> reply = *call;
    if (std::exchange(lookAgain, false))
        look();
    else
        conclude(reply.isValid() && reply.value().variant().toBool());
}

void TrayHostWatch::conclude(bool notifierHost) {
    const bool now = notifierHost || x11Tray->isOwned();
    if (std::exchange(concluded, true) && now == there)
        return;
    there = now;
    Q_EMIT looked(there);
}

} // namespace Quillstacks
