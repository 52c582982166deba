#include "analysis/OllamaModelProvider.h"
#include "analysis/answer/JsonError.h"
#include "analysis/OllamaError.h"
#include "AnalysisFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

namespace Quillstacks {

using namespace std::chrono_literals;

class OllamaModelProviderTest : public AnalysisFixture {
protected:
    Ending<QString> ask(const QString& base, const QString& model = QStringLiteral("llama3.2"),
                        const QString& prompt = QStringLiteral("Hi")) {
        OllamaModelProvider provider(base, model);
        return finished(provider.generate(prompt, QStringLiteral("Be brief")));
    }
    Ending<QString> ask() { return ask(server.url()); }
    /// The error's case, where the server answers a request like this.
    std::optional<OllamaError::Case> errorFor(int status, const QByteArray& body) {
        server.answerWith(status, body);
        const auto error = ask().as<OllamaError>();
        return error ? std::optional(error->which()) : std::nullopt;
    }

    const QByteArray hello = R"({"model":"llama3.2","message":{"role":"assistant","content":"Hello."},"done":true})";
};

TEST_F(OllamaModelProviderTest, theContentOfTheMessageIsTheAnswer) {
    server.answerWith(200, hello);
    EXPECT_EQ(ask().result, QStringLiteral("Hello."));
    EXPECT_EQ(log.lines(),
              QStringList{
                  QStringLiteral("data info: Sending request to Ollama at %1 with model llama3.2").arg(server.url())});
}

TEST_F(OllamaModelProviderTest, theRequestHasExactlyTheThreeKeys) {
    server.answerWith(200, hello);
    ask();
    ASSERT_EQ(server.requests.size(), 1U);
    const HttpServer::Request& request = server.requests.front();
    EXPECT_EQ(request.line(), "POST /api/chat HTTP/1.1");
    EXPECT_EQ(request.header("Content-Type"), "application/json");
    EXPECT_EQ(request.head.count('\n'), 4) << "no headers but those of any request";
    const auto message = [](const char* role, const char* content) {
        return QJsonObject{{QStringLiteral("role"), QLatin1String(role)},
                           {QStringLiteral("content"), QLatin1String(content)}};
    };
    const QJsonObject expected{
        {QStringLiteral("model"), QStringLiteral("llama3.2")},
        {QStringLiteral("messages"), QJsonArray{message("system", "Be brief"), message("user", "Hi")}},
        {QStringLiteral("stream"), false}};
    EXPECT_EQ(QJsonDocument::fromJson(request.body).object(), expected);
    EXPECT_EQ(request.body, QJsonDocument(expected).toJson(QJsonDocument::Compact));
}

TEST_F(OllamaModelProviderTest, anyTextReachesTheServerUnharmed) {
    server.answerWith(200, hello);
    const QString prompt = QStringLiteral("\"\\ \n\r\t\u0001 ä 😀 \u2028 {{x}} %1 %s");
    ask(server.url(), QStringLiteral("a model: \"%1\""), prompt);
    ASSERT_EQ(server.requests.size(), 1U);
    const QJsonObject body = QJsonDocument::fromJson(server.requests.front().body).object();
    EXPECT_EQ(body.value(QStringLiteral("messages")).toArray().at(1).toObject().value(QStringLiteral("content")),
              prompt);
    EXPECT_EQ(body.value(QStringLiteral("model")), QStringLiteral("a model: \"%1\""));
}

TEST_F(OllamaModelProviderTest, aBaseThatIsNoURLIsInvalidURLAndNothingIsSent) {
    for (const QString& base :
         {QStringLiteral("http://local host:11434"), server.url() + QStringLiteral(" "), QStringLiteral("http://[::1"),
          QStringLiteral("http://localhost:port"), QStringLiteral("http://localhost:123456")}) {
        const Ending<QString> ending = ask(base);
        ASSERT_TRUE(ending.as<OllamaError>()) << base.toStdString();
        EXPECT_EQ(ending.as<OllamaError>()->which(), OllamaError::Case::invalidURL);
        EXPECT_EQ(ending.description(), QStringLiteral("Invalid Ollama URL."));
    }
    EXPECT_TRUE(server.requests.empty());
    EXPECT_EQ(log.lines(), QStringList());
}

TEST_F(OllamaModelProviderTest, aStatusOf404NamesLlamaWhicheverModelIsSet) {
    server.answerWith(404, R"({"error":"model 'mistral' not found"})");
    const Ending<QString> ending = ask(server.url(), QStringLiteral("mistral"));
    EXPECT_EQ(ending.as<OllamaError>()->statusCode(), 404);
    EXPECT_EQ(ending.description(), QStringLiteral("Ollama model not found. Download it with 'ollama pull llama3.2'."));
    EXPECT_EQ(log.lines().back(), QStringLiteral("data error: Ollama returned status code: 404"));
}

TEST_F(OllamaModelProviderTest, anyStatusBut200IsAnHttpError) {
    for (const int status : {201, 202, 204, 304, 400, 401, 403, 405, 418, 429, 500, 502, 503, 599}) {
        server.answerWith(status, status == 204 || status == 304 ? QByteArray() : hello);
        const Ending<QString> ending = ask();
        ASSERT_TRUE(ending.as<OllamaError>()) << status << ending.description().toStdString();
        EXPECT_EQ(ending.as<OllamaError>()->which(), OllamaError::Case::httpError) << status;
        EXPECT_EQ(ending.description(),
                  QStringLiteral("Ollama error (%1). Check that the service is running.").arg(status));
    }
}

TEST_F(OllamaModelProviderTest, anAnswerThatIsNotTheExpectedJsonIsARawDecodingError) {
    for (const char* body :
         {"", "null", "[]", "<html><body>proxy</body></html>", R"({"done":true})", R"({"message":"x"})",
          R"({"message":[{"content":"x"}]})", R"({"message":{"role":"assistant"}})", R"({"message":{"content":7}})",
          R"({"message":{"content":null}})", "{\"message\":", "{\"message\":{\"content\":\"\xC3\x28\"}}",
          R"({"message":{"content":"\ud800"}})"}) {
        server.answerWith(200, body);
        const Ending<QString> ending = ask();
        EXPECT_TRUE(ending.as<JsonError>()) << body << " " << ending.description().toStdString();
    }
}

TEST_F(OllamaModelProviderTest, anAnswerMayBeEmptyTextAndInPieces) {
    server.respond = [](QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
        for (const char* piece : {"{\"message\"", ":{\"content\"", ":\"\"}}"})
            socket.write(QByteArray::number(qstrlen(piece), 16) + "\r\n" + piece + "\r\n");
        socket.write("0\r\n\r\n");
    };
    EXPECT_EQ(ask().result, QString());
}

TEST_F(OllamaModelProviderTest, aServerThatRefusesIsConnectionFailed) {
    quint16 closed = 0;
    {
        QTcpServer other;
        other.listen(QHostAddress::LocalHost);
        closed = other.serverPort();
    }
    const Ending<QString> ending = ask(QStringLiteral("http://127.0.0.1:%1").arg(closed));
    EXPECT_EQ(ending.description(),
              QStringLiteral("Can't connect to Ollama. Make sure Ollama is running (try 'ollama serve')."));
    EXPECT_TRUE(log.lines().back().startsWith(QStringLiteral("data error: Ollama network error: ")));
    EXPECT_FALSE(log.lines().back().endsWith(QStringLiteral(": ")));
}

TEST_F(OllamaModelProviderTest, aBaseWithoutASchemeOrWithAnUnknownOneIsConnectionFailed) {
    for (const char* base : {"", "localhost:11434", "ollama", "gopher://localhost"}) {
        const Ending<QString> ending = ask(QLatin1String(base));
        ASSERT_TRUE(ending.as<OllamaError>()) << base;
        EXPECT_EQ(ending.as<OllamaError>()->which(), OllamaError::Case::connectionFailed) << base;
    }
}

TEST_F(OllamaModelProviderTest, whatAnswersWithoutHttpIsInvalidResponse) {
    QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("api")));
    QFile file(folder.filePath(QStringLiteral("api/chat")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(hello);
    file.close();
    for (const QString& base : {QStringLiteral("file://") + folder.path(), QStringLiteral("data:text/plain,x")}) {
        const Ending<QString> ending = ask(base);
        EXPECT_EQ(ending.description(), QStringLiteral("Invalid response from Ollama.")) << base.toStdString();
    }
    EXPECT_EQ(ask(QStringLiteral("file:///nonexistent")).as<OllamaError>()->which(),
              OllamaError::Case::connectionFailed);
}

TEST_F(OllamaModelProviderTest, aServerThatHangsBeforeTheAnswerTimesOutAfter120Seconds) {
    OllamaModelProvider provider(server.url(), QStringLiteral("m"));
    const auto ending = started(provider.generate(QStringLiteral("Hi"), {}));
    ASSERT_TRUE(server.waitForRequest());
    advance(119s);
    EXPECT_FALSE(ending->hasCome());
    advance(1s);
    ASSERT_TRUE(ending->as<OllamaError>());
    EXPECT_EQ(ending->as<OllamaError>()->which(), OllamaError::Case::connectionFailed);
    EXPECT_EQ(log.lines().back(), QStringLiteral("data error: Ollama network error: The request timed out."));
}

TEST_F(OllamaModelProviderTest, aServerThatHangsWithinTheAnswerTimesOutAfter120SecondsWithoutAByte) {
    OllamaModelProvider provider(server.url(), QStringLiteral("m"));
    const auto ending = started(provider.generate(QStringLiteral("Hi"), {}));
    QTcpSocket* socket = server.waitForRequest();
    ASSERT_TRUE(socket);
    advance(100s);
    socket->write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n{\"mess");
    ASSERT_TRUE(QTest::qWaitFor([&] { return socket->bytesToWrite() == 0; }));
    QTest::qWait(50);
    advance(119s);
    EXPECT_FALSE(ending->hasCome());
    advance(1s);
    EXPECT_TRUE(ending->hasCome());
    EXPECT_EQ(ending->as<OllamaError>()->which(), OllamaError::Case::connectionFailed);
}

TEST_F(OllamaModelProviderTest, aServerThatDripsKeepsTheRequestAlive) {
    OllamaModelProvider provider(server.url(), QStringLiteral("m"));
    const auto ending = started(provider.generate(QStringLiteral("Hi"), {}));
    QTcpSocket* socket = server.waitForRequest();
    ASSERT_TRUE(socket);
    socket->write("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(hello.size()) + "\r\n\r\n");
    for (const char each : hello) {
        socket->write(&each, 1);
        ASSERT_TRUE(QTest::qWaitFor([&] { return socket->bytesToWrite() == 0; }));
        QTest::qWait(5);
        advance(30s);
        if (ending->hasCome())
            break;
    }
    QTest::qWait(50);
    EXPECT_EQ(ending->result, QStringLiteral("Hello.")) << ending->description().toStdString();
}

TEST_F(OllamaModelProviderTest, anAnswerThatEndsTooEarlyIsConnectionFailed) {
    for (const char* beginning : {"HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n{\"message\":{\"content\":\"x\"}}",
                                  "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\n{\"mes\r\n",
                                  "HTTP/1.1 200 OK\r\nContent-", "HTTP", "", "garbage that is no HTTP\r\n\r\n"}) {
        server.respond = [beginning](QTcpSocket& socket) {
            socket.write(beginning);
            socket.disconnectFromHost();
        };
        const Ending<QString> ending = ask();
        ASSERT_TRUE(ending.as<OllamaError>()) << beginning << ending.description().toStdString();
        EXPECT_EQ(ending.as<OllamaError>()->which(), OllamaError::Case::connectionFailed) << beginning;
    }
}

TEST_F(OllamaModelProviderTest, aBaseThatEndsInASlashYieldsADoubleSlash) {
    server.answerWith(200, hello);
    EXPECT_EQ(ask(server.url() + QStringLiteral("/")).result, QStringLiteral("Hello."));
    EXPECT_EQ(server.requests.front().line(), "POST //api/chat HTTP/1.1");
    ask(server.url() + QStringLiteral("/a/b"));
    EXPECT_EQ(server.requests.back().line(), "POST /a/b/api/chat HTTP/1.1");
}

TEST_F(OllamaModelProviderTest, headersWithoutEndAreConnectionFailed) {
    server.respond = [this](QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\n");
        const auto more = [&socket] {
            if (socket.bytesToWrite() < 1000000)
                socket.write("X-Header: " + QByteArray(50000, 'x') + "\r\n");
        };
        QObject::connect(&socket, &QTcpSocket::bytesWritten, &server, more);
        more();
    };
    const Ending<QString> ending = ask();
    ASSERT_TRUE(ending.as<OllamaError>());
    EXPECT_EQ(ending.as<OllamaError>()->which(), OllamaError::Case::connectionFailed);
}

TEST_F(OllamaModelProviderTest, anAnswerOf16MiBIsTakenAndALargerOneIsConnectionFailed) {
    const QByteArray frame = R"({"message":{"content":""}})";
    const qsizetype most = 16 * 1024 * 1024;
    const auto answerOf = [&](qsizetype size) {
        return QByteArray(frame).insert(frame.size() - 3, QByteArray(size - frame.size(), 'x'));
    };
    server.answerWith(200, answerOf(most));
    EXPECT_EQ(ask().result.value_or(QString()).size(), most - frame.size());
    EXPECT_EQ(errorFor(200, answerOf(most + 1)), OllamaError::Case::connectionFailed);
    EXPECT_EQ(log.lines().back(),
              QStringLiteral("data error: Ollama network error: The server's answer is too large."));
}

TEST_F(OllamaModelProviderTest, aRedirectToAnotherOriginIsNotFollowed) {
    HttpServer other;
    other.answerWith(200, hello);
    for (const int status : {301, 302, 303, 307, 308}) {
        server.answerWith(status, {}, "Location: " + other.url().toUtf8() + "/api/chat\r\n");
        const Ending<QString> ending = ask();
        ASSERT_TRUE(ending.as<OllamaError>());
        EXPECT_EQ(ending.as<OllamaError>()->statusCode(), status);
    }
    QTest::qWait(50);
    EXPECT_TRUE(other.requests.empty());
}

TEST_F(OllamaModelProviderTest, aRedirectWithinTheOriginIsFollowedWithThePrompt) {
    server.respond = [this](QTcpSocket& socket) {
        if (server.requests.size() == 1)
            socket.write(HttpServer::answer(307, {}, "Location: /elsewhere\r\n"));
        else
            socket.write(HttpServer::answer(200, hello));
        socket.disconnectFromHost();
    };
    EXPECT_EQ(ask().result, QStringLiteral("Hello."));
    ASSERT_EQ(server.requests.size(), 2U);
    EXPECT_EQ(server.requests.back().line(), "POST /elsewhere HTTP/1.1");
    EXPECT_EQ(server.requests.back().body, server.requests.front().body);
}

TEST_F(OllamaModelProviderTest, redirectsInACircleAreConnectionFailed) {
    server.answerWith(307, {}, "Location: /api/chat\r\n");
    const Ending<QString> ending = ask();
    ASSERT_TRUE(ending.as<OllamaError>());
    EXPECT_EQ(ending.as<OllamaError>()->which(), OllamaError::Case::connectionFailed);
}

TEST_F(OllamaModelProviderTest, noProxyStandsBetweenThisComputerAndItself) {
    HttpServer proxy;
    proxy.answerWith(200, hello);
    server.answerWith(200, hello);
    qputenv("http_proxy", proxy.url().toUtf8());
    ask();
    ask(QStringLiteral("http://localhost:%1").arg(server.port()));
    EXPECT_EQ(server.requests.size(), 2U);
    EXPECT_TRUE(proxy.requests.empty());
    EXPECT_EQ(ask(QStringLiteral("http://ollama.invalid:11434")).result, QStringLiteral("Hello."));
    ASSERT_EQ(proxy.requests.size(), 1U);
    EXPECT_EQ(proxy.requests.front().line(), "POST http://ollama.invalid:11434/api/chat HTTP/1.1");
    qunsetenv("http_proxy");
}

TEST_F(OllamaModelProviderTest, aTaskThatNobodyFollowsGoesOnToItsEnd) {
    server.answerWith(200, hello);
    auto provider = std::make_unique<OllamaModelProvider>(server.url(), QStringLiteral("m"));
    static_cast<void>(provider->generate(QStringLiteral("Hi"), {}));
    EXPECT_TRUE(server.waitForRequest());
    QTest::qWait(50);
    EXPECT_EQ(log.lines().size(), 1);
}

TEST_F(OllamaModelProviderTest, aProviderMayBeGoneWhenTheAnswerComes) {
    auto provider = std::make_unique<OllamaModelProvider>(server.url(), QStringLiteral("m"));
    const auto ending = started(provider->generate(QStringLiteral("Hi"), {}));
    QTcpSocket* socket = server.waitForRequest();
    ASSERT_TRUE(socket);
    provider.reset();
    socket->write(HttpServer::answer(200, hello));
    EXPECT_TRUE(QTest::qWaitFor([&] { return ending->hasCome(); }));
    EXPECT_EQ(ending->result, QStringLiteral("Hello."));
}

} // namespace Quillstacks
