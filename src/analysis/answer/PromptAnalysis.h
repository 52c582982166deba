#pragma once

#include <QList>
#include <QString>

namespace Quillstacks {

/// What a model thinks of a prompt. The values are the model's own: nothing is clamped, sorted or counted.
struct PromptAnalysis {
    struct Strength {
        QString name;
        QString description;
        bool operator==(const Strength&) const = default;
    };
    struct Recommendation {
        QString name;
        QString description;
        QString priority; ///< any text; "low", "medium" and "high" mean something to the panel
        bool operator==(const Recommendation&) const = default;
    };

    qint64 rating = 0;
    qint64 maxRating = 0;
    QString summary;
    QList<Strength> strengths;
    QList<Recommendation> recommendations;

    /// Reads one JSON object in UTF-8. All keys are required, others are ignored; a whole number is an integer however
    /// it is written. Throws JsonError.
    [[nodiscard]] static PromptAnalysis fromJson(const QByteArray& json);
    /// The same keys in the order of the fields, compact.
    [[nodiscard]] QByteArray toJson() const;

    bool operator==(const PromptAnalysis&) const = default;
};

} // namespace Quillstacks
