#pragma once

#include <QString>
#include <QStringList>

namespace Quillstacks {

/// What came of an import.
struct ImportResult {
    bool success = false;            ///< nothing failed
    qsizetype importedTagsCount = 0; ///< newly created, as the next two
    qsizetype importedPromptsCount = 0;
    qsizetype importedVersionsCount = 0;
    QStringList errors; ///< a line for each failed item, in order of occurrence

    /// An import of which nothing came.
    [[nodiscard]] static ImportResult failed(const QString& description);
    /// As the alert tells it.
    [[nodiscard]] QString message() const;
    bool operator==(const ImportResult&) const = default;
};

} // namespace Quillstacks
