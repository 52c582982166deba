#include "backup/format/ExportedData.h"

#include "foundation/Clock.h"
#include "library/model/Prompt.h"
#include "library/model/PromptVersion.h"
#include "library/model/Tag.h"

namespace Quillstacks {

ExportedTag::ExportedTag(const Tag& tag)
    : id(tag.id()), name(tag.name()), colorHex(tag.colorHex()), createdAt(tag.createdAt()), updatedAt(tag.updatedAt()) {
}

ExportedPromptVersion::ExportedPromptVersion(const PromptVersion& version)
    : id(version.id()), promptId(version.promptId()), title(version.title()), body(version.body()),
      tagNames(version.tagNames()), tagColors(version.tagColors()), createdAt(version.createdAt()) {}

ExportedPrompt::ExportedPrompt(const Prompt& prompt)
    : id(prompt.id()), title(prompt.title()), body(prompt.body()), createdAt(prompt.createdAt()),
      updatedAt(prompt.updatedAt()) {
    tagIds.reserve(prompt.tags().size());
    for (const Tag* tag : prompt.tags())
        tagIds.append(tag->id());
    versions.reserve(prompt.versions().size());
    for (const PromptVersion* version : prompt.versions())
        versions.append(ExportedPromptVersion(*version));
}

ExportedData::ExportedData(const QList<Tag*>& allTags, const QList<Prompt*>& allPrompts)
    : version(QStringLiteral("1.0")), exportedAt(Clock::now()) {
    tags.reserve(allTags.size());
    for (const Tag* tag : allTags)
        tags.append(ExportedTag(*tag));
    prompts.reserve(allPrompts.size());
    for (const Prompt* prompt : allPrompts)
        prompts.append(ExportedPrompt(*prompt));
}

} // namespace Quillstacks
