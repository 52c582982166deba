#pragma once

#include "backup/format/ExportedData.h"
#include "backup/ImportResult.h"

#include <QHash>
#include <QList>

#include <functional>

namespace Quillstacks {

class ModelContext;
class Prompt;
class Tag;

/// How a merge asks the library what is there already. Any of them may throw.
struct MergeLookups {
    std::function<QList<Tag*>(const QString& name)> tagsWithName;
    std::function<QList<Prompt*>(const QString& title)> promptsWithTitle;
    std::function<Tag*(const Uuid& id)> tagWithId;

    /// Those of the context, which sees what was inserted and is not saved.
    [[nodiscard]] static MergeLookups of(const ModelContext& context);
};

/// Adds to the library what it lacks of a backup: a tag that has no namesake, a prompt whose title is not there, with
/// its versions. What exists stays as it is. Nothing is saved.
class BackupMerge final {
public:
    BackupMerge(ModelContext& context, ExportedData data);
    BackupMerge(ModelContext& context, ExportedData data, MergeLookups lookups);

    /// Merges the next tag or prompt; false when there is none left.
    [[nodiscard]] bool step();
    /// How much has been merged, from 0 to 1.
    [[nodiscard]] double fraction() const;
    [[nodiscard]] const ImportResult& result() const { return counts; }
    /// In the order of insertion.
    [[nodiscard]] const QList<Prompt*>& newPrompts() const { return inserted; }

private:
    void merge(const ExportedTag& tag);
    void merge(const ExportedPrompt& prompt);
    void insert(const ExportedPrompt& prompt);
    [[nodiscard]] QList<Tag*> tagsOf(const ExportedPrompt& prompt) const;

    ModelContext& context;
    const ExportedData data;
    const MergeLookups lookups;
    qsizetype nextTag = 0;
    qsizetype nextPrompt = 0;
    QHash<Uuid, Uuid> newTagIds; ///< by the ids of the library that was exported
    QList<Prompt*> inserted;
    ImportResult counts;
};

} // namespace Quillstacks
