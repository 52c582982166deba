#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusVariant>
#include <QObject>

#include <atomic>

namespace Quillstacks {

/// The settings portal of a desktop that prefers a dark look. It knows ReadOne for the colour scheme only; the others
/// have to be asked in the old way.
class FakePortal final : public QObject, public QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    void connectedTo(const QDBusConnection& /*bus*/) {}
    std::atomic<bool> isSilent = false; ///< answers nothing while set

public Q_SLOTS:
    QDBusVariant ReadOne(const QString& nameSpace, const QString& key);
    QDBusVariant Read(const QString& nameSpace, const QString& key);

Q_SIGNALS:
    void SettingChanged(const QString& nameSpace, const QString& key, const QDBusVariant& value);
};

} // namespace Quillstacks
