#include "backup/ImportResult.h"

namespace Quillstacks {

ImportResult ImportResult::failed(const QString& description) {
    ImportResult result;
    result.errors = {QStringLiteral("Failed to import data: ") + description};
    return result;
}

QString ImportResult::message() const {
    const QString opening =
        success ? QStringLiteral("Import completed successfully!") : QStringLiteral("Import completed with issues:");
    QString text = opening + QStringLiteral("\n\nImported:\n• ") + QString::number(importedTagsCount) +
                   QStringLiteral(" tags\n• ") + QString::number(importedPromptsCount) +
                   QStringLiteral(" prompts\n• ") + QString::number(importedVersionsCount) +
                   QStringLiteral(" versions");
    if (!success)
        text += QStringLiteral("\n\nErrors:\n") + errors.join(QLatin1Char('\n'));
    return text;
}

} // namespace Quillstacks
