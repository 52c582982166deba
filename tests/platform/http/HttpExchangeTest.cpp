#include "platform/http/HttpExchange.h"
#include "foundation/ManualClock.h"
#include "platform/http/HttpServer.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

using namespace std::chrono_literals;
using Outcome = HttpExchange::Outcome;

class HttpExchangeTest : public testing::Test {
protected:
    [[nodiscard]] HttpRequest get(const QString& path = QStringLiteral("/")) const {
        HttpRequest request;
        request.method = QByteArrayLiteral("GET");
        request.url = QUrl(server.url() + path);
        return request;
    }
    static Outcome outcomeOf(HttpExchange& exchange) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return exchange.outcome() != Outcome::pending; }));
        return exchange.outcome();
    }
    /// Lets what was written arrive.
    static void deliver(QTcpSocket& socket) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return socket.bytesToWrite() == 0; }));
        QTest::qWait(20);
    }

    HttpServer server;
};

TEST_F(HttpExchangeTest, aQuestionWithoutABodyTellsNoLength) {
    server.answerWith(200, "Hello");
    HttpExchange exchange(get(QStringLiteral("//a%20b?c=d")), {});
    EXPECT_EQ(outcomeOf(exchange), Outcome::answered);
    EXPECT_EQ(exchange.body(), "Hello");
    ASSERT_EQ(server.requests.size(), 1U);
    EXPECT_EQ(server.requests.front().line(), "GET //a%20b?c=d HTTP/1.1");
    EXPECT_EQ(server.requests.front().header("Host"), "127.0.0.1:" + QByteArray::number(server.port()));
    EXPECT_EQ(server.requests.front().header("Connection"), "close");
    EXPECT_EQ(server.requests.front().head.count('\n'), 2);
}

TEST_F(HttpExchangeTest, headersAndBodyGoAsTheyStand) {
    server.answerWith(401, "No.");
    HttpRequest request = get();
    request.method = QByteArrayLiteral("POST");
    request.headers = {{QByteArrayLiteral("Authorization"), QByteArrayLiteral("Bearer key")}};
    request.body = QByteArrayLiteral("{\"a\": \"ä\"}\r\n\r\n");
    HttpExchange exchange(request, {});
    EXPECT_EQ(outcomeOf(exchange), Outcome::answered) << "a status that says no is an answer";
    EXPECT_EQ(exchange.status(), 401);
    EXPECT_TRUE(exchange.failure().isEmpty());
    EXPECT_EQ(server.requests.at(0).header("Authorization"), "Bearer key");
    EXPECT_EQ(server.requests.at(0).body, request.body);
}

TEST_F(HttpExchangeTest, whatFailsAtOnceIsToldOnALaterTurnOfTheLoop) {
    HttpRequest nowhere = get();
    nowhere.url = QUrl(QStringLiteral("http:///path"));
    HttpRequest other = get();
    other.url = QUrl(QStringLiteral("gopher://localhost/"));
    HttpRequest refused = get();
    {
        const HttpServer closed;
        refused.url = QUrl(closed.url());
    }
    for (const HttpRequest& request : {nowhere, other, refused}) {
        HttpExchange exchange(request, {});
        EXPECT_EQ(exchange.outcome(), Outcome::pending);
        QSignalSpy endings(&exchange, &HttpExchange::ended);
        EXPECT_EQ(outcomeOf(exchange), Outcome::broken);
        EXPECT_FALSE(exchange.failure().isEmpty());
        QTest::qWait(20);
        EXPECT_EQ(endings.count(), 1);
    }
}

TEST_F(HttpExchangeTest, theWholeTimeEndsAnAnswerThatDrips) {
    ManualClock clock;
    HttpBounds bounds;
    bounds.whole = 60s;
    HttpExchange exchange(get(), bounds);
    QTcpSocket* socket = server.waitForRequest();
    ASSERT_TRUE(socket);
    socket->write("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n");
    for (int second = 0; second < 59; ++second) {
        socket->write("x");
        clock.advance(1s);
    }
    deliver(*socket);
    EXPECT_EQ(exchange.outcome(), Outcome::pending);
    clock.advance(1s);
    EXPECT_EQ(exchange.outcome(), Outcome::timedOut);
    EXPECT_EQ(exchange.failure(), QStringLiteral("The request timed out."));
}

