#include "platform/SingleInstance.h"
#include "Tool.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QProcess>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace Quillstacks {

namespace {

QString programPath() {
    return QCoreApplication::applicationDirPath() + QStringLiteral("/second_start");
}

/// Another start of the program, in an environment with these additions.
QString startAgain(const QStringList& environment = {}) {
    return run(QStringLiteral("env"), environment + QStringList{programPath()});
}

/// A call of the desktop's: a click on the icon, or on one of its actions.
void call(const char* method, const QVariantList& arguments) {
    auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("launcher"));
    auto message =
        QDBusMessage::createMethodCall(QStringLiteral("app.Quillstacks"), QStringLiteral("/app/Quillstacks"),
                                       QStringLiteral("org.freedesktop.Application"), QString::fromLatin1(method));
    message.setArguments(arguments);
    bus.asyncCall(message);
}

class SingleInstanceTest : public testing::Test {
protected:
    SingleInstance instance;
    QSignalSpy activated{&instance, &SingleInstance::activated};
    QSignalSpy actions{&instance, &SingleInstance::actionActivated};
};

TEST_F(SingleInstanceTest, theFirstStartIsTheFirst) {
    EXPECT_EQ(instance.start(), SingleInstance::Outcome::first);
    EXPECT_TRUE(instance.hasBus());
    EXPECT_TRUE(activated.isEmpty());
}

TEST_F(SingleInstanceTest, aSecondStartHandsOverAndEnds) {
    ASSERT_EQ(instance.start(), SingleInstance::Outcome::first);
    EXPECT_EQ(startAgain(), QStringLiteral("handed over, bus"));
    ASSERT_EQ(activated.size(), 1);
    EXPECT_EQ(activated.at(0).at(0).toString(), QString());
    EXPECT_EQ(startAgain(), QStringLiteral("handed over, bus")) << "the first stays the first";
    EXPECT_EQ(activated.size(), 2);
}

TEST_F(SingleInstanceTest, aSecondStartPassesItsTokensOn) {
    ASSERT_EQ(instance.start(), SingleInstance::Outcome::first);
    startAgain({QStringLiteral("DESKTOP_STARTUP_ID=id_TIME42")});
    startAgain({QStringLiteral("DESKTOP_STARTUP_ID=id_TIME42"), QStringLiteral("XDG_ACTIVATION_TOKEN=token-1")});
    ASSERT_EQ(activated.size(), 2);
    EXPECT_EQ(activated.at(0).at(0).toString(), QStringLiteral("id_TIME42"));
    EXPECT_EQ(activated.at(1).at(0).toString(), QStringLiteral("token-1"));
}

TEST_F(SingleInstanceTest, theNameIsFreeWhenTheFirstHasGone) {
    {
        SingleInstance first;
        ASSERT_EQ(first.start(), SingleInstance::Outcome::first);
    }
    EXPECT_EQ(startAgain(), QStringLiteral("first, bus"));
}

TEST_F(SingleInstanceTest, aStartWhileTheFirstIsEndingBecomesTheFirst) {
    QProcess ending;
    ending.start(programPath(), {QStringLiteral("ends when asked")});
    ASSERT_TRUE(ending.waitForReadyRead(10000));
    ASSERT_EQ(ending.readAll(), "first, bus");
    EXPECT_EQ(instance.start(), SingleInstance::Outcome::first);
    EXPECT_TRUE(ending.waitForFinished(10000));
    EXPECT_EQ(startAgain(), QStringLiteral("handed over, bus")) << "the name is this process's now";
}

TEST_F(SingleInstanceTest, desktopActionsArriveByName) {
    ASSERT_EQ(instance.start(), SingleInstance::Outcome::first);
    const QVariantMap platformData{{QStringLiteral("activation-token"), QStringLiteral("token-2")}};
    call("ActivateAction", {QStringLiteral("quick-access"), QVariantList(), platformData});
    call("ActivateAction", {QStringLiteral("new-prompt"), QVariantList(), QVariantMap()});
    ASSERT_TRUE(eventually([this] { return actions.size() == 2; }));
    EXPECT_EQ(actions.at(0), (QVariantList{QStringLiteral("quick-access"), QStringLiteral("token-2")}));
    EXPECT_EQ(actions.at(1), (QVariantList{QStringLiteral("new-prompt"), QString()}));
    EXPECT_TRUE(activated.isEmpty());
}

TEST_F(SingleInstanceTest, openingFilesBringsTheProgramForward) {
    ASSERT_EQ(instance.start(), SingleInstance::Outcome::first);
    call("Open", {QStringList{QStringLiteral("file:///tmp/x")}, QVariantMap()});
    EXPECT_TRUE(eventually([this] { return activated.size() == 1; }));
}

TEST_F(SingleInstanceTest, withoutASessionBusEveryStartIsTheFirst) {
    EXPECT_EQ(startAgain({QStringLiteral("DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent")}),
              QStringLiteral("first, no bus"));
}

} // namespace
} // namespace Quillstacks
