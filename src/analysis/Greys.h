#pragma once

#include <QColor>
#include <QString>

namespace Quillstacks {

/// The panel tells quality and priority by greys alone, the same in both schemes.
[[nodiscard]] inline QColor white(float level) {
    return QColor::fromRgbF(level, level, level);
}

/// How good a rating is. The thresholds of 0.7 and 0.4 of the scale are inclusive; a better one is darker. A scale of 0
/// makes any rating above it good, and 0 of 0 the worst.
struct Quality {
    QString word;
    QColor color;

    [[nodiscard]] static Quality of(qint64 rating, qint64 maxRating);
};

/// The grey of a priority, whatever its case; of an unknown one, that of "low".
[[nodiscard]] QColor priorityColor(const QString& priority);

} // namespace Quillstacks
