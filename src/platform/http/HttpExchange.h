#pragma once

#include "platform/http/HttpAnswerReader.h"

#include <QList>
#include <QObject>
#include <QUrl>

#include <chrono>
#include <optional>
#include <utility>

class QAbstractSocket;

namespace Quillstacks {

/// What is asked. Host, length and the end of the connection are told without being named here.
struct HttpRequest {
    QByteArray method;
    QUrl url; ///< of the scheme "http" or "https"
    QList<std::pair<QByteArray, QByteArray>> headers;
    QByteArray body;

    /// Whether it is a server of HTTP that the URL names.
    [[nodiscard]] static bool isHttp(const QUrl& url);
};

/// How much patience an exchange has. Times are counted on the main queue; without one, it waits for ever.
struct HttpBounds {
    std::optional<std::chrono::nanoseconds> silence; ///< without a byte, either way
    std::optional<std::chrono::nanoseconds> whole;   ///< from the start to the answer's last byte
    /// How many redirects are followed, all within the origin: anywhere else they would carry the body to somebody whom
    /// the user has not named. One that is not followed is the answer.
    int redirects = 0;
};

/// One request and the whole of its answer, over a connection of its own. It speaks HTTP itself: the toolkit's client
/// would tidy up the path, try again after a lost connection, and take headers without end. This computer is reached
/// without a proxy. Destroying it ends the request.
class HttpExchange final : public QObject {
    Q_OBJECT
public:
    enum class Outcome {
        pending,
        answered, ///< status and body are whole, whatever the status
        broken,   ///< no connection, one that ended too early, or no HTTP
        timedOut,
        tooLarge, ///< more than HttpAnswerReader takes
    };

    HttpExchange(HttpRequest request, HttpBounds bounds, QObject* parent = nullptr);
    ~HttpExchange() override;

    [[nodiscard]] Outcome outcome() const { return end; }
    /// Why there is no answer, in a sentence; empty when there is one.
    [[nodiscard]] const QString& failure() const { return reason; }
    [[nodiscard]] int status() const { return answer.status(); }
    [[nodiscard]] const QByteArray& body() const { return answer.body(); }

Q_SIGNALS:
    /// Once, when the outcome is known, on a later turn of the loop than the making.
    void ended();

private:
    void start();
    void connectToServer();
    void connectSocket();
    void send();
    [[nodiscard]] QByteArray message() const;
    void watchForSilence();
    void noteProgress();
    void take();
    void takeError();
    void judge(HttpAnswerReader::State state);
    /// False when the redirect itself, or whatever else it is, is the answer.
    bool followRedirect();
    void dropSocket();
    void conclude(Outcome outcome, const QString& failure = {});

    HttpRequest request;
    HttpBounds bounds;
    bool tellsProxy = false; ///< the request goes to a proxy, which needs the whole URL
    int redirects = 0;
    QAbstractSocket* socket = nullptr;
    HttpAnswerReader answer;
    std::chrono::nanoseconds lastProgress{0};
    Outcome end = Outcome::pending;
    QString reason;
};

} // namespace Quillstacks
