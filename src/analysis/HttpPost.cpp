#include "HttpPost.h"

#include "foundation/Clock.h"
#include "foundation/MainQueue.h"

#include <QCoreApplication>
#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>
#include <QPointer>

#include <utility>

namespace Quillstacks {
namespace {

bool isLoopback(const QString& host) {
    const QString localhost = QStringLiteral("localhost");
    return host.compare(localhost, Qt::CaseInsensitive) == 0 ||
           host.endsWith(QLatin1Char('.') + localhost, Qt::CaseInsensitive) || QHostAddress(host).isLoopback();
}

/// The desktop's proxies, but for this computer: none of them can reach it.
class ProxiesBeyondLoopback final : public QNetworkProxyFactory {
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override {
        if (isLoopback(query.url().host()))
            return {QNetworkProxy::NoProxy};
        return systemProxyForQuery(query);
    }
};

QNetworkAccessManager& sharedSession() {
    static QPointer<QNetworkAccessManager> session;
    if (!session) {
        session = new QNetworkAccessManager(qApp);
        session->setProxyFactory(new ProxiesBeyondLoopback);
    }
    return *session;
}

QNetworkReply* send(const QUrl& url, const QByteArray& json) {
    QNetworkRequest request(url);
    request.setRawHeader("Content-Type", "application/json");
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::UserVerifiedRedirectPolicy);
    // These know no methods: they are only read.
    if (url.isLocalFile() || url.scheme() == QLatin1String("data"))
        return sharedSession().get(request);
    return sharedSession().post(request, json);
}

bool isSameOrigin(const QUrl& a, const QUrl& b) {
    const auto port = [](const QUrl& url) { return url.port(url.scheme() == QLatin1String("https") ? 443 : 80); };
    return a.scheme() == b.scheme() && a.host() == b.host() && port(a) == port(b);
}

/// A status of 400 and above counts as an error to the toolkit; it is an answer all the same, if it came whole.
bool isAnswer(QNetworkReply::NetworkError error, int status) {
    constexpr int leastBadStatus = 400;
    if (error == QNetworkReply::NoError)
        return true;
    return status >= leastBadStatus && error > QNetworkReply::UnknownProxyError &&
           error != QNetworkReply::ProtocolUnknownError && error != QNetworkReply::ProtocolFailure;
}

QString tooLarge() {
    return QStringLiteral("The answer is larger than 16 MiB.");
}

} // namespace

HttpPost::HttpPost(const QUrl& address, const QByteArray& json)
    : url(address), reply(send(address, json)), lastProgress(Clock::uptime()) {
    connect(reply, &QNetworkReply::uploadProgress, this, &HttpPost::noteProgress);
    connect(reply, &QNetworkReply::metaDataChanged, this, &HttpPost::noteProgress);
    connect(reply, &QNetworkReply::readyRead, this, &HttpPost::take);
    connect(reply, &QNetworkReply::redirected, this, &HttpPost::judgeRedirect);
    connect(reply, &QNetworkReply::finished, this, &HttpPost::takeEnd);
    watchForSilence();
}

HttpPost::~HttpPost() {
    if (!reply)
        return;
    reply->disconnect(this);
    reply->abort();
    reply->deleteLater();
}

void HttpPost::noteProgress() {
    lastProgress = Clock::uptime();
}

void HttpPost::watchForSilence() {
    MainQueue::after(lastProgress + timeout - Clock::uptime(), this, [this] {
        if (ended)
            return;
        if (Clock::uptime() - lastProgress >= timeout)
            end(QStringLiteral("The request timed out."));
        else
            watchForSilence();
    });
}

bool HttpPost::readAll() {
    noteProgress();
    bytes += reply->readAll();
    return bytes.size() <= mostBytes;
}

void HttpPost::take() {
    if (!readAll())
        end(tooLarge());
}

void HttpPost::judgeRedirect(const QUrl& target) {
    noteProgress();
    if (isSameOrigin(url, target)) {
        Q_EMIT reply->redirectAllowed();
        return;
    }
    code = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    end({});
}

void HttpPost::takeEnd() {
    if (reply->url().scheme().startsWith(QLatin1String("http")))
        code = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (!isAnswer(reply->error(), code))
        end(reply->errorString());
    else
        end(readAll() ? QString() : tooLarge());
}

void HttpPost::end(const QString& failure) {
    ended = true;
    reason = failure;
    QNetworkReply* over = std::exchange(reply, nullptr);
    over->disconnect(this);
    over->abort();
    over->deleteLater();
    Q_EMIT finished(); // may destroy this
}

} // namespace Quillstacks
