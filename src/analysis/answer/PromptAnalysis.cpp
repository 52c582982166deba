#include "analysis/answer/PromptAnalysis.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace Quillstacks {
namespace {

/// A member of an object. The toolkit's own objects would sort the keys.
QByteArray member(const char* key, const QByteArray& value) {
    return '"' + QByteArray(key) + "\":" + value;
}

QByteArray member(const char* key, const QString& value) {
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return member(key, list.sliced(1, list.size() - 2));
}

QByteArray object(const QByteArrayList& members) {
    return '{' + members.join(',') + '}';
}

QByteArray encoded(const PromptAnalysis::Strength& strength) {
    return object({member("name", strength.name), member("description", strength.description)});
}

QByteArray encoded(const PromptAnalysis::Recommendation& recommendation) {
    return object({member("name", recommendation.name), member("description", recommendation.description),
                   member("priority", recommendation.priority)});
}

template <typename T>
QByteArray encoded(const QList<T>& values) {
    QByteArrayList parts;
    for (const T& value : values)
        parts += encoded(value);
    return '[' + parts.join(',') + ']';
}

} // namespace

QByteArray PromptAnalysis::toJson() const {
    return object({member("rating", QByteArray::number(rating)), member("maxRating", QByteArray::number(maxRating)),
                   member("summary", summary), member("strengths", encoded(strengths)),
                   member("recommendations", encoded(recommendations))});
}

} // namespace Quillstacks
