#include "Greys.h"

#include "foundation/Text.h"

namespace Quillstacks {

Quality Quality::of(qint64 rating, qint64 maxRating) {
    const double ratio = static_cast<double>(rating) / static_cast<double>(maxRating);
    if (ratio >= 0.7)
        return {QStringLiteral("Good"), white(0.4F)};
    if (ratio >= 0.4)
        return {QStringLiteral("Okay"), white(0.5F)};
    return {QStringLiteral("Needs Work"), white(0.6F)};
}

QColor priorityColor(const QString& priority) {
    const QString lower = Text::lowercased(priority);
    if (lower == QLatin1String("high"))
        return white(0.4F);
    if (lower == QLatin1String("medium"))
        return white(0.5F);
    return white(0.6F);
}

} // namespace Quillstacks
