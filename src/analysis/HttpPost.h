#pragma once

#include <QByteArray>
#include <QNetworkReply>
#include <QObject>
#include <QUrl>

#include <chrono>

namespace Quillstacks {

/// One POST of JSON and the whole of its answer. Destroying it ends the request.
class HttpPost final : public QObject {
    Q_OBJECT
public:
    static constexpr std::chrono::seconds timeout{120}; ///< without a byte, counted on the main queue
    static constexpr qsizetype mostBytes = 16 * 1024 * 1024;

    /// Sends at once. A redirect is followed within the origin only: anywhere else it would carry the prompt to
    /// somebody whom the user has not named.
    HttpPost(const QUrl& url, const QByteArray& json);
    ~HttpPost() override;

    [[nodiscard]] bool isFinished() const { return ended; }
    /// Why there is no answer; empty when there is one.
    [[nodiscard]] const QString& failure() const { return reason; }
    /// 0 where the answer came by something else than HTTP.
    [[nodiscard]] int status() const { return code; }
    [[nodiscard]] const QByteArray& body() const { return bytes; }

Q_SIGNALS:
    void finished();

private:
    void watchForSilence();
    void noteProgress();
    /// False when that is too much.
    [[nodiscard]] bool readAll();
    void take();
    void judgeRedirect(const QUrl& target);
    void takeEnd();
    void end(const QString& failure);

    const QUrl url;
    QNetworkReply* reply = nullptr;
    std::chrono::nanoseconds lastProgress{0};
    QByteArray bytes;
    QString reason;
    int code = 0;
    bool ended = false;
};

} // namespace Quillstacks
