#pragma once

#include "hotkeys/PortalRequests.h"
#include "platform/HotKeys.h"

#include <QDBusConnection>
#include <QDBusMessage> // in full: the bus finds a slot only if it knows the types of its parameters
#include <QObject>

#include <optional>

namespace Quillstacks {

/// The hot key by the desktop's portal for global shortcuts: one at a time, under the name "quick-access". The desktop
/// asks its user, who may take another key, decline, or take it back later; so every answer comes late.
///
/// A session of the portal binds once. Another key, or none, takes the session's end; that is put off to the next turn
/// of the main loop, so that letting go of a key and registering it again at once does nothing.
class PortalHotKeys final : public QObject {
    Q_OBJECT
public:
    /// The one of the user's session; nullptr where that is not a Wayland one.
    static PortalHotKeys* shared();
    explicit PortalHotKeys(QObject* parent = nullptr);
    ~PortalHotKeys() override;

    /// Whether the desktop has such a portal, and serves us. True until it is known that not.
    [[nodiscard]] bool isSupported() const { return presence != Presence::absent; }
    /// Supported, and not declined in this run.
    [[nodiscard]] bool isTrusted() const { return isSupported() && !isDeclined; }
    /// Asks the user once more, after a decline.
    void askAgain();

    /// answerPending, or noErr for what is bound already. Fails for a key that cannot be named, and for a second one.
    [[nodiscard]] HotKeys::Status grab(HotKeys::HotKeyRef ref, quint32 keyCode, quint32 modifiers,
                                       HotKeys::Answer answered);
    void release(HotKeys::HotKeyRef ref);

Q_SIGNALS:
    void pressed(Quillstacks::HotKeys::HotKeyRef ref, quint32 time, const QString& activationToken);

private Q_SLOTS:
    void portalActivated(const QDBusMessage& message);
    void portalShortcutsChanged(const QDBusMessage& message);
    void portalSessionClosed(const QDBusMessage& message);
    void portalGone();

private:
    enum class Presence { asking, there, absent };
    enum class Binding { none, creating, binding, bound };
    struct Wish {
        HotKeys::HotKeyRef ref = 0;
        QString trigger;
        HotKeys::Answer answered;
        std::optional<HotKeys::Status> told = std::nullopt;
    };

    void subscribe();
    [[nodiscard]] bool isWithinReach() const;
    void lookForPortal();
    void registerApplication(quint32 round);
    void portalFound();
    void openSession();
    void bind(const QString& session);
    void bindAnswered(uint code, const QVariantMap& results);
    void closeSession();
    void sessionFailed(bool refused);
    void declined();
    void tell(HotKeys::Status status);
    void tellSoon(HotKeys::Status status);

    QDBusConnection bus;
    PortalRequests requests;
    Presence presence = Presence::absent; ///< asking: nothing is known yet
    bool isLooking = false;
    Binding binding = Binding::none;
    bool isDeclined = false;
    std::optional<Wish> wish;
    QString trigger; ///< of the present session
    QString sessionPath;
    QString bindRequest;
    quint32 lookRound = 0;
    quint32 sessionRound = 0; ///< what was begun for an earlier session is not wanted any more
};

} // namespace Quillstacks
