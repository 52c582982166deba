#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

#include "platform/UpdateError.h"

class QNetworkReply;

namespace Quillstacks {

/// One request over HTTPS, bounded in size, and in the time without a byte. Destroying it ends the request, and so does
/// the end of the program, untold.
class Transfer final : public QObject {
    Q_OBJECT
public:
    /// Takes the next bytes; false when it has no use for more.
    using Take = std::function<bool(const QByteArray&)>;

    Transfer(const QUrl& url, qint64 limit, Take take);
    ~Transfer() override;

    /// After ended(): what went wrong, if anything.
    [[nodiscard]] const std::optional<UpdateError>& failure() const { return error; }

Q_SIGNALS:
    /// Once, on a later turn of the loop than the making.
    void ended();

private:
    void start(const QUrl& url);
    void receive();
    void finish();
    void waitForBytes();
    void conclude(std::optional<UpdateError> failure);
    void abandon();

    std::unique_ptr<QNetworkAccessManager> network;
    QNetworkReply* reply = nullptr; ///< the network's
    Take take;
    qint64 limit;
    qint64 received = 0;
    quint64 waits = 0;
    bool isOver = false;
    std::optional<UpdateError> error;
};

} // namespace Quillstacks
