// The JSON that models and their servers send, read key by key.
#include "analysis/answer/JsonError.h"
#include "analysis/answer/OllamaResponse.h"
#include "analysis/answer/PromptAnalysis.h"

#include <simdjson.h>

#include <cmath>

namespace Quillstacks {
namespace {

using simdjson::dom::element;

QString named(const char* key) {
    return QLatin1Char('"') + QLatin1String(key) + QLatin1Char('"');
}

[[noreturn]] void throwType(const char* key, const char* type) {
    throw JsonError(QStringLiteral("The JSON's %1 is no %2.").arg(named(key), QLatin1String(type)));
}

element parsed(simdjson::dom::parser& parser, const QByteArray& json) {
    element root;
    const auto error = parser.parse(json.constData(), static_cast<std::size_t>(json.size())).get(root);
    if (error)
        throw JsonError(QStringLiteral("The JSON can't be read: ") + QLatin1String(simdjson::error_message(error)));
    if (!root.is_object())
        throw JsonError(QStringLiteral("The JSON is no object."));
    return root;
}

/// The object must be one.
element value(const element& object, const char* key) {
    element found;
    if (object.at_key(key).get(found))
        throw JsonError(QStringLiteral("The JSON has no %1.").arg(named(key)));
    return found;
}

element object(const element& parent, const char* key) {
    const element found = value(parent, key);
    if (!found.is_object())
        throwType(key, "object");
    return found;
}

QString text(const element& parent, const char* key) {
    std::string_view characters;
    if (value(parent, key).get(characters))
        throwType(key, "text");
    return QString::fromUtf8(characters.data(), static_cast<qsizetype>(characters.size()));
}

qint64 integer(const element& parent, const char* key) {
    const element found = value(parent, key);
    std::int64_t whole = 0;
    if (!found.get(whole))
        return whole;
    double number = 0;
    constexpr double limit = 9223372036854775808.0; // 2^63: the first that does not fit
    const bool isWhole = found.is_double() && !found.get(number) && std::trunc(number) == number;
    if (!isWhole || number < -limit || number >= limit)
        throwType(key, "integer");
    return static_cast<qint64>(number);
}

simdjson::dom::array objects(const element& parent, const char* key) {
    simdjson::dom::array array;
    if (value(parent, key).get(array))
        throwType(key, "list");
    for (const element& each : array)
        if (!each.is_object())
            throw JsonError(QStringLiteral("The JSON's %1 holds what is no object.").arg(named(key)));
    return array;
}

} // namespace

PromptAnalysis PromptAnalysis::fromJson(const QByteArray& json) {
    simdjson::dom::parser parser;
    const element root = parsed(parser, json);
    PromptAnalysis analysis;
    analysis.rating = integer(root, "rating");
    analysis.maxRating = integer(root, "maxRating");
    analysis.summary = text(root, "summary");
    for (const element& each : objects(root, "strengths"))
        analysis.strengths.append({text(each, "name"), text(each, "description")});
    for (const element& each : objects(root, "recommendations"))
        analysis.recommendations.append({text(each, "name"), text(each, "description"), text(each, "priority")});
    return analysis;
}

OllamaResponse OllamaResponse::fromJson(const QByteArray& json) {
    simdjson::dom::parser parser;
    return {{text(object(parsed(parser, json), "message"), "content")}};
}

} // namespace Quillstacks
