#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QStringList>
#include <QVariantMap>

namespace Quillstacks {

/// The desktop's portal as far as global shortcuts need it, on the session bus for as long as it lives. Whoever sits
/// before it answers as the test says.
class FakeShortcutsPortal final : public QDBusVirtualObject {
    Q_OBJECT
public:
    enum class User { agrees, declines, fails, leavesItOut, isAway };

    FakeShortcutsPortal();
    ~FakeShortcutsPortal() override;

    // What it is like
    User user = User::agrees;
    bool hasShortcuts = true;   ///< the interface as such
    bool hasRegistry = true;    ///< no for an old portal
    bool acceptsProgram = true; ///< no: it lets the program have no session
    bool choosesPaths = false;  ///< an old portal: requests stand where it wants, and are told to the caller only
    bool answersFirst = false;  ///< sends a response before the reply to its call
    bool isSilent = false;      ///< answers nothing at all

    /// What was asked of it, in order: "version", "Register app.Quillstacks", "CreateSession",
    /// "BindShortcuts quick-access CTRL+SHIFT+space", "Session.Close".
    QStringList calls;
    [[nodiscard]] qsizetype count(const char* beginning) const {
        return calls.filter(QString::fromLatin1(beginning)).size();
    }

    /// The user who was away answers.
    void answerBind(User with);
    void press(const QString& id = QStringLiteral("quick-access"));
    /// The user takes the shortcut away, or gives it back, in the desktop's settings.
    void listShortcuts(bool withOurs);
    void endSession();

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    [[nodiscard]] QString introspect(const QString& path) const override;

    QString session; ///< the path of the one that is open; empty when there is none

private:
    [[nodiscard]] bool answer(const QDBusMessage& message);
    void answerRequest(const QDBusMessage& message, const QVariantMap& options, uint code, const QVariantMap& results);
    void createSession(const QDBusMessage& message);
    void bindShortcuts(const QDBusMessage& message);
    void sendResponse(const QString& path, uint code, const QVariantMap& results);
    void sendBindResponse(User with);
    [[nodiscard]] bool refuse(const QDBusMessage& message, const char* error);

    QDBusConnection bus;
    QString bindRequest;
    int lastRequest = 0;
};

} // namespace Quillstacks
