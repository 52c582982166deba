#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QStringList>

#include <atomic>

namespace Quillstacks {

/// What a desktop's panel provides to those that have a status icon.
class FakeTrayHost final : public QObject, public QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)
public:
    void connectedTo(const QDBusConnection& /*bus*/) {}
    [[nodiscard]] bool hasHost() const { return isHostThere; }
    [[nodiscard]] int protocolVersion() const { return 0; }
    [[nodiscard]] QStringList items() const { return {}; }

    /// A host comes to the watcher or leaves it. From any thread.
    void setHost(bool isThere);

    std::atomic<bool> isHostThere = true;
    std::atomic<int> registrations = 0;

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString& service);
    void RegisterStatusNotifierHost(const QString& service);

Q_SIGNALS:
    void StatusNotifierHostRegistered();
    void StatusNotifierHostUnregistered();
    void StatusNotifierItemRegistered(const QString& service);
    void StatusNotifierItemUnregistered(const QString& service);
};

} // namespace Quillstacks
