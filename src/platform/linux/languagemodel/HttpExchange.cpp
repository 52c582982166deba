#include "languagemodel/HttpExchange.h"

#include "foundation/MainQueue.h"

#include <QNetworkReply>

namespace Quillstacks {

namespace {

constexpr qsizetype largestBody = 16 * 1024 * 1024;
constexpr int firstErrorStatus = 400;

} // namespace

HttpExchange::HttpExchange(QNetworkReply* answer, std::chrono::nanoseconds limit, QObject* parent)
    : QObject(parent), reply(answer) {
    reply->setParent(this);
    connect(reply, &QNetworkReply::readyRead, this, &HttpExchange::take);
    connect(reply, &QNetworkReply::finished, this, &HttpExchange::finish);
    MainQueue::after(limit, this, [this] { conclude(Outcome::timedOut); });
}

HttpExchange::~HttpExchange() {
    reply->disconnect(this);
}

void HttpExchange::take() {
    bytes += reply->readAll();
    if (bytes.size() > largestBody)
        conclude(Outcome::tooLarge);
}

void HttpExchange::finish() {
    take();
    code = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    // The toolkit counts statuses from 400 on as errors of the network; they are answers all the same.
    const bool isWhole = reply->error() == QNetworkReply::NoError || code >= firstErrorStatus;
    conclude(isWhole && code > 0 ? Outcome::answered : Outcome::broken);
}

void HttpExchange::conclude(Outcome outcome) {
    if (end != Outcome::pending)
        return;
    end = outcome;
    reply->disconnect(this);
    reply->abort();
    Q_EMIT ended();
}

} // namespace Quillstacks