TEST_F(HttpExchangeTest, silenceIsCountedFromTheLastByte) {
    ManualClock clock;
    HttpBounds bounds;
    bounds.silence = 60s;
    HttpExchange exchange(get(), bounds);
    QTcpSocket* socket = server.waitForRequest();
    ASSERT_TRUE(socket);
    clock.advance(59s);
    socket->write("HTTP/1.1 200 OK\r\n");
    deliver(*socket);
    clock.advance(59s);
    EXPECT_EQ(exchange.outcome(), Outcome::pending);
    clock.advance(1s);
    EXPECT_EQ(exchange.outcome(), Outcome::timedOut);
}

TEST_F(HttpExchangeTest, withoutBoundsItWaitsForEver) {
    ManualClock clock;
    HttpExchange exchange(get(), {});
    ASSERT_TRUE(server.waitForRequest());
    clock.advance(100h);
    EXPECT_EQ(exchange.outcome(), Outcome::pending);
}

TEST_F(HttpExchangeTest, aRedirectThatIsNotToBeFollowedIsTheAnswer) {
    server.answerWith(302, "Elsewhere", "Location: /elsewhere\r\n");
    HttpExchange exchange(get(), {});
    EXPECT_EQ(outcomeOf(exchange), Outcome::answered);
    EXPECT_EQ(exchange.status(), 302);
    QTest::qWait(20);
    EXPECT_EQ(server.requests.size(), 1U);
}

TEST_F(HttpExchangeTest, aRedirectThatAsksForAnotherQuestionDropsTheBody) {
    server.respond = [this](QTcpSocket& socket) {
        socket.write(server.requests.size() == 1 ? HttpServer::answer(303, {}, "Location: /elsewhere\r\n")
                                                 : HttpServer::answer(200, "Hello"));
        socket.disconnectFromHost();
    };
    HttpRequest request = get();
    request.method = QByteArrayLiteral("POST");
    request.body = QByteArrayLiteral("private");
    HttpBounds bounds;
    bounds.redirects = 1;
    HttpExchange exchange(request, bounds);
    EXPECT_EQ(outcomeOf(exchange), Outcome::answered);
    EXPECT_EQ(exchange.body(), "Hello");
    ASSERT_EQ(server.requests.size(), 2U);
    EXPECT_EQ(server.requests.back().line(), "GET /elsewhere HTTP/1.1");
    EXPECT_TRUE(server.requests.back().body.isEmpty());
}

TEST_F(HttpExchangeTest, moreRedirectsThanAreFollowedAreNoAnswer) {
    server.answerWith(307, {}, "Location: /again\r\n");
    HttpBounds bounds;
    bounds.redirects = 3;
    HttpExchange exchange(get(), bounds);
    EXPECT_EQ(outcomeOf(exchange), Outcome::broken);
    EXPECT_EQ(server.requests.size(), 4U);
}

TEST_F(HttpExchangeTest, thisComputerIsReachedWithoutAProxyByAnyOfItsNames) {
    HttpServer proxy;
    proxy.answerWith(200, {});
    server.answerWith(200, {});
    qputenv("http_proxy", proxy.url().toUtf8());
    for (const char* host : {"127.0.0.1", "localhost", "LOCALHOST", "0.0.0.0"}) {
        HttpRequest request = get();
        request.url.setHost(QLatin1String(host));
        HttpExchange exchange(request, {});
        EXPECT_EQ(outcomeOf(exchange), Outcome::answered) << host;
    }
    qunsetenv("http_proxy");
    EXPECT_EQ(server.requests.size(), 4U);
    EXPECT_TRUE(proxy.requests.empty());
}

TEST_F(HttpExchangeTest, itsEndEndsTheRequest) {
    auto exchange = std::make_unique<HttpExchange>(get(), HttpBounds());
    const QPointer<QTcpSocket> socket = server.waitForRequest();
    ASSERT_TRUE(socket);
    exchange.reset();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !socket; })) << "the server hears of it";
}

TEST_F(HttpExchangeTest, itMayGoBeforeItHasBegun) {
    std::make_unique<HttpExchange>(get(), HttpBounds()).reset();
    QTest::qWait(20);
    EXPECT_TRUE(server.requests.empty());
}

} // namespace
} // namespace Quillstacks
