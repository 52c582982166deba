#include "analysis/PromptAnalysisManager.h"
#include "analysis/AnalysisError.h"
#include "analysis/AnalysisPreferences.h"
#include "analysis/AppleModelProvider.h"
#include "analysis/OllamaModelProvider.h"
#include "AnalysisFixture.h"
#include "AnalysisPrompt.h"
#include "interface/ToastManager.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTimer>

namespace Quillstacks {

using namespace std::chrono_literals;

namespace {

const QString record = QStringLiteral(
    R"({"rating":8,"maxRating":10,"summary":"Fine.","strengths":[{"name":"a","description":"b"}],"recommendations":[]})");
const QString switchHint = QStringLiteral(" Try switching to Apple Intelligence in Settings.");

} // namespace

/// The manager over an Ollama server that answers with a text of the model's.
class PromptAnalysisManagerTest : public AnalysisFixture {
protected:
    PromptAnalysisManagerTest() {
        selectedModelProviderPreference().set(ModelProviderType::ollama);
        ollamaBaseURLPreference().set(server.url());
    }
    ~PromptAnalysisManagerTest() override { advance(10s); } // any notice goes

    void modelAnswers(const QString& text) {
        const QJsonObject message{{QStringLiteral("content"), text}};
        server.answerWith(200, QJsonDocument(QJsonObject{{QStringLiteral("message"), message}}).toJson());
    }
    Ending<PromptAnalysis> analyze(const QString& prompt = QStringLiteral("Write.")) {
        return finished(manager.analyze(prompt));
    }
    Ending<PromptAnalysis> analyzeAnswer(const QString& text) {
        modelAnswers(text);
        return analyze();
    }
    static bool isToastShown() { return ToastManager::shared().isShowing(); }
    static QString toast() { return ToastManager::shared().message(); }

