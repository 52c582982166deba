#include "analysis/OllamaModelProvider.h"

#include "analysis/answer/OllamaResponse.h"
#include "analysis/OllamaError.h"
#include "foundation/Log.h"
#include "HttpPost.h"

#include <QCoroSignal>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Quillstacks {
namespace {

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

} // namespace

OllamaModelProvider::OllamaModelProvider(QString base, QString name)
    : baseURL(std::move(base)), model(std::move(name)) {}

QCoro::Task<QString> OllamaModelProvider::generate(QString prompt, QString systemPrompt) {
    const QUrl url(baseURL + QStringLiteral("/api/chat"), QUrl::StrictMode);
    if (!url.isValid())
        throw OllamaError::invalidURL();
    const QByteArray body = requestBody(model, prompt, systemPrompt);
    Log::data.info(QStringLiteral("Sending request to Ollama at %1 with model %2").arg(baseURL, model));
    HttpPost post(url, body);
    if (!post.isFinished())
        co_await qCoro(&post, &HttpPost::finished);
    if (!post.failure().isEmpty()) {
        Log::data.error(QStringLiteral("Ollama network error: ") + post.failure());
        throw OllamaError::connectionFailed();
    }
    if (post.status() == 0)
        throw OllamaError::invalidResponse();
    if (post.status() != successful) {
        Log::data.error(QStringLiteral("Ollama returned status code: %1").arg(post.status()));
        throw OllamaError::httpError(post.status());
    }
    co_return OllamaResponse::fromJson(post.body()).message.content;
}

} // namespace Quillstacks
