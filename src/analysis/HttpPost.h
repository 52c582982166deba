#pragma once

#include "analysis/answer/HttpAnswerReader.h"

#include <QObject>
#include <QSslSocket>
#include <QUrl>

#include <chrono>

namespace Quillstacks {

/// One POST of JSON and the whole of its answer, over a connection of its own. It speaks HTTP itself: the toolkit's
/// client would tidy up the path, try again after a lost connection, and take headers without end. Destroying it ends
/// the request.
class HttpPost final : public QObject {
    Q_OBJECT
public:
    static constexpr std::chrono::seconds timeout{120}; ///< without a byte, counted on the main queue

    /// Sends at once. A redirect is followed within the origin only: anywhere else it would carry the prompt to
    /// somebody whom the user has not named.
    HttpPost(const QUrl& url, const QByteArray& json);
    ~HttpPost() override;

    [[nodiscard]] bool isFinished() const { return ended; }
    /// Why there is no answer; empty when there is one.
    [[nodiscard]] const QString& failure() const { return reason; }
    /// 0 where the answer came by something else than HTTP.
    [[nodiscard]] int status() const { return code; }
    [[nodiscard]] const QByteArray& body() const { return answer.body(); }

Q_SIGNALS:
    void finished();

private:
    void readWithoutHttp();
    void connectToServer();
    void send();
    [[nodiscard]] QByteArray request() const;
    void watchForSilence();
    void noteProgress();
    void take();
    void takeError(QAbstractSocket::SocketError error);
    void judge(HttpAnswerReader::State state);
    /// False when there is none to be followed.
    bool followRedirect();
    void dropSocket();
    void end(const QString& failure);

    QUrl url;
    QByteArray method = QByteArrayLiteral("POST");
    QByteArray json;
    bool tellsProxy = false; ///< the request goes to a proxy, which needs the whole URL
    int redirects = 0;
    QSslSocket* socket = nullptr;
    HttpAnswerReader answer;
    std::chrono::nanoseconds lastProgress{0};
    QString reason;
    int code = 0;
    bool ended = false;
};

} // namespace Quillstacks
