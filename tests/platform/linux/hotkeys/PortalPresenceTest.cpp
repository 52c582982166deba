// Portals that are not there, old, refusing, silent, or come and go.
#include "PortalHotKeyFixture.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QFile>

namespace Quillstacks {
namespace {

using PortalPresence = PortalHotKey;

TEST_F(PortalPresence, withoutAPortalThereIsNone) {
    portal.reset();
    start();
    EXPECT_FALSE(keys->isSupported());
    EXPECT_FALSE(keys->isTrusted());
    EXPECT_EQ(grab(), HotKeys::answerPending);
    EXPECT_TRUE(answers.empty()) << "not from within the call";
    EXPECT_TRUE(eventually([this] { return answers == std::vector{HotKeys::eventHotKeyInvalidErr}; }));
}

TEST_F(PortalPresence, aPortalWithoutShortcutsIsAsGoodAsNone) {
    portal->hasShortcuts = false;
    start();
    std::ignore = grab();
    EXPECT_TRUE(eventually([this] { return answers == std::vector{HotKeys::eventHotKeyInvalidErr}; }));
    EXPECT_FALSE(keys->isSupported());
    EXPECT_FALSE(keys->isTrusted());
    EXPECT_EQ(portal->calls, QStringList{QStringLiteral("version")});
}

TEST_F(PortalPresence, aSecondLookAtADesktopWithoutShortcutsTrustsNothingBeforeItsAnswer) {
    portal->hasShortcuts = false;
    start();
    std::ignore = grab();
    ASSERT_TRUE(eventually([this] { return answers.size() == 1; }));
    keys->askAgain();
    EXPECT_FALSE(keys->isTrusted());
    ASSERT_TRUE(eventually([this] { return portal->count("version") == 2; }));
    settle();
    EXPECT_FALSE(keys->isTrusted());
    EXPECT_EQ(answers.size(), 1U) << "told before";
    portal->hasShortcuts = true; // the desktop was upgraded meanwhile
    keys->askAgain();
    ASSERT_TRUE(eventually([this] { return answers.size() == 2; }));
    EXPECT_EQ(answers.back(), HotKeys::noErr);
    EXPECT_TRUE(keys->isTrusted());
}

TEST_F(PortalPresence, anOldPortalKnowsNoRegistry) {
    portal->hasRegistry = false;
    startAndBind();
    EXPECT_EQ(portal->count("Register"), 1);
}

TEST_F(PortalPresence, anOldPortalChoosesWhereItsRequestsStand) {
    portal->choosesPaths = true;
    startAndBind();
}

TEST_F(PortalPresence, aResponseMayComeBeforeTheReply) {
    portal->answersFirst = true;
    startAndBind();
}

TEST_F(PortalPresence, aPortalThatRefusesTheProgramIsNone) {
    portal->acceptsProgram = false;
    start();
    std::ignore = grab();
    EXPECT_TRUE(eventually([this] { return answers == std::vector{HotKeys::eventHotKeyInvalidErr}; }));
    EXPECT_FALSE(keys->isTrusted());
    EXPECT_FALSE(keys->isSupported());
    EXPECT_EQ(portal->count("BindShortcuts"), 0);
}

TEST_F(PortalPresence, whenThePortalGoesTheKeyIsGoneAndComesBackWithIt) {
    startAndBind();
    portal.reset();
    ASSERT_TRUE(eventually([this] { return answers.size() == 2; }));
    EXPECT_EQ(answers.back(), HotKeys::eventHotKeyInvalidErr);
    EXPECT_FALSE(keys->isTrusted());
    portal = std::make_unique<FakeShortcutsPortal>();
    ASSERT_TRUE(eventually([this] { return answers.size() == 3; }));
    EXPECT_EQ(answers.back(), HotKeys::noErr);
    EXPECT_EQ(portal->calls, (QStringList{QStringLiteral("version"), QStringLiteral("Register app.Quillstacks"),
                                          QStringLiteral("CreateSession"),
                                          QStringLiteral("BindShortcuts quick-access CTRL+SHIFT+space")}));
    portal->press();
    EXPECT_TRUE(eventually([this] { return presses.size() == 1; }));
}

TEST_F(PortalPresence, aPortalThatComesAfterTheStartIsUsed) {
    portal.reset();
    start();
    std::ignore = grab();
    ASSERT_TRUE(eventually([this] { return answers.size() == 1; }));
    portal = std::make_unique<FakeShortcutsPortal>();
    EXPECT_TRUE(eventually([this] { return answers.size() == 2; }));
    EXPECT_EQ(answers.back(), HotKeys::noErr);
    EXPECT_TRUE(keys->isTrusted());
}

/// Lets the bus start a service by its name; the program that it starts owns no name and answers nothing.
class StartedByTheBus final {
public:
    explicit StartedByTheBus(const QString& name)
        : file(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/../services/") + name +
               QStringLiteral(".service")) {
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[D-BUS Service]\nName=" + name.toUtf8() + "\nExec=/bin/sleep 20\n");
        file.close();
        reload();
    }
    ~StartedByTheBus() {
        file.remove();
        reload();
    }
    Q_DISABLE_COPY_MOVE(StartedByTheBus)

private:
    static void reload() {
        const QString daemon = QStringLiteral("org.freedesktop.DBus");
        const auto call = QDBusMessage::createMethodCall(daemon, QStringLiteral("/org/freedesktop/DBus"), daemon,
                                                         QStringLiteral("ReloadConfig"));
        EXPECT_EQ(QDBusConnection::sessionBus().call(call).type(), QDBusMessage::ReplyMessage);
    }
    QFile file;
};

TEST_F(PortalPresence, aPortalThatTheBusHasToStartFirstIsWaitedFor) {
    portal.reset();
    const StartedByTheBus service(QStringLiteral("org.freedesktop.portal.Desktop"));
    start();
    EXPECT_EQ(grab(), HotKeys::answerPending);
    settle();
    EXPECT_TRUE(keys->isTrusted()) << "on its way";
    portal = std::make_unique<FakeShortcutsPortal>();
    ASSERT_TRUE(eventually([this] { return !answers.empty(); }));
    settle();
    EXPECT_EQ(answers, std::vector{HotKeys::noErr}) << "its coming is no loss of the key";
    EXPECT_EQ(portal->calls, (QStringList{QStringLiteral("version"), QStringLiteral("Register app.Quillstacks"),
                                          QStringLiteral("CreateSession"),
                                          QStringLiteral("BindShortcuts quick-access CTRL+SHIFT+space")}));
}

TEST_F(PortalPresence, aDeclineOutlivesThePortalsRestart) {
    portal->user = User::declines;
    start();
    std::ignore = grab();
    ASSERT_TRUE(eventually([this] { return answers.size() == 1; }));
    portal.reset();
    ASSERT_TRUE(eventually([this] { return !keys->isSupported(); }));
    portal = std::make_unique<FakeShortcutsPortal>();
    ASSERT_TRUE(eventually([this] { return portal->count("Register") == 1; }));
    settle();
    EXPECT_FALSE(keys->isTrusted());
    EXPECT_EQ(portal->count("CreateSession"), 0);
}

TEST_F(PortalPresence, aSilentPortalHoldsNothingUpAndAnswersNothing) {
    portal->isSilent = true;
    start();
    EXPECT_EQ(grab(), HotKeys::answerPending);
    settle();
    EXPECT_TRUE(answers.empty());
    keys->release(1);
    settle();
    EXPECT_TRUE(answers.empty());
}

} // namespace
} // namespace Quillstacks
