#include "LanguageModelFixture.h"

#include "foundation/ManualClock.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>

#include <csignal>
#include <sys/types.h>

namespace Quillstacks {

namespace {

using namespace std::chrono_literals;

class LanguageModelLife : public LanguageModelTest {
protected:
    /// Lets a stand-in go on that waits to be told.
    static void tell(const QString& model) {
        QFile go(model + QStringLiteral(".go"));
        EXPECT_TRUE(go.open(QIODevice::WriteOnly));
    }
    /// Starts another program that asks the model.
    void startUser(QProcess& user) {
        user.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        user.start(QCoreApplication::applicationDirPath() + QStringLiteral("/model_user"), QStringList());
    }
    /// Kills a program as it asks a model in this mode, once `isThere` says so, and expects its server to end.
    void expectServerToDieWithItsUser(const QString& mode, const std::function<bool(const QString& model)>& isThere) {
        const QString model = putModel(mode);
        QProcess user;
        startUser(user);
        ASSERT_TRUE(eventually([&] { return pidOf(model) != 0 && isThere(model); }));
        const qint64 server = pidOf(model);
        ASSERT_TRUE(isRunning(server));
        ::kill(static_cast<pid_t>(user.processId()), SIGKILL);
        EXPECT_TRUE(eventually([&] { return user.state() == QProcess::NotRunning; }));
        EXPECT_TRUE(eventually([server] { return !isRunning(server); }));
    }
};

TEST_F(LanguageModelLife, theServerIsStartedByTheFirstTurnAndNotBefore) {
    const QString model = putModel(QStringLiteral("ready"));
    const LanguageModelSession session(SystemLanguageModel::defaultModel(), QStringLiteral("Be brief"));
    QCoreApplication::processEvents();
    EXPECT_EQ(runs(model).size(), 0U);
    answerTo();
    EXPECT_EQ(runs(model).size(), 1U);
}

TEST_F(LanguageModelLife, turnsThatComeWhileItLoadsWaitForTheSameServer) {
    const QString model = putModel(QStringLiteral("loads-until-told"));
    Turn first;
    Turn second;
    ask(first, QStringLiteral("one"));
    ask(second, QStringLiteral("two"));
    ASSERT_TRUE(eventually([&] { return pidOf(model) != 0; }));
    EXPECT_TRUE(questions(model).empty());
    tell(model);
    EXPECT_TRUE(eventually([&] { return first.isOver && second.isOver; }));
    EXPECT_EQ(first.answer.value_or(QString()), QStringLiteral("You said: one"));
    EXPECT_EQ(second.answer.value_or(QString()), QStringLiteral("You said: two"));
    EXPECT_EQ(runs(model).size(), 1U);
}

TEST_F(LanguageModelLife, theServerEndsFiveMinutesAfterItsLastUse) {
    const QString model = putModel(QStringLiteral("ready"));
    answerTo();
    const qint64 pid = pidOf(model);
    ManualClock clock;
    clock.advance(299s);
    answerTo();
    clock.advance(299s);
    answerTo();
    EXPECT_EQ(runs(model).size(), 1U) << "each use counts";
    EXPECT_TRUE(isRunning(pid));
    clock.advance(300s);
    EXPECT_TRUE(eventually([pid] { return !isRunning(pid); }));
}

TEST_F(LanguageModelLife, aServerThatIsStillAnsweringIsNotIdle) {
    const QString model = putModel(QStringLiteral("answers-when-told"));
    Turn turn;
    ask(turn);
    ASSERT_TRUE(eventually([&] { return !questions(model).empty(); }));
    ManualClock clock;
    clock.advance(400s);
    tell(model);
    EXPECT_TRUE(eventually([&] { return turn.isOver; }));
    EXPECT_EQ(turn.answer.value_or(QString()), QStringLiteral("You said: Hi"));
}

TEST_F(LanguageModelLife, afterItsEndTheNextTurnStartsItAgain) {
    const QString model = putModel(QStringLiteral("ready"));
    answerTo();
    const qint64 pid = pidOf(model);
    {
        ManualClock clock;
        clock.advance(300s);
    }
    EXPECT_TRUE(eventually([pid] { return !isRunning(pid); }));
    EXPECT_EQ(answerTo(), QStringLiteral("You said: Hi"));
    EXPECT_EQ(runs(model).size(), 2U);
}

TEST_F(LanguageModelLife, aServerThatWasKilledIsStartedAgain) {
    const QString model = putModel(QStringLiteral("ready"));
    answerTo();
    const auto pid = static_cast<pid_t>(pidOf(model));
    ::kill(pid, SIGKILL);
    // Until its parent, this process, has heard of it.
    ASSERT_TRUE(eventually([pid] { return ::kill(pid, 0) != 0; }));
    EXPECT_EQ(answerTo(), QStringLiteral("You said: Hi"));
    EXPECT_EQ(runs(model).size(), 2U);
}

TEST_F(LanguageModelLife, anotherFirstModelFileReplacesTheOneThatIsRunning) {
    const QString old = putModel(QStringLiteral("ready"), QStringLiteral("b.gguf"));
    answerTo();
    const qint64 pid = pidOf(old);
    const QString next = putModel(QStringLiteral("ready"), QStringLiteral("a.gguf"));
    EXPECT_EQ(answerTo(), QStringLiteral("You said: Hi"));
    EXPECT_EQ(runs(next).size(), 1U);
    EXPECT_TRUE(eventually([pid] { return !isRunning(pid); }));
}

TEST_F(LanguageModelLife, aTurnThatIsBeingAnsweredIsNotCutOffByAnotherModelFile) {
    const QString old = putModel(QStringLiteral("loads-until-told"), QStringLiteral("b.gguf"));
    Turn first;
    ask(first, QStringLiteral("one"));
    ASSERT_TRUE(eventually([&] { return pidOf(old) != 0; }));
    putModel(QStringLiteral("ready"), QStringLiteral("a.gguf"));
    Turn second;
    ask(second, QStringLiteral("two"));
    tell(old);
    EXPECT_TRUE(eventually([&] { return first.isOver && second.isOver; }));
    EXPECT_EQ(first.answer.value_or(QString()), QStringLiteral("You said: one"));
    EXPECT_EQ(second.answer.value_or(QString()), QStringLiteral("You said: two"));
    EXPECT_EQ(questions(old).size(), 2U);
}

TEST_F(LanguageModelLife, theServerEndsWithTheProgram) {
    const QString model = putModel(QStringLiteral("ready"));
    QProcess user;
    startUser(user);
    EXPECT_TRUE(eventually([&] { return user.state() == QProcess::NotRunning; }));
    EXPECT_EQ(user.readAllStandardOutput(), QByteArray("You said: Hi\n"));
    ASSERT_NE(pidOf(model), 0);
    EXPECT_TRUE(eventually([&] { return !isRunning(pidOf(model)); }));
}

TEST_F(LanguageModelLife, aServerThatLoadsEndsWithAProgramThatIsKilled) {
    expectServerToDieWithItsUser(QStringLiteral("stuck-loading"), [](const QString&) { return true; });
}

TEST_F(LanguageModelLife, aServerThatAnswersEndsWithAProgramThatIsKilled) {
    expectServerToDieWithItsUser(QStringLiteral("mute"),
                                 [](const QString& model) { return !questions(model).empty(); });
}

} // namespace
} // namespace Quillstacks
