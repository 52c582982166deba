#include "platform/http/HttpExchange.h"
#include "updates/UpdateServer.h"

#include <QTest>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

using Outcome = HttpExchange::Outcome;

/// A server over TLS, for whose name itself vouches.
class Https : public testing::Test {
protected:
    ~Https() override { QSslConfiguration::setDefaultConfiguration(before); }

    void trust() const {
        QSslConfiguration configuration = before;
        configuration.addCaCertificate(identity.certificate);
        QSslConfiguration::setDefaultConfiguration(configuration);
    }
    [[nodiscard]] HttpRequest get() const {
        HttpRequest request;
        request.method = QByteArrayLiteral("GET");
        request.url = server.url(QStringLiteral("/"));
        return request;
    }
    static Outcome outcomeOf(HttpExchange& exchange) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return exchange.outcome() != Outcome::pending; }));
        return exchange.outcome();
    }

    const QSslConfiguration before = QSslConfiguration::defaultConfiguration();
    const ServerIdentity identity = ServerIdentity::make();
    UpdateServer server{&identity};
};

TEST_F(Https, anAnswerIsReadToItsEnd) {
    trust();
    // Without a length, so that it ends with the connection and all that has come by then counts.
    const QByteArray large(3000000, 'x');
    server.answers["/"] = [&large](QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\n\r\n" + large);
        socket.disconnectFromHost();
    };
    HttpExchange exchange(get(), {});
    EXPECT_EQ(outcomeOf(exchange), Outcome::answered) << exchange.failure().toStdString();
    EXPECT_EQ(exchange.body().size(), large.size());
}

TEST_F(Https, nothingIsSaidToAServerForWhoseNameNobodyVouches) {
    server.say("/", "Hello");
    HttpExchange exchange(get(), {});
    EXPECT_EQ(outcomeOf(exchange), Outcome::broken);
    EXPECT_FALSE(exchange.failure().isEmpty());
    EXPECT_TRUE(server.requests.isEmpty());
}

TEST_F(Https, aRedirectToPlainHttpIsNotFollowed) {
    trust();
    UpdateServer plain(nullptr);
    plain.say("/", "Hello");
    server.redirect("/", plain.url(QStringLiteral("/")));
    HttpBounds bounds;
    bounds.redirects = 20;
    HttpExchange exchange(get(), bounds);
    EXPECT_EQ(outcomeOf(exchange), Outcome::answered);
    EXPECT_EQ(exchange.status(), 302);
    EXPECT_TRUE(plain.requests.isEmpty());
}

} // namespace
} // namespace Quillstacks
