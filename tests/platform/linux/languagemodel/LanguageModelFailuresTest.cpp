#include "LanguageModelFixture.h"

#include "foundation/ManualClock.h"

#include <QDir>
#include <QFile>

namespace Quillstacks {

namespace {

using Case = LanguageModelError::Case;
using namespace std::chrono_literals;

class LanguageModelFailures : public LanguageModelTest {
protected:
    /// Where the model file belongs, as the errors name it.
    [[nodiscard]] QString quotedFolder() const { return QStringLiteral("the folder “%1”").arg(folder()); }
};

TEST_F(LanguageModelFailures, withoutRuntimeTheErrorNamesRuntimeModelFileAndFolder) {
    takeRuntimeAway();
    putModel(QStringLiteral("ready"));
    const auto error = failure();
    ASSERT_TRUE(error);
    EXPECT_EQ(error->which(), Case::noRuntime);
    EXPECT_EQ(error->errorDescription(),
              QStringLiteral("The on-device model isn't set up: “llama-server” was not found. Install llama.cpp, so "
                             "that its program “llama-server” is on the search path, and put a model file (its name "
                             "ends in “.gguf”) into %1.")
                  .arg(quotedFolder()));
}

TEST_F(LanguageModelFailures, withoutModelFileTheErrorNamesRuntimeModelFileAndFolder) {
    const auto error = failure();
    ASSERT_TRUE(error);
    EXPECT_EQ(error->which(), Case::noModelFile);
    EXPECT_EQ(error->errorDescription(),
              QStringLiteral("The on-device model isn't set up: there is no model file. Install llama.cpp, so that its "
                             "program “llama-server” is on the search path, and put a model file (its name ends in "
                             "“.gguf”) into %1.")
                  .arg(quotedFolder()));
}

TEST_F(LanguageModelFailures, aDataFolderThatIsNotThereHasNoModelFile) {
    QDir(folder()).removeRecursively();
    const auto error = failure();
    ASSERT_TRUE(error);
    EXPECT_EQ(error->which(), Case::noModelFile);
}

TEST_F(LanguageModelFailures, aRuntimeThatIsNoProgramIsNotStarted) {
    QFile program(nowhere.filePath(QStringLiteral("llama-server")));
    ASSERT_TRUE(program.open(QIODevice::WriteOnly));
    program.write("#!/nonexistent/interpreter\n");
    program.close();
    program.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    takeRuntimeAway();
    expectFailure(QStringLiteral("ready"), Case::notStarted, QStringLiteral("Check the installation of llama.cpp."));
}

TEST_F(LanguageModelFailures, aCrashAtTheStartIsToldInTheRuntimesWords) {
    expectFailure(QStringLiteral("dies-at-once"), Case::endedWhileLoading,
                  QStringLiteral("gave up while it loaded “model.gguf” (gguf_init_from_file: invalid magic "
                                 "characters: 'dies')"));
}

TEST_F(LanguageModelFailures, aCrashWhileLoadingIsToldInTheRuntimesWordsForItsCause) {
    expectFailure(QStringLiteral("dies-while-loading"), Case::endedWhileLoading,
                  QStringLiteral("(llama_model_load: error loading model: tensor is out of bounds)"));
}

TEST_F(LanguageModelFailures, whoeverAnswersOtherwiseThanARuntimeIsNotAsked) {
    const QString model = putModel(QStringLiteral("no-health"));
    expectFailure(QStringLiteral("no-health"), Case::unreadable, QStringLiteral("(status 404)"));
    EXPECT_TRUE(questions(model).empty());
}

TEST_F(LanguageModelFailures, loadingThatNeverEndsIsGivenUpAfterFiveMinutes) {
    const QString model = putModel(QStringLiteral("stuck-loading"));
    Turn turn;
    ask(turn);
    ASSERT_TRUE(eventually([&] { return pidOf(model) != 0; }));
    const qint64 pid = pidOf(model);
    ManualClock clock;
    clock.advance(295s);
    EXPECT_FALSE(eventually([&] { return turn.isOver; }, 0ms));
    clock.advance(5s);
    ASSERT_TRUE(eventually([&] { return turn.isOver; }));
    ASSERT_TRUE(turn.error);
    EXPECT_EQ(turn.error->which(), Case::loadingTimedOut);
    EXPECT_TRUE(turn.error->errorDescription().contains(quotedFolder()));
    EXPECT_TRUE(eventually([&] { return !isRunning(pid); })) << "it is ended";
}

TEST_F(LanguageModelFailures, aRuntimeThatNeverSaysAWordIsGivenUpAfterFiveMinutes) {
    const QString model = putModel(QStringLiteral("deaf"));
    Turn turn;
    ask(turn);
    ASSERT_TRUE(eventually([&] { return pidOf(model) != 0; }));
    ManualClock clock;
    clock.advance(300s);
    ASSERT_TRUE(eventually([&] { return turn.isOver; }));
    ASSERT_TRUE(turn.error);
    EXPECT_EQ(turn.error->which(), Case::loadingTimedOut);
}

TEST_F(LanguageModelFailures, anAnswerThatNeverComesIsGivenUpAfterTenMinutes) {
    const QString model = putModel(QStringLiteral("mute"));
    Turn turn;
    ask(turn);
    ASSERT_TRUE(eventually([&] { return !questions(model).empty(); }));
    ManualClock clock;
    clock.advance(595s);
    EXPECT_FALSE(eventually([&] { return turn.isOver; }, 0ms));
    clock.advance(5s);
    ASSERT_TRUE(eventually([&] { return turn.isOver; }));
    ASSERT_TRUE(turn.error);
    EXPECT_EQ(turn.error->which(), Case::timedOut);
    EXPECT_TRUE(turn.error->errorDescription().contains(quotedFolder()));
    EXPECT_TRUE(eventually([&] { return !isRunning(pidOf(model)); })) << "the next turn gets a server that is sound";
}

TEST_F(LanguageModelFailures, aCrashWhileAnsweringIsTold) {
    expectFailure(QStringLiteral("dies-while-answering"), Case::ended, quotedFolder());
}

TEST_F(LanguageModelFailures, anAnswerThatIsCutShortIsNone) {
    expectFailure(QStringLiteral("cut"), Case::ended, quotedFolder());
}

TEST_F(LanguageModelFailures, aRefusalIsToldInTheRuntimesWords) {
    expectFailure(QStringLiteral("refuses"), Case::refused,
                  QStringLiteral("(status 400: the request exceeds the available context size, try increasing it). Try "
                                 "a shorter prompt"));
}

TEST_F(LanguageModelFailures, aRefusalWithoutWordsIsToldByItsStatus) {
    expectFailure(QStringLiteral("fails"), Case::refused, QStringLiteral("(status 500)"));
}

TEST_F(LanguageModelFailures, aRedirectIsNotFollowed) {
    const QString model = putModel(QStringLiteral("moved"));
    expectFailure(QStringLiteral("moved"), Case::refused, QStringLiteral("(status 302)"));
    EXPECT_EQ(questions(model).size(), 1U);
}

TEST_F(LanguageModelFailures, aWebPageIsNoAnswer) {
    expectFailure(QStringLiteral("web-page"), Case::unreadable,
                  QStringLiteral("Make sure that llama.cpp is up to date"));
}

TEST_F(LanguageModelFailures, nothingIsNoAnswer) {
    expectFailure(QStringLiteral("nothing"), Case::unreadable, QStringLiteral("“model.gguf”"));
}

TEST_F(LanguageModelFailures, anotherShapeIsNoAnswer) {
    expectFailure(QStringLiteral("other-shape"), Case::unreadable, QStringLiteral("“model.gguf”"));
}

TEST_F(LanguageModelFailures, anAnswerWithoutTextIsNone) {
    expectFailure(QStringLiteral("no-text"), Case::unreadable, QStringLiteral("“model.gguf”"));
}

TEST_F(LanguageModelFailures, invalidUtf8IsNoAnswer) {
    expectFailure(QStringLiteral("bad-utf8"), Case::unreadable, QStringLiteral("“model.gguf”"));
}

TEST_F(LanguageModelFailures, anAnswerOfSpacesIsNone) {
    expectFailure(QStringLiteral("empty"), Case::empty, quotedFolder());
}

TEST_F(LanguageModelFailures, anAnswerOverSixteenMebibytesIsTooLong) {
    expectFailure(QStringLiteral("huge"), Case::tooLong, quotedFolder());
}

TEST_F(LanguageModelFailures, aFailureIsNotRemembered) {
    expectFailure(QStringLiteral("dies-at-once"), Case::endedWhileLoading, quotedFolder());
    putModel(QStringLiteral("ready"), QStringLiteral("better.gguf"));
    EXPECT_EQ(answerTo(), QStringLiteral("You said: Hi"));
}

} // namespace
} // namespace Quillstacks
