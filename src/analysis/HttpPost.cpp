#include "HttpPost.h"

#include "foundation/Clock.h"
#include "foundation/MainQueue.h"

#include <QFileInfo>
#include <QHostAddress>
#include <QNetworkProxy>

#include <utility>

namespace Quillstacks {
namespace {

constexpr int mostRedirects = 20;
constexpr qint64 readBuffer = 256 * 1024;
constexpr int temporaryRedirect = 307;
constexpr int permanentRedirect = 308;

bool isLoopback(const QString& host) {
    const QString localhost = QStringLiteral("localhost");
    return host.compare(localhost, Qt::CaseInsensitive) == 0 ||
           host.endsWith(QLatin1Char('.') + localhost, Qt::CaseInsensitive) || QHostAddress(host).isLoopback();
}

bool isSecure(const QUrl& url) {
    return url.scheme() == QLatin1String("https");
}

quint16 portOf(const QUrl& url) {
    return static_cast<quint16>(url.port(isSecure(url) ? 443 : 80));
}

bool isSameOrigin(const QUrl& a, const QUrl& b) {
    return a.scheme() == b.scheme() && a.host() == b.host() && portOf(a) == portOf(b);
}

/// The desktop's proxy, but for this computer: none of them can reach it.
QNetworkProxy proxyFor(const QUrl& url) {
    if (isLoopback(url.host()))
        return {QNetworkProxy::NoProxy};
    return QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(url)).value(0, {QNetworkProxy::NoProxy});
}

QByteArray authority(const QUrl& url) {
    const QString host = url.host(QUrl::FullyEncoded);
    const QString bracketed = host.contains(QLatin1Char(':')) ? QLatin1Char('[') + host + QLatin1Char(']') : host;
    return (url.port() < 0 ? bracketed : bracketed + QLatin1Char(':') + QString::number(url.port())).toLatin1();
}

/// Path and query as they stand: two slashes stay two.
QByteArray target(const QUrl& url) {
    const QString path = url.path(QUrl::FullyEncoded);
    const QString query = url.hasQuery() ? QLatin1Char('?') + url.query(QUrl::FullyEncoded) : QString();
    return ((path.isEmpty() ? QStringLiteral("/") : path) + query).toLatin1();
}

} // namespace

HttpPost::HttpPost(const QUrl& address, const QByteArray& body)
    : url(address), json(body), lastProgress(Clock::uptime()) {
    if (url.scheme() != QLatin1String("http") && !isSecure(url)) {
        readWithoutHttp();
    } else if (url.host().isEmpty()) {
        end(QStringLiteral("The URL names no host."));
    } else {
        connectToServer();
        watchForSilence();
    }
}

HttpPost::~HttpPost() {
    dropSocket();
}

// What can be read without a server is an answer, though not of the kind that is wanted.
void HttpPost::readWithoutHttp() {
    const bool isReadable =
        url.scheme() == QLatin1String("data") || (url.isLocalFile() && QFileInfo(url.toLocalFile()).isReadable());
    end(isReadable ? QString() : QStringLiteral("The URL can't be reached."));
}

void HttpPost::connectToServer() {
    answer = {};
    socket = new QSslSocket(this);
    socket->setReadBufferSize(readBuffer);
    connect(socket, isSecure(url) ? &QSslSocket::encrypted : &QAbstractSocket::connected, this, &HttpPost::send);
    connect(socket, &QIODevice::bytesWritten, this, &HttpPost::noteProgress);
    connect(socket, &QIODevice::readyRead, this, &HttpPost::take);
    connect(socket, &QAbstractSocket::errorOccurred, this, &HttpPost::takeError);
    QNetworkProxy proxy = proxyFor(url);
    const bool isHttpProxy =
        proxy.type() == QNetworkProxy::HttpProxy || proxy.type() == QNetworkProxy::HttpCachingProxy;
    tellsProxy = isHttpProxy && !isSecure(url);
    if (tellsProxy) {
        socket->setProxy(QNetworkProxy::NoProxy);
        socket->connectToHost(proxy.hostName(), proxy.port());
        return;
    }
    if (isHttpProxy)
        proxy.setType(QNetworkProxy::HttpProxy); // asks for a tunnel
    socket->setProxy(proxy);
    if (isSecure(url))
        socket->connectToHostEncrypted(url.host(), portOf(url));
    else
        socket->connectToHost(url.host(), portOf(url));
}

QByteArray HttpPost::request() const {
    const QByteArray resource = target(url);
    return method + ' ' + (tellsProxy ? "http://" + authority(url) + resource : resource) +
           " HTTP/1.1\r\nHost: " + authority(url) +
           "\r\nContent-Type: application/json\r\nContent-Length: " + QByteArray::number(json.size()) +
           "\r\nConnection: close\r\n\r\n" + json;
}

void HttpPost::send() {
    noteProgress();
    socket->write(request());
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

void HttpPost::take() {
    noteProgress();
    judge(answer.take(socket->readAll()));
}

void HttpPost::takeError(QAbstractSocket::SocketError error) {
    if (error != QAbstractSocket::RemoteHostClosedError)
        return end(socket->errorString());
    answer.take(socket->readAll());
    judge(answer.takeEnd());
}

void HttpPost::judge(HttpAnswerReader::State state) {
    switch (state) {
    case HttpAnswerReader::State::reading:
        return;
    case HttpAnswerReader::State::broken:
        return end(QStringLiteral("The server's answer is cut short, or no HTTP."));
    case HttpAnswerReader::State::tooLarge:
        return end(QStringLiteral("The server's answer is too large."));
    case HttpAnswerReader::State::complete:
        break;
    }
    if (followRedirect())
        return;
    code = answer.status();
    end(redirects > mostRedirects ? QStringLiteral("The server redirects without end.") : QString());
}

bool HttpPost::followRedirect() {
    const int status = answer.status();
    const bool keepsMethod = status == temporaryRedirect || status == permanentRedirect;
    const bool isRedirect = keepsMethod || (status >= 301 && status <= 303);
    const QByteArray location = answer.header("location");
    if (!isRedirect || location.isEmpty())
        return false;
    const QUrl next = url.resolved(QUrl(QString::fromUtf8(location)));
    if (!isSameOrigin(url, next) || ++redirects > mostRedirects)
        return false;
    url = next;
    if (!keepsMethod) {
        method = QByteArrayLiteral("GET");
        json.clear();
    }
    dropSocket();
    connectToServer();
    return true;
}

void HttpPost::dropSocket() {
    if (!socket)
        return;
    QSslSocket* over = std::exchange(socket, nullptr);
    over->disconnect(this);
    over->abort();
    over->setParent(nullptr);
    over->deleteLater(); // it may be telling of something just now
}

void HttpPost::end(const QString& failure) {
    ended = true;
    reason = failure;
    dropSocket();
    Q_EMIT finished();
}

} // namespace Quillstacks
