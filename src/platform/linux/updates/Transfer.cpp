#include "updates/Transfer.h"

#include "foundation/MainQueue.h"

#include <QCoreApplication>
#include <QNetworkReply>

namespace Quillstacks {

namespace {

constexpr double patience = 60; ///< seconds without a byte
constexpr int mostRedirects = 5;
constexpr int statusGood = 200;
constexpr int statusFirstError = 400;

/// The network's own sentence, to stand within one of ours.
QString withoutStop(QString sentence) {
    while (sentence.endsWith(u'.'))
        sentence.chop(1);
    return sentence;
}

} // namespace

Transfer::Transfer(const QUrl& url, qint64 most, Take taker) : take(std::move(taker)), limit(most) {
    // The toolkit's network has a thread of its own, which must not outlive the program's main function.
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, &Transfer::abandon);
    MainQueue::async(this, [this, url] { start(url); });
}

Transfer::~Transfer() {
    abandon();
}

void Transfer::abandon() {
    isOver = true;
    ++waits;
    if (reply)
        reply->disconnect(this);
    reply = nullptr;
    network.reset(); // takes the reply along, and waits for its thread
}

void Transfer::start(const QUrl& url) {
    if (isOver)
        return;
    if (url.scheme() != QStringLiteral("https"))
        return conclude(UpdateError(UpdateError::Case::notSecure));
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(mostRedirects);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Quillstacks"));
    // What arrives is what is counted: nothing grows on being unpacked.
    request.setRawHeader("Accept-Encoding", "identity");
    network = std::make_unique<QNetworkAccessManager>();
    reply = network->get(request);
    connect(reply, &QNetworkReply::readyRead, this, &Transfer::receive);
    connect(reply, &QNetworkReply::finished, this, &Transfer::finish);
    waitForBytes();
}

void Transfer::waitForBytes() {
    MainQueue::after(patience, this, [this, wait = ++waits] {
        if (wait == waits)
            conclude(UpdateError(UpdateError::Case::timedOut));
    });
}

void Transfer::receive() {
    // The page of an error is of no interest; finish() tells of it.
    if (reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() != statusGood)
        return void(reply->readAll());
    const QByteArray bytes = reply->readAll();
    if (bytes.isEmpty())
        return;
    received += bytes.size();
    if (received > limit)
        return conclude(UpdateError(UpdateError::Case::tooLarge));
    waitForBytes();
    if (!take(bytes))
        conclude(std::nullopt);
}

void Transfer::finish() {
    receive();
    if (isOver)
        return;
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    switch (reply->error()) {
    case QNetworkReply::InsecureRedirectError:
    case QNetworkReply::TooManyRedirectsError:
        return conclude(UpdateError(UpdateError::Case::insecureRedirect));
    case QNetworkReply::NoError:
        if (status == statusGood)
            return conclude(std::nullopt);
        break;
    default:
        break;
    }
    if (status >= statusFirstError || reply->error() == QNetworkReply::NoError)
        return conclude(UpdateError(UpdateError::Case::badStatus, QString::number(status)));
    conclude(UpdateError(UpdateError::Case::notReached, withoutStop(reply->errorString())));
}

void Transfer::conclude(std::optional<UpdateError> failure) {
    if (isOver)
        return;
    isOver = true;
    ++waits;
    error = std::move(failure);
    if (reply) {
        reply->disconnect(this);
        reply->abort();
    }
    // Later, since this object, and the reply whose signal led here, may go with what it tells.
    MainQueue::async(this, [this] { Q_EMIT ended(); });
}

} // namespace Quillstacks
