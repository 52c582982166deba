#include "backup/BackupMerge.h"

#include "foundation/LocalizedError.h"
#include "library/model/ModelContext.h"

namespace Quillstacks {

MergeLookups MergeLookups::of(const ModelContext& context) {
    return {[&context](const QString& name) { return context.tagsWithName(name); },
            [&context](const QString& title) { return context.promptsWithTitle(title); },
            [&context](const Uuid& id) { return context.tagWithId(id); }};
}

BackupMerge::BackupMerge(ModelContext& into, ExportedData merged)
    : BackupMerge(into, std::move(merged), MergeLookups::of(into)) {}

BackupMerge::BackupMerge(ModelContext& into, ExportedData merged, MergeLookups with)
    : context(into), data(std::move(merged)), lookups(std::move(with)) {
    counts.success = true;
}

bool BackupMerge::step() {
    if (nextTag < data.tags.size())
        merge(data.tags.at(nextTag++));
    else if (nextPrompt < data.prompts.size())
        merge(data.prompts.at(nextPrompt++));
    counts.success = counts.errors.isEmpty();
    return nextTag < data.tags.size() || nextPrompt < data.prompts.size();
}

double BackupMerge::fraction() const {
    const auto all = data.tags.size() + data.prompts.size();
    return all == 0 ? 1 : static_cast<double>(nextTag + nextPrompt) / static_cast<double>(all);
}

void BackupMerge::merge(const ExportedTag& tag) {
    try {
        if (const QList<Tag*> namesakes = lookups.tagsWithName(tag.name); !namesakes.isEmpty()) {
            newTagIds.insert(tag.id, namesakes.first()->id());
            return;
        }
    } catch (const std::exception& error) {
        counts.errors +=
            QStringLiteral("Failed to import tag '") + tag.name + QStringLiteral("': ") + localizedDescription(error);
        return;
    }
    const Tag* created = context.insert(std::make_unique<Tag>(tag.name, tag.colorHex));
    newTagIds.insert(tag.id, created->id());
    ++counts.importedTagsCount;
}

void BackupMerge::merge(const ExportedPrompt& prompt) {
    try {
        if (lookups.promptsWithTitle(prompt.title).isEmpty())
            insert(prompt);
    } catch (const std::exception& error) {
        counts.errors += QStringLiteral("Failed to import prompt '") + prompt.title + QStringLiteral("': ") +
                         localizedDescription(error);
    }
}

/// Nothing of the prompt is in the library when one of its tags can't be looked up.
void BackupMerge::insert(const ExportedPrompt& prompt) {
    auto created = std::make_unique<Prompt>(prompt.title, prompt.body);
    created->restoreIdentity(created->id(), prompt.createdAt, prompt.updatedAt, false, std::nullopt);
    created->setTags(tagsOf(prompt));
    for (const ExportedPromptVersion& version : prompt.versions) {
        auto snapshot = std::make_unique<PromptVersion>(created->id(), version.title, version.body, QList<Tag*>());
        snapshot->restoreIdentity(snapshot->id(), version.tagNames, version.tagColors, version.createdAt);
        created->appendVersion(std::move(snapshot));
    }
    inserted.append(context.insert(std::move(created)));
    ++counts.importedPromptsCount;
    counts.importedVersionsCount += prompt.versions.size();
}

QList<Tag*> BackupMerge::tagsOf(const ExportedPrompt& prompt) const {
    QList<Tag*> tags;
    for (const Uuid& old : prompt.tagIds) {
        const auto known = newTagIds.constFind(old);
        if (known == newTagIds.constEnd())
            continue;
        if (Tag* tag = lookups.tagWithId(*known))
            tags.append(tag);
    }
    return tags;
}

} // namespace Quillstacks
