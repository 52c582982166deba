#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariant>

#include <functional>
#include <map>

namespace Quillstacks {

namespace Portal {
inline const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
inline const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
inline const QString globalShortcuts = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
inline const QString requestInterface = QStringLiteral("org.freedesktop.portal.Request");
inline const QString sessionInterface = QStringLiteral("org.freedesktop.portal.Session");
} // namespace Portal

/// Calls of the portal whose result comes later, by a signal of an object that is made for the call.
class PortalRequests final : public QObject {
    Q_OBJECT
public:
    // How a call ended. The first three are the portal's own.
    static constexpr uint success = 0;
    static constexpr uint cancelled = 1;
    static constexpr uint otherEnd = 2;
    static constexpr uint refused = 1000; ///< the call was answered by an error

    using Continuation = std::function<void(uint code, const QVariantMap& results)>;

    explicit PortalRequests(const QDBusConnection& connection);

    /// Calls a method of the shortcuts' interface with these arguments, and the options behind them. The continuation
    /// runs once, or never when the portal goes first. The result names the request.
    QString call(const QString& method, const QVariantList& arguments, QVariantMap options, Continuation then);
    /// Takes a request back that is not answered yet: its continuation never runs.
    void withdraw(const QString& request);
    /// A name for an object, unlike those before it.
    [[nodiscard]] QString nextToken();
    /// Ends an object of the portal's.
    void close(const QString& path, const QString& interface);
    /// The portal has gone, and its requests with it.
    void forgetAll();

private Q_SLOTS:
    void responded(const QDBusMessage& message);

private:
    Continuation take(const QString& path);

    QDBusConnection bus;
    std::map<QString, Continuation> waiting; ///< by the request's path
    quint32 lastToken = 0;
};

} // namespace Quillstacks