    PromptAnalysisManager manager;
};

TEST_F(PromptAnalysisManagerTest, theSystemPromptIsTheOneOf1535Bytes) {
    const QByteArray prompt = analysisSystemPrompt().toUtf8();
    EXPECT_EQ(prompt.size(), 1535);
    EXPECT_TRUE(prompt.startsWith("You are a prompt-evaluation assistant. Analyze the provided PROMPT"));
    EXPECT_TRUE(prompt.endsWith("\n- No markdown or commentary"));
    EXPECT_TRUE(prompt.contains("\n- 9\u201310: Clear objective, audience"));
    EXPECT_TRUE(prompt.contains("\n    { \"name\": \"<brief>\", \"description\": \"<detailed>\", \"priority\": "
                                "\"low|medium|high\" }\n]\n}\nConstraints:\n"));
    EXPECT_FALSE(prompt.contains('\r') || prompt.contains('\t'));
}

TEST_F(PromptAnalysisManagerTest, anAnalysisSendsSystemPromptAndText) {
    const Ending<PromptAnalysis> ending = analyzeAnswer(record);
    ASSERT_TRUE(ending.result) << ending.description().toStdString();
    EXPECT_EQ(*ending.result, PromptAnalysis::fromJson(record.toUtf8()));
    EXPECT_FALSE(manager.isAnalyzing());
    const QJsonArray messages =
        QJsonDocument::fromJson(server.requests.at(0).body).object().value(QStringLiteral("messages")).toArray();
    EXPECT_EQ(messages.at(0).toObject().value(QStringLiteral("content")), analysisSystemPrompt());
    EXPECT_EQ(messages.at(1).toObject().value(QStringLiteral("content")),
              QStringLiteral("Analyze this prompt:\n\nWrite."));
    EXPECT_FALSE(isToastShown());
}

TEST_F(PromptAnalysisManagerTest, theLogTellsTheStepsAndNothingOfTheAnswer) {
    analyzeAnswer(record);
    EXPECT_EQ(
        log.lines(),
        (QStringList{QStringLiteral("data info: Starting prompt analysis using Ollama"),
                     QStringLiteral("data info: Sending request to Ollama at %1 with model llama3.2").arg(server.url()),
                     QStringLiteral("data info: Received analysis response: <private>..."),
                     QStringLiteral("data info: Cleaned JSON: <private>..."),
                     QStringLiteral("data info: Successfully parsed analysis")}));
}

TEST_F(PromptAnalysisManagerTest, anEmptyTextIsNotRejected) {
    modelAnswers(record);
    EXPECT_TRUE(analyze({}).result);
}

TEST_F(PromptAnalysisManagerTest, aSecondCallWhileOneRunsIsRefusedAndLogsNothing) {
    const auto first = started(manager.analyze(QStringLiteral("a")));
    ASSERT_TRUE(server.waitForRequest());
    log.clear();
    const Ending<PromptAnalysis> second = analyze();
    ASSERT_TRUE(second.as<AnalysisError>());
    EXPECT_EQ(second.as<AnalysisError>()->which(), AnalysisError::Case::alreadyAnalyzing);
    EXPECT_EQ(second.description(), QStringLiteral("An analysis is already in progress"));
    EXPECT_TRUE(manager.isAnalyzing());
    EXPECT_EQ(log.lines(), QStringList());
    advance(120s);
    EXPECT_TRUE(first->hasCome());
    EXPECT_EQ(server.requests.size(), 1U);
}

TEST_F(PromptAnalysisManagerTest, aFencedAnswerIsRead) {
    EXPECT_TRUE(analyzeAnswer(QStringLiteral("```json\n%1\n```").arg(record)).result);
    EXPECT_TRUE(analyzeAnswer(QStringLiteral("Of course!\n```\n%1\n```\nBye.").arg(record)).result);
}

TEST_F(PromptAnalysisManagerTest, anObjectThatLacksAKeyFailsToDecode) {
    const QString answer = QStringLiteral("```json\n{\"rating\": 7}\n```");
    const Ending<PromptAnalysis> ending = analyzeAnswer(answer);
    ASSERT_TRUE(ending.as<AnalysisError>());
    EXPECT_EQ(ending.as<AnalysisError>()->which(), AnalysisError::Case::apiError);
    EXPECT_EQ(ending.description(), QStringLiteral("Analysis failed: Failed to parse the analysis response"));
    EXPECT_EQ(log.lines().mid(4),
              (QStringList{QStringLiteral("data error: JSON parsing error: The JSON has no \"maxRating\"."),
                           QStringLiteral("data error: Failed JSON: <private>"),
                           QStringLiteral("data error: Data error in analyzing prompt with Ollama: Failed to parse the "
                                          "analysis response")}));
    // The connection was sound; the notice says otherwise all the same.
    EXPECT_TRUE(isToastShown());
    EXPECT_EQ(toast(), QStringLiteral("Ollama connection failed. Make sure Ollama is running.") + switchHint);
}

TEST_F(PromptAnalysisManagerTest, anAnswerWithoutAnObjectFailsAsInvalidResponseWithinApiError) {
    for (const char* answer : {"", "I can't rate that.", "} only", "[1]", "null"}) {
        const Ending<PromptAnalysis> ending = analyzeAnswer(QLatin1String(answer));
        EXPECT_EQ(ending.description(), QStringLiteral("Analysis failed: Failed to parse the analysis response"))
            << answer;
        EXPECT_FALSE(manager.isAnalyzing());
    }
}

TEST_F(PromptAnalysisManagerTest, aRatingOf11AndNoRecommendationsAreAcceptedUnchanged) {
    const Ending<PromptAnalysis> ending =
        analyzeAnswer(QString(record).replace(QStringLiteral("\"rating\":8"), QStringLiteral("\"rating\":11")));
    ASSERT_TRUE(ending.result);
    EXPECT_EQ(ending.result->rating, 11);
    EXPECT_TRUE(ending.result->recommendations.isEmpty());
}

TEST_F(PromptAnalysisManagerTest, aRatingIsTakenAsTheModelGaveItWhereItIsAWholeNumber) {
    struct Case {
        const char* rating;
        const char* maxRating;
        bool isTaken = false;
        qint64 expected = 0;
    };
    for (const Case& each :
         {Case{"11", "10", true, 11}, Case{"0", "0", true, 0}, Case{"-3", "10", true, -3}, Case{"7.0", "1e1", true, 7},
          Case{"7.5", "10"}, Case{"1e400", "10"}, Case{"\"7\"", "10"}, Case{"null", "10"}, Case{"7", "1e400"}}) {
        const QString answer =
            QStringLiteral(R"({"rating":%1,"maxRating":%2,"summary":"","strengths":[],"recommendations":[]})")
                .arg(QLatin1String(each.rating), QLatin1String(each.maxRating));
        const Ending<PromptAnalysis> ending = analyzeAnswer(answer);
        ASSERT_EQ(ending.result.has_value(), each.isTaken) << each.rating;
        if (each.isTaken)
            EXPECT_EQ(ending.result->rating, each.expected);
        else
            EXPECT_EQ(ending.description(), QStringLiteral("Analysis failed: Failed to parse the analysis response"));
        EXPECT_FALSE(manager.isAnalyzing());
    }
}

TEST_F(PromptAnalysisManagerTest, theObjectIsFoundInEachKindOfAnswer) {
    for (const char* answer :
         {"%1", " \n%1\u3000", "```json\n%1\n```", "```\n%1\n```", "```jsonc {x}\n%1\n```", "```json%1```", "```%1```",
          "```json\r\n%1\r\n```", "Sure:\n%1\nBye {not}?", "```json\n%1\n```\nI hope {this} helps}", "```json\n%1",
          "} %1", "%1 {", "{\u0301 %1 }\u0301"}) {
        const bool hasMore = QByteArray(answer).endsWith("{not}?");
        const Ending<PromptAnalysis> ending = analyzeAnswer(QString::fromUtf8(answer).arg(record));
        EXPECT_EQ(ending.result.has_value(), !hasMore) << answer << ending.description().toStdString();
    }
}

TEST_F(PromptAnalysisManagerTest, ofAnAnswerThatIsNoUtf8NothingIsTaken) {
    server.answerWith(200, "{\"message\":{\"content\":\"\xC3\x28\"}}");
    EXPECT_TRUE(analyze().description().startsWith(QStringLiteral("Analysis failed: The JSON can't be read: ")));
    EXPECT_FALSE(manager.isAnalyzing());
}

using PromptAnalysisManagerDeathTest = PromptAnalysisManagerTest;

TEST_F(PromptAnalysisManagerDeathTest, anAnswerWhoseOnlyClosingBraceStandsAheadEndsTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(analyzeAnswer(QStringLiteral("} and {")), "closing brace");
}

TEST_F(PromptAnalysisManagerTest, anHttpAnswerThatCannotBeDecodedReadsAsALostConnection) {
    server.answerWith(200, "<html></html>");
    EXPECT_TRUE(analyze().description().startsWith(QStringLiteral("Analysis failed: The JSON can't be read: ")));
    EXPECT_EQ(toast(), QStringLiteral("Ollama connection failed. Make sure Ollama is running.") + switchHint);
}

TEST_F(PromptAnalysisManagerTest, anErrorOfOllamaIsShownForFourSeconds) {
    server.answerWith(500, {});
    EXPECT_EQ(analyze().description(),
              QStringLiteral("Analysis failed: Ollama error (500). Check that the service is running."));
    EXPECT_EQ(toast(), QStringLiteral("Ollama error (500). Check that the service is running.") + switchHint);
    advance(3999ms);
    EXPECT_TRUE(isToastShown());
    advance(1ms);
    EXPECT_FALSE(isToastShown());
}

TEST_F(PromptAnalysisManagerTest, theNoticeFollowsTheProviderThatIsSelectedWhenTheFailureComes) {
    const auto ending = started(manager.analyze(QStringLiteral("a")));
    ASSERT_TRUE(server.waitForRequest());
    selectedModelProviderPreference().set(ModelProviderType::apple);
    advance(120s);
    EXPECT_EQ(ending->description(), QStringLiteral("Analysis failed: Can't connect to Ollama. Make sure Ollama is "
                                                    "running (try 'ollama serve')."));
    EXPECT_FALSE(isToastShown());
}

TEST_F(PromptAnalysisManagerTest, afterAFailureTheNextCallStartsNormally) {
    server.answerWith(500, {});
    QSignalSpy changes(&manager, &PromptAnalysisManager::isAnalyzingChanged);
    analyze();
    EXPECT_FALSE(manager.isAnalyzing());
    EXPECT_EQ(changes.size(), 2);
    EXPECT_TRUE(analyzeAnswer(record).result);
}

TEST_F(PromptAnalysisManagerTest, aChangeOfTheSettingsTakesEffectAtTheNextAnalysis) {
    const auto apple = PromptAnalysisManager::makeProvider();
    EXPECT_NE(PromptAnalysisManager::makeProvider(), apple);
    ollamaBaseURLPreference().set(QStringLiteral(" http://host/ "));
    ollamaModelPreference().set(QString());
    const auto ollama = PromptAnalysisManager::makeProvider();
    const auto* provider = dynamic_cast<OllamaModelProvider*>(ollama.get());
    ASSERT_TRUE(provider);
    EXPECT_EQ(provider->baseURL, QStringLiteral(" http://host/ "));
    EXPECT_EQ(provider->model, QString());
    selectedModelProviderPreference().set(ModelProviderType::apple);
    EXPECT_TRUE(dynamic_cast<AppleModelProvider*>(PromptAnalysisManager::makeProvider().get()));
}

TEST_F(PromptAnalysisManagerTest, anAnalysisOutlivesItsManager) {
    auto owned = std::make_unique<PromptAnalysisManager>();
    const auto ending = started(owned->analyze(QStringLiteral("a")));
    QTcpSocket* socket = server.waitForRequest();
    ASSERT_TRUE(socket);
    owned.reset();
    const QJsonObject message{{QStringLiteral("content"), record}};
    socket->write(HttpServer::answer(200, QJsonDocument(QJsonObject{{QStringLiteral("message"), message}}).toJson()));
    EXPECT_TRUE(QTest::qWaitFor([&] { return ending->hasCome(); }));
    EXPECT_TRUE(ending->result);
}

TEST_F(PromptAnalysisManagerTest, aServerThatDripsWithoutEndKeepsTheAnalysisRunning) {
    const auto ending = started(manager.analyze(QStringLiteral("a")));
    QTcpSocket* socket = server.waitForRequest();
    ASSERT_TRUE(socket);
    socket->write("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n");
    for (int byte = 0; byte < 60; ++byte) {
        socket->write("{");
        ASSERT_TRUE(QTest::qWaitFor([&] { return socket->bytesToWrite() == 0; }));
        QTest::qWait(5);
        advance(50s);
        ASSERT_FALSE(ending->hasCome()) << byte;
    }
    EXPECT_TRUE(manager.isAnalyzing());
    advance(120s);
    EXPECT_TRUE(ending->hasCome()) << "now it is silent";
}

TEST_F(PromptAnalysisManagerTest, theLoopGoesOnWhileTheModelIsSilent) {
    const auto ending = started(manager.analyze(QStringLiteral("a")));
    EXPECT_TRUE(manager.isAnalyzing());
    int turns = 0;
    for (int i = 0; i < 3; ++i)
        QTimer::singleShot(0, [&] { ++turns; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return turns == 3; }, 1000));
    EXPECT_FALSE(ending->hasCome());
    advance(120s);
    EXPECT_TRUE(ending->hasCome());
}

} // namespace Quillstacks
