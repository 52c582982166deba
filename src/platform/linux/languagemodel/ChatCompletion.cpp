#include "languagemodel/ChatCompletion.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Quillstacks {

namespace {

constexpr int greedyCandidates = 1;
constexpr int longestRefusal = 200;

QJsonObject message(const QString& role, const QString& content) {
    return {{QStringLiteral("role"), role}, {QStringLiteral("content"), content}};
}

} // namespace

QByteArray ChatCompletion::request(const QString& instructions, const QString& prompt,
                                   const GenerationOptions& options) {
    QJsonObject body{
        {QStringLiteral("messages"),
         QJsonArray{message(QStringLiteral("system"), instructions), message(QStringLiteral("user"), prompt)}},
        {QStringLiteral("stream"), false},
    };
    if (options.sampling == SamplingMode::greedy)
        body.insert(QStringLiteral("top_k"), greedyCandidates);
    if (options.temperature)
        body.insert(QStringLiteral("temperature"), *options.temperature);
    if (options.maximumResponseTokens)
        body.insert(QStringLiteral("max_tokens"), *options.maximumResponseTokens);
    return QJsonDocument(body).toJson(QJsonDocument::Compact);
}

std::optional<QString> ChatCompletion::content(const QByteArray& answer) {
    const QJsonValue content = QJsonDocument::fromJson(answer)
                                   .object()
                                   .value(QLatin1String("choices"))
                                   .toArray()
                                   .at(0)
                                   .toObject()
                                   .value(QLatin1String("message"))
                                   .toObject()
                                   .value(QLatin1String("content"));
    return content.isString() ? std::optional(content.toString()) : std::nullopt;
}

QString ChatCompletion::refusal(const QByteArray& answer) {
    const QString said = QJsonDocument::fromJson(answer)
                             .object()
                             .value(QLatin1String("error"))
                             .toObject()
                             .value(QLatin1String("message"))
                             .toString()
                             .simplified();
    return said.size() <= longestRefusal ? said : said.left(longestRefusal) + QChar(u'…');
}

} // namespace Quillstacks
