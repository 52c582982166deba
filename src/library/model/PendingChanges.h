#pragma once

#include "library/model/Prompt.h"
#include "library/model/Tag.h"

#include <QHash>

#include <utility>
#include <vector>

namespace Quillstacks {

/// What the next save has to write. Emptied only when the transaction has been committed.
struct PendingChanges {
    using Link = std::pair<const Prompt*, const Tag*>;

    std::vector<Record*> dirty;         ///< in the order of their first change; deleted ones are passed over
    std::vector<qint64> removedPrompts; ///< rows, as are the next two
    std::vector<qint64> removedTags;
    std::vector<qint64> removedVersions;
    qint64 versionsRemovedUpTo = 0; ///< all versions with rows up to this one go
    /// Where a prompt stands in a tag's list, for links that are new or were moved; grows from link to link.
    QHash<Link, qint64> linkOrder;

    [[nodiscard]] bool removesRows() const {
        return !removedPrompts.empty() || !removedTags.empty() || !removedVersions.empty() || versionsRemovedUpTo > 0;
    }
};

} // namespace Quillstacks
