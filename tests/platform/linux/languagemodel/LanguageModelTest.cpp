#include "LanguageModelFixture.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QNetworkProxy>

namespace Quillstacks {

namespace {

QJsonObject bodyOf(const QJsonObject& question) {
    return QJsonDocument::fromJson(question.value(QLatin1String("body")).toString().toUtf8()).object();
}

QString keyOf(const QJsonObject& run) {
    return run.value(QLatin1String("environment")).toObject().value(QLatin1String("LLAMA_API_KEY")).toString();
}

TEST_F(LanguageModelTest, answersATurn) {
    putModel(QStringLiteral("ready"));
    EXPECT_EQ(answerTo(QStringLiteral("Grüß Gott\n\"{}\" 😀")), QStringLiteral("You said: Grüß Gott\n\"{}\" 😀"));
}

TEST_F(LanguageModelTest, instructionsGoAheadOfThePrompt) {
    const QString model = putModel(QStringLiteral("ready"));
    answerTo(QStringLiteral("Hi"));
    ASSERT_EQ(questions(model).size(), 1U);
    const QJsonArray messages = bodyOf(questions(model).front()).value(QLatin1String("messages")).toArray();
    ASSERT_EQ(messages.size(), 2);
    EXPECT_EQ(messages.at(0).toObject().value(QLatin1String("role")).toString(), QStringLiteral("system"));
    EXPECT_EQ(messages.at(0).toObject().value(QLatin1String("content")).toString(), QStringLiteral("Be brief"));
    EXPECT_EQ(messages.at(1).toObject().value(QLatin1String("role")).toString(), QStringLiteral("user"));
    EXPECT_EQ(messages.at(1).toObject().value(QLatin1String("content")).toString(), QStringLiteral("Hi"));
}

TEST_F(LanguageModelTest, absentOptionsAreNotSent) {
    const QString model = putModel(QStringLiteral("ready"));
    answerTo();
    ASSERT_EQ(questions(model).size(), 1U);
    EXPECT_EQ(bodyOf(questions(model).front()).keys(),
              (QStringList{QStringLiteral("messages"), QStringLiteral("stream")}));
    EXPECT_EQ(bodyOf(questions(model).front()).value(QLatin1String("stream")), QJsonValue(false));
}

TEST_F(LanguageModelTest, optionsThatAreThereAreSent) {
    const QString model = putModel(QStringLiteral("ready"));
    answerTo(QStringLiteral("Hi"),
             {.sampling = SamplingMode::greedy, .temperature = 0.5, .maximumResponseTokens = 100});
    ASSERT_EQ(questions(model).size(), 1U);
    const QJsonObject body = bodyOf(questions(model).front());
    EXPECT_EQ(body.value(QLatin1String("top_k")).toInt(), 1);
    EXPECT_EQ(body.value(QLatin1String("temperature")).toDouble(), 0.5);
    EXPECT_EQ(body.value(QLatin1String("max_tokens")).toInt(), 100);
}

TEST_F(LanguageModelTest, aSecondSessionKnowsNothingOfTheFirst) {
    const QString model = putModel(QStringLiteral("ready"));
    answerTo(QStringLiteral("first"));
    answerTo(QStringLiteral("second"));
    ASSERT_EQ(questions(model).size(), 2U);
    EXPECT_EQ(bodyOf(questions(model).back()).value(QLatin1String("messages")).toArray().size(), 2);
    EXPECT_FALSE(questions(model).back().value(QLatin1String("body")).toString().contains(QStringLiteral("first")));
    EXPECT_EQ(runs(model).size(), 1U) << "and the server is the same";
}

TEST_F(LanguageModelTest, listensOnTheLoopbackAddressOnly) {
    const QString model = putModel(QStringLiteral("ready"));
    answerTo();
    ASSERT_EQ(runs(model).size(), 1U);
    const QJsonArray arguments = runs(model).front().value(QLatin1String("arguments")).toArray();
    ASSERT_EQ(arguments.size(), 6);
    EXPECT_EQ(arguments.at(0).toString(), QStringLiteral("--host"));
    EXPECT_EQ(arguments.at(1).toString(), QStringLiteral("127.0.0.1"));
    EXPECT_EQ(arguments.at(4).toString(), QStringLiteral("--model"));
    EXPECT_EQ(arguments.at(5).toString(), model);
}

TEST_F(LanguageModelTest, eachStartHasARandomKeyThatIsNotOnTheCommandLine) {
    const QString first = putModel(QStringLiteral("ready"), QStringLiteral("b.gguf"));
    answerTo();
    QFile commandLine(QStringLiteral("/proc/%1/cmdline").arg(pidOf(first)));
    ASSERT_TRUE(commandLine.open(QIODevice::ReadOnly));
    const QByteArray arguments = commandLine.readAll();
    ASSERT_EQ(runs(first).size(), 1U);
    const QString key = keyOf(runs(first).front());
    EXPECT_EQ(key.size(), 64);
    EXPECT_TRUE(arguments.contains("--port"));
    EXPECT_FALSE(arguments.contains(key.toUtf8()));

    const QString second = putModel(QStringLiteral("ready"), QStringLiteral("a.gguf"));
    answerTo();
    ASSERT_EQ(runs(second).size(), 1U);
    EXPECT_NE(keyOf(runs(second).front()), key);
}

TEST_F(LanguageModelTest, nothingFromTheEnvironmentTunesTheServer) {
    qputenv("LLAMA_ARG_HOST", "0.0.0.0");
    qputenv("LLAMA_ARG_HF_REPO", "somebody/some-model");
    const QString model = putModel(QStringLiteral("ready"));
    answerTo();
    qunsetenv("LLAMA_ARG_HOST");
    qunsetenv("LLAMA_ARG_HF_REPO");
    ASSERT_EQ(runs(model).size(), 1U);
    EXPECT_EQ(runs(model).front().value(QLatin1String("environment")).toObject().keys(),
              QStringList{QStringLiteral("LLAMA_API_KEY")});
}

TEST_F(LanguageModelTest, noProxyStandsInBetween) {
    const QNetworkProxy before = QNetworkProxy::applicationProxy();
    QNetworkProxy::setApplicationProxy(QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), 1));
    putModel(QStringLiteral("ready"));
    EXPECT_EQ(answerTo(), QStringLiteral("You said: Hi"));
    QNetworkProxy::setApplicationProxy(before);
}

TEST_F(LanguageModelTest, ofSeveralModelFilesTheFirstByNameIsUsed) {
    const QString last = putModel(QStringLiteral("ready"), QStringLiteral("zebra.gguf"));
    const QString first = putModel(QStringLiteral("ready"), QStringLiteral("ape.gguf"));
    putModel(QStringLiteral("ready"), QStringLiteral("aardvark.txt"));
    putModel(QStringLiteral("ready"), QStringLiteral(".aardvark.gguf"));
    EXPECT_EQ(answerTo(), QStringLiteral("You said: Hi"));
    EXPECT_EQ(runs(first).size(), 1U);
    EXPECT_EQ(runs(last).size(), 0U);
}

} // namespace
} // namespace Quillstacks
