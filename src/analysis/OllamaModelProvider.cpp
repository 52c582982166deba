#include "analysis/OllamaModelProvider.h"

#include "analysis/answer/OllamaResponse.h"
#include "analysis/OllamaError.h"
#include "foundation/Log.h"
#include "platform/http/HttpExchange.h"

#include <QCoroSignal>

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Quillstacks {
namespace {

constexpr std::chrono::seconds timeout{120}; // without a byte
constexpr int mostRedirects = 20;
constexpr int successful = 200;

QJsonObject message(const QString& role, const QString& content) {
    return {{QStringLiteral("role"), role}, {QStringLiteral("content"), content}};
}

QByteArray requestBody(const QString& model, const QString& prompt, const QString& systemPrompt) {
    const QJsonArray messages{message(QStringLiteral("system"), systemPrompt), message(QStringLiteral("user"), prompt)};
    const QJsonObject body{
        {QStringLiteral("model"), model}, {QStringLiteral("messages"), messages}, {QStringLiteral("stream"), false}};
    return QJsonDocument(body).toJson(QJsonDocument::Compact);
}

OllamaError connectionFailed(const QString& reason) {
    Log::data.error(QStringLiteral("Ollama network error: ") + reason);
    return OllamaError::connectionFailed();
}

/// What can be read without a server is an answer, though not of the kind that is wanted.
OllamaError errorWithoutServer(const QUrl& url) {
    const bool isReadable =
        url.scheme() == QLatin1String("data") || (url.isLocalFile() && QFileInfo(url.toLocalFile()).isReadable());
    return isReadable ? OllamaError::invalidResponse() : connectionFailed(QStringLiteral("The URL can't be reached."));
}

} // namespace

OllamaModelProvider::OllamaModelProvider(QString base, QString name)
    : baseURL(std::move(base)), model(std::move(name)) {}

QCoro::Task<QString> OllamaModelProvider::generate(QString prompt, QString systemPrompt) {
    const QUrl url(baseURL + QStringLiteral("/api/chat"), QUrl::StrictMode);
    if (!url.isValid())
        throw OllamaError::invalidURL();
    HttpRequest request;
    request.method = QByteArrayLiteral("POST");
    request.url = url;
    request.headers = {{QByteArrayLiteral("Content-Type"), QByteArrayLiteral("application/json")}};
    request.body = requestBody(model, prompt, systemPrompt);
    Log::data.info(QStringLiteral("Sending request to Ollama at %1 with model %2").arg(baseURL, model));
    if (!HttpRequest::isHttp(url))
        throw errorWithoutServer(url);
    HttpBounds bounds;
    bounds.silence = timeout;
    bounds.redirects = mostRedirects;
    HttpExchange exchange(std::move(request), bounds);
    co_await qCoro(&exchange, &HttpExchange::ended);
    if (exchange.outcome() != HttpExchange::Outcome::answered)
        throw connectionFailed(exchange.failure());
    if (exchange.status() != successful) {
        Log::data.error(QStringLiteral("Ollama returned status code: %1").arg(exchange.status()));
        throw OllamaError::httpError(exchange.status());
    }
    co_return OllamaResponse::fromJson(exchange.body()).message.content;
}

} // namespace Quillstacks
