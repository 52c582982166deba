#include "platform/http/HttpExchange.h"

#include "foundation/Clock.h"
#include "foundation/MainQueue.h"

#include <QHostAddress>
#include <QNetworkProxy>
#include <QSslSocket>

namespace Quillstacks {
namespace {

constexpr qint64 readBuffer = 256 * 1024;
constexpr int temporaryRedirect = 307;
constexpr int permanentRedirect = 308;
constexpr int httpPort = 80;
constexpr int httpsPort = 443;

bool isSecure(const QUrl& url) {
    return url.scheme() == QLatin1String("https");
}

/// This computer by any of its names; a server that listens on all its addresses is often given as 0.0.0.0.
bool isLoopback(const QString& host) {
    const QString localhost = QStringLiteral("localhost");
    const QHostAddress address(host);
    return host.compare(localhost, Qt::CaseInsensitive) == 0 ||
           host.endsWith(QLatin1Char('.') + localhost, Qt::CaseInsensitive) || address.isLoopback() ||
           address == QHostAddress(QHostAddress::AnyIPv4) || address == QHostAddress(QHostAddress::AnyIPv6);
}

quint16 portOf(const QUrl& url) {
    return static_cast<quint16>(url.port(isSecure(url) ? httpsPort : httpPort));
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

bool HttpRequest::isHttp(const QUrl& url) {
    return url.scheme() == QLatin1String("http") || isSecure(url);
}

HttpExchange::HttpExchange(HttpRequest asked, HttpBounds patience, QObject* parent)
    : QObject(parent), request(std::move(asked)), bounds(patience), lastProgress(Clock::uptime()) {
    // Whoever makes it can still listen: a connection may be refused while it is asked for.
    MainQueue::async(this, [this] { start(); });
    if (bounds.whole)
        MainQueue::after(*bounds.whole, this,
                         [this] { conclude(Outcome::timedOut, QStringLiteral("The request timed out.")); });
    if (bounds.silence)
        watchForSilence();
}

HttpExchange::~HttpExchange() {
    dropSocket();
}

void HttpExchange::start() {
    if (!HttpRequest::isHttp(request.url) || request.url.host().isEmpty())
        conclude(Outcome::broken, QStringLiteral("The URL names no server."));
    else if (end == Outcome::pending)
        connectToServer();
}

void HttpExchange::connectToServer() {
    answer = {};
    const QUrl& url = request.url;
    QNetworkProxy proxy = proxyFor(url);
    const bool isHttpProxy =
        proxy.type() == QNetworkProxy::HttpProxy || proxy.type() == QNetworkProxy::HttpCachingProxy;
    tellsProxy = isHttpProxy && !isSecure(url);
    if (isHttpProxy)
        proxy.setType(QNetworkProxy::HttpProxy); // asks for a tunnel
    auto* secure = isSecure(url) ? new QSslSocket(this) : nullptr;
    socket = secure ? secure : new QTcpSocket(this);
    connectSocket();
    socket->setProxy(tellsProxy ? QNetworkProxy(QNetworkProxy::NoProxy) : proxy);
    if (secure)
        secure->connectToHostEncrypted(url.host(), portOf(url));
    else if (tellsProxy)
        socket->connectToHost(proxy.hostName(), proxy.port());
    else
        socket->connectToHost(url.host(), portOf(url));
}

void HttpExchange::connectSocket() {
    socket->setReadBufferSize(readBuffer);
    if (auto* secure = qobject_cast<QSslSocket*>(socket))
        connect(secure, &QSslSocket::encrypted, this, &HttpExchange::send);
    else
        connect(socket, &QAbstractSocket::connected, this, &HttpExchange::send);
    connect(socket, &QIODevice::bytesWritten, this, &HttpExchange::noteProgress);
    connect(socket, &QIODevice::readyRead, this, &HttpExchange::take);
    connect(socket, &QAbstractSocket::errorOccurred, this, &HttpExchange::takeError);
}

QByteArray HttpExchange::message() const {
    const QByteArray resource = target(request.url);
    QByteArray head = request.method + ' ' + (tellsProxy ? "http://" + authority(request.url) + resource : resource) +
                      " HTTP/1.1\r\nHost: " + authority(request.url) + "\r\n";
    for (const auto& [name, value] : request.headers)
        head += name + ": " + value + "\r\n";
    if (!request.body.isEmpty())
        head += "Content-Length: " + QByteArray::number(request.body.size()) + "\r\n";
    return head + "Connection: close\r\n\r\n" + request.body;
}

void HttpExchange::send() {
    noteProgress();
    socket->write(message());
}

void HttpExchange::noteProgress() {
    lastProgress = Clock::uptime();
}

void HttpExchange::watchForSilence() {
    MainQueue::after(lastProgress + *bounds.silence - Clock::uptime(), this, [this] {
        if (end != Outcome::pending)
            return;
        if (Clock::uptime() - lastProgress >= *bounds.silence)
            conclude(Outcome::timedOut, QStringLiteral("The request timed out."));
        else
            watchForSilence();
    });
}

void HttpExchange::take() {
    noteProgress();
    judge(answer.take(socket->readAll()));
}

void HttpExchange::takeError() {
    if (socket->error() != QAbstractSocket::RemoteHostClosedError)
        return conclude(Outcome::broken, socket->errorString());
    answer.take(socket->readAll());
    judge(answer.takeEnd());
}

void HttpExchange::judge(HttpAnswerReader::State state) {
    switch (state) {
    case HttpAnswerReader::State::reading:
        return;
    case HttpAnswerReader::State::broken:
        return conclude(Outcome::broken, QStringLiteral("The server's answer is cut short, or no HTTP."));
    case HttpAnswerReader::State::tooLarge:
        return conclude(Outcome::tooLarge, QStringLiteral("The server's answer is too large."));
    case HttpAnswerReader::State::complete:
        break;
    }
    if (!followRedirect())
        conclude(Outcome::answered);
}

bool HttpExchange::followRedirect() {
    const int status = answer.status();
    const bool keepsMethod = status == temporaryRedirect || status == permanentRedirect;
    const bool isRedirect = keepsMethod || (status >= 301 && status <= 303);
    const QByteArray location = answer.header("location");
    if (bounds.redirects == 0 || !isRedirect || location.isEmpty())
        return false;
    const QUrl next = request.url.resolved(QUrl(QString::fromUtf8(location)));
    if (!isSameOrigin(request.url, next))
        return false;
    if (++redirects > bounds.redirects) {
        conclude(Outcome::broken, QStringLiteral("The server redirects without end."));
        return true;
    }
    request.url = next;
    if (!keepsMethod) {
        request.method = QByteArrayLiteral("GET");
        request.body.clear();
    }
    dropSocket();
    connectToServer();
    return true;
}

void HttpExchange::dropSocket() {
    if (!socket)
        return;
    QAbstractSocket* over = std::exchange(socket, nullptr);
    over->disconnect(this);
    over->abort();
    over->setParent(nullptr);
    over->deleteLater(); // it may be telling of something just now
}

void HttpExchange::conclude(Outcome outcome, const QString& failure) {
    if (end != Outcome::pending)
        return;
    end = outcome;
    reason = failure;
    dropSocket();
    Q_EMIT ended();
}

} // namespace Quillstacks
