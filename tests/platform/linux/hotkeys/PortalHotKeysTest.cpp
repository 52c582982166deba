#include "PortalHotKeyFixture.h"

namespace Quillstacks {
namespace {

TEST_F(PortalHotKey, isBoundInTheOrderThatThePortalWants) {
    startAndBind();
    EXPECT_EQ(portal->calls, (QStringList{QStringLiteral("version"), QStringLiteral("Register app.Quillstacks"),
                                          QStringLiteral("CreateSession"),
                                          QStringLiteral("BindShortcuts quick-access CTRL+SHIFT+space")}));
    EXPECT_TRUE(keys->isTrusted());
    EXPECT_TRUE(keys->isSupported());
}

TEST_F(PortalHotKey, isTrustedFromTheStartSoThatAStartBinds) {
    start();
    EXPECT_TRUE(keys->isTrusted());
}

TEST_F(PortalHotKey, aPressComesWithItsTimeAndItsToken) {
    startAndBind();
    portal->press();
    EXPECT_TRUE(eventually([this] { return presses == QStringList{QStringLiteral("1 4711 token-1")}; }));
}

TEST_F(PortalHotKey, pressesOfOtherShortcutsAndSessionsAreNotOurs) {
    startAndBind();
    portal->press(QStringLiteral("something-else"));
    const QString ours = std::exchange(portal->session, QStringLiteral("/org/freedesktop/portal/desktop/session/x/y"));
    portal->press();
    portal->session = ours;
    portal->press();
    EXPECT_TRUE(eventually([this] { return !presses.isEmpty(); }));
    EXPECT_EQ(presses.size(), 1);
}

TEST_F(PortalHotKey, whileTheUserThinksNothingIsAnswered) {
    portal->user = User::isAway;
    start();
    EXPECT_EQ(grab(), HotKeys::answerPending);
    ASSERT_TRUE(eventually([this] { return portal->count("BindShortcuts") == 1; }));
    settle();
    EXPECT_TRUE(answers.empty());
    EXPECT_TRUE(keys->isTrusted());
    portal->answerBind(User::agrees);
    EXPECT_TRUE(eventually([this] { return answers == std::vector{HotKeys::noErr}; }));
}

TEST_F(PortalHotKey, declinedItIsNotTrustedAndNobodyIsAskedAgain) {
    portal->user = User::declines;
    start();
    std::ignore = grab();
    ASSERT_TRUE(eventually([this] { return answers == std::vector{HotKeys::eventHotKeyInvalidErr}; }));
    EXPECT_FALSE(keys->isTrusted());
    EXPECT_TRUE(keys->isSupported());
    keys->release(1);
    EXPECT_EQ(grab(2), HotKeys::answerPending);
    EXPECT_TRUE(eventually([this] { return answers.size() == 2; }));
    EXPECT_EQ(answers.back(), HotKeys::eventHotKeyInvalidErr);
    settle();
    EXPECT_EQ(portal->count("BindShortcuts"), 1);
}

TEST_F(PortalHotKey, askingAfterADeclineBindsAgainAndTheAnswerReachesTheSameRegistration) {
    portal->user = User::declines;
    start();
    std::ignore = grab();
    ASSERT_TRUE(eventually([this] { return answers.size() == 1; }));
    portal->user = User::isAway;
    keys->askAgain();
    ASSERT_TRUE(eventually([this] { return portal->count("BindShortcuts") == 2; }));
    EXPECT_EQ(portal->count("CreateSession"), 2) << "a session binds once";
    EXPECT_FALSE(keys->isTrusted()) << "not before the user agrees";
    keys->askAgain();
    portal->answerBind(User::agrees);
    ASSERT_TRUE(eventually([this] { return answers.size() == 2; }));
    EXPECT_EQ(answers.back(), HotKeys::noErr);
    EXPECT_TRUE(keys->isTrusted());
    EXPECT_EQ(portal->count("BindShortcuts"), 2) << "asked once, though it was wanted twice";
    portal->press();
    EXPECT_TRUE(eventually([this] { return presses.size() == 1; }));
}

TEST_F(PortalHotKey, registeringWhileTheUserIsAskedAgainWaitsForTheSameAnswer) {
    portal->user = User::declines;
    start();
    std::ignore = grab();
    ASSERT_TRUE(eventually([this] { return answers.size() == 1; }));
    portal->user = User::isAway;
    keys->askAgain();
    ASSERT_TRUE(eventually([this] { return portal->count("BindShortcuts") == 2; }));
    keys->release(1);
    EXPECT_EQ(grab(2), HotKeys::answerPending);
    settle();
    EXPECT_EQ(answers.size(), 1U) << "the user is still thinking";
    portal->answerBind(User::agrees);
    ASSERT_TRUE(eventually([this] { return answers.size() == 2; }));
    EXPECT_EQ(answers.back(), HotKeys::noErr);
    EXPECT_EQ(portal->count("BindShortcuts"), 2);
    EXPECT_TRUE(keys->isTrusted());
}

TEST_F(PortalHotKey, aUserWhoLeavesTheShortcutOutHasDeclined) {
    portal->user = User::leavesItOut;
    start();
    std::ignore = grab();
    ASSERT_TRUE(eventually([this] { return answers.size() == 1; }));
    EXPECT_EQ(answers.back(), HotKeys::eventHotKeyInvalidErr);
    EXPECT_FALSE(keys->isTrusted());
}

TEST_F(PortalHotKey, aFailureIsNoDecline) {
    portal->user = User::fails;
    start();
    std::ignore = grab();
    ASSERT_TRUE(eventually([this] { return answers.size() == 1; }));
    EXPECT_EQ(answers.back(), HotKeys::eventHotKeyInvalidErr);
    EXPECT_TRUE(keys->isTrusted());
    portal->user = User::agrees;
    keys->release(1);
    std::ignore = grab(2);
    ASSERT_TRUE(eventually([this] { return answers.size() == 2; }));
    EXPECT_EQ(answers.back(), HotKeys::noErr);
}

TEST_F(PortalHotKey, lettingGoAndRegisteringAtOnceDoesNothing) {
    startAndBind();
    keys->release(1);
    EXPECT_EQ(grab(2), HotKeys::noErr);
    settle();
    EXPECT_EQ(portal->count("CreateSession"), 1);
    EXPECT_EQ(portal->count("Session.Close"), 0);
    portal->press();
    EXPECT_TRUE(eventually([this] { return presses == QStringList{QStringLiteral("2 4711 token-1")}; }));
}

TEST_F(PortalHotKey, registeringWhatIsBeingBoundWaitsForTheSameAnswer) {
    portal->user = User::isAway;
    start();
    std::ignore = grab();
    ASSERT_TRUE(eventually([this] { return portal->count("BindShortcuts") == 1; }));
    keys->release(1);
    EXPECT_EQ(grab(2), HotKeys::answerPending);
    portal->answerBind(User::agrees);
    EXPECT_TRUE(eventually([this] { return answers == std::vector{HotKeys::noErr}; }));
    EXPECT_EQ(portal->count("BindShortcuts"), 1);
}

TEST_F(PortalHotKey, anotherKeyTakesAnotherSession) {
    startAndBind();
    keys->release(1);
    EXPECT_EQ(grab(2, keyF5, HotKeys::optionBit | HotKeys::controlBit), HotKeys::answerPending);
    ASSERT_TRUE(eventually([this] { return answers.size() == 2; }));
    EXPECT_EQ(portal->count("Session.Close"), 1);
    EXPECT_EQ(portal->calls.last(), QStringLiteral("BindShortcuts quick-access ALT+LOGO+F5"));
}

TEST_F(PortalHotKey, lettingGoEndsTheSessionSoThatTheKeyIsFree) {
    startAndBind();
    keys->release(1);
    EXPECT_TRUE(eventually([this] { return portal->count("Session.Close") == 1; }));
    EXPECT_TRUE(portal->session.isEmpty());
}

TEST_F(PortalHotKey, aQuestionThatIsNotWantedAnyMoreIsTakenBack) {
    portal->user = User::isAway;
    start();
    std::ignore = grab();
    ASSERT_TRUE(eventually([this] { return portal->count("BindShortcuts") == 1; }));
    keys->release(1);
    EXPECT_EQ(grab(2, keyF5), HotKeys::answerPending);
    ASSERT_TRUE(eventually([this] { return portal->count("BindShortcuts") == 2; }));
    EXPECT_EQ(portal->count("Request.Close"), 1);
    portal->answerBind(User::agrees);
    EXPECT_TRUE(eventually([this] { return answers == std::vector{HotKeys::noErr}; }));
    keys->release(2);
    ASSERT_TRUE(eventually([this] { return portal->count("Session.Close") == 2; }));
    EXPECT_EQ(portal->count("Request.Close"), 1) << "this one was answered";
}

TEST_F(PortalHotKey, anAnswerThatComesAfterTheReleaseIsNotTold) {
    portal->user = User::isAway;
    start();
    std::ignore = grab();
    ASSERT_TRUE(eventually([this] { return portal->count("BindShortcuts") == 1; }));
    keys->release(1);
    settle();
    portal->answerBind(User::agrees);
    settle();
    EXPECT_TRUE(answers.empty());
    EXPECT_EQ(portal->count("Session.Close"), 1);
}

TEST_F(PortalHotKey, takenAwayInTheDesktopsSettingsItIsLostUntilItIsGivenBack) {
    startAndBind();
    portal->listShortcuts(false);
    ASSERT_TRUE(eventually([this] { return answers.size() == 2; }));
    EXPECT_EQ(answers.back(), HotKeys::eventHotKeyInvalidErr);
    EXPECT_FALSE(keys->isTrusted());
    portal->listShortcuts(true);
    ASSERT_TRUE(eventually([this] { return answers.size() == 3; }));
    EXPECT_EQ(answers.back(), HotKeys::noErr);
    EXPECT_TRUE(keys->isTrusted());
}

TEST_F(PortalHotKey, takenAwayAndRegisteredAnewItKeepsTheSessionThatMayGetItBack) {
    startAndBind();
    portal->listShortcuts(false);
    ASSERT_TRUE(eventually([this] { return answers.size() == 2; }));
    keys->release(1);
    EXPECT_EQ(grab(2), HotKeys::answerPending);
    ASSERT_TRUE(eventually([this] { return answers.size() == 3; }));
    EXPECT_EQ(answers.back(), HotKeys::eventHotKeyInvalidErr);
    portal->listShortcuts(true);
    ASSERT_TRUE(eventually([this] { return answers.size() == 4; }));
    EXPECT_EQ(answers.back(), HotKeys::noErr);
    EXPECT_EQ(portal->count("CreateSession"), 1);
}

TEST_F(PortalHotKey, aSessionThatThePortalEndsIsLost) {
    startAndBind();
    portal->endSession();
    ASSERT_TRUE(eventually([this] { return answers.size() == 2; }));
    EXPECT_EQ(answers.back(), HotKeys::eventHotKeyInvalidErr);
    EXPECT_FALSE(keys->isTrusted());
    keys->askAgain();
    ASSERT_TRUE(eventually([this] { return answers.size() == 3; }));
    EXPECT_EQ(answers.back(), HotKeys::noErr);
}

TEST_F(PortalHotKey, aKeyCodeThatNamesNoKeyIsRefusedAtOnce) {
    start();
    EXPECT_EQ(grab(1, 127, commandShift), HotKeys::eventHotKeyInvalidErr);
    EXPECT_EQ(grab(1, 65535, commandShift), HotKeys::eventHotKeyInvalidErr);
    EXPECT_EQ(grab(), HotKeys::answerPending) << "the way is free for a good one";
}

TEST_F(PortalHotKey, aSecondKeyBesideTheFirstIsRefused) {
    startAndBind();
    EXPECT_EQ(grab(2, keyF5), HotKeys::eventHotKeyInvalidErr);
    portal->press();
    EXPECT_TRUE(eventually([this] { return presses == QStringList{QStringLiteral("1 4711 token-1")}; }));
}

} // namespace
} // namespace Quillstacks
