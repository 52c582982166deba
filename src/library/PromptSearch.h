#pragma once

#include "foundation/Uuid.h"

#include <QList>
#include <QString>

#include <optional>

namespace Quillstacks {

class Prompt;

/// Stands for the entry "All Prompts" where a tag's id is asked for; no tag has it.
inline constexpr Uuid allPromptsId{};

/// The prompts that have a tag of this id, in their own order; no id and allPromptsId keep all.
[[nodiscard]] QList<Prompt*> promptsWithTag(const QList<Prompt*>& prompts, const std::optional<Uuid>& tagId);

/// The prompts that hold the text, in their own order: trimmed and lower-cased, it must stand in the lower-cased title,
/// body or name of a tag. A blank text keeps all. One pass over the texts; nothing is indexed or kept.
[[nodiscard]] QList<Prompt*> promptsMatching(const QList<Prompt*>& prompts, const QString& searchText);

/// Pinned prompts first, the latest pinnedAt leading (none counts as the distant past), then the others by the latest
/// updatedAt. Stable. Linear where both groups are in order already, as a live query's unpinned ones are.
void sortPinnedFirst(QList<Prompt*>& prompts);

} // namespace Quillstacks
