#pragma once

#include <QDBusConnection>
#include <QThread>

namespace Quillstacks {

/// A service of the desktop on the session bus, with a thread and a connection of its own: the toolkit asks some
/// services in calls that block the main loop.
template <typename Service>
class BusThread final : public QThread {
public:
    BusThread(const char* serviceName, const char* objectPath)
        : name(QString::fromLatin1(serviceName)), path(QString::fromLatin1(objectPath)) {
        service.moveToThread(this);
        start();
        while (!isReady)
            QThread::yieldCurrentThread();
    }
    ~BusThread() override {
        quit();
        wait();
    }
    Q_DISABLE_COPY_MOVE(BusThread)

    Service service;

private:
    void run() override {
        const QString connectionName = QStringLiteral("service ") + name;
        {
            auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
            service.connectedTo(bus);
            bus.registerObject(path, &service,
                               QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals |
                                   QDBusConnection::ExportAllProperties);
            bus.registerService(name);
            isReady = true;
            exec();
            bus.unregisterService(name);
        }
        QDBusConnection::disconnectFromBus(connectionName);
        service.moveToThread(qApp->thread());
    }

    QString name;
    QString path;
    std::atomic<bool> isReady = false;
};

} // namespace Quillstacks
