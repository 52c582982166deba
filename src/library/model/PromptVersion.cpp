#include "library/model/PromptVersion.h"

#include "library/model/Tag.h"

#include <utility>

namespace Quillstacks {

PromptVersion::PromptVersion() : Record(Kind::PromptVersion) {}

PromptVersion::PromptVersion(const Uuid& promptId, QString title, QString body, const QList<Tag*>& tags)
    : Record(Kind::PromptVersion), prompt(promptId), titleText(std::move(title)), bodyText(std::move(body)) {
    for (const Tag* tag : tags) {
        names.append(tag->name());
        colors.append(tag->colorHex());
    }
    beginLife();
}

PromptVersion::~PromptVersion() = default;

void PromptVersion::restoreIdentity(const Uuid& id, QStringList tagNames, QStringList tagColors, Date createdAt) {
    Q_ASSERT(!modelContext());
    identifier = id;
    names = std::move(tagNames);
    colors = std::move(tagColors);
    created = createdAt;
}

} // namespace Quillstacks
