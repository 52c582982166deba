#pragma once

#include <QList>
#include <QString>

namespace Quillstacks {

class Prompt;

/// The prompts that hold the text, in their own order: trimmed and lower-cased, it must stand in the lower-cased title,
/// body or name of a tag. A blank text keeps all. One pass over the texts; nothing is indexed or kept.
[[nodiscard]] QList<Prompt*> promptsMatching(const QList<Prompt*>& prompts, const QString& searchText);

/// Pinned prompts first, the latest pinnedAt leading (none counts as the distant past), then the others by the latest
/// updatedAt. Stable. Linear where both groups are in order already, as a live query's unpinned ones are.
void sortPinnedFirst(QList<Prompt*>& prompts);

} // namespace Quillstacks
