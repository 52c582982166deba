#pragma once

#include <QByteArray>
#include <QObject>

#include <chrono>

class QNetworkReply;

namespace Quillstacks {

/// One request and its answer, bounded in size and time. Destroying it ends the request.
class HttpExchange final : public QObject {
    Q_OBJECT
public:
    enum class Outcome {
        pending,
        answered, ///< status and body are whole
        broken,   ///< no connection, or one that ended too early
        timedOut,
        tooLarge, ///< more than 16 MiB
    };

    /// Takes the reply. The limit counts from now to the answer's end, on the main queue.
    HttpExchange(QNetworkReply* reply, std::chrono::nanoseconds limit, QObject* parent = nullptr);
    ~HttpExchange() override;

    [[nodiscard]] Outcome outcome() const { return end; }
    [[nodiscard]] int status() const { return code; }
    [[nodiscard]] const QByteArray& body() const { return bytes; }

Q_SIGNALS:
    /// Once, when the outcome is known.
    void ended();

private:
    void take();
    void finish();
    void conclude(Outcome outcome);

    QNetworkReply* reply = nullptr;
    Outcome end = Outcome::pending;
    int code = 0;
    QByteArray bytes;
};

} // namespace Quillstacks
