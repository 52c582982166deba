#pragma once

#include "library/model/ModelContext.h"

#include <QList>
#include <QObject>

namespace Quillstacks {

/// Tells that the records of a live query, their order or one of their fields have changed (for prompts also their
/// tags' fields). Once for all changes of a turn of the loop.
class LiveQueryBase : public QObject {
    Q_OBJECT
Q_SIGNALS:
    void changed();
};

/// All prompts, the latest updatedAt first; equal dates in the order of insertion. Current at every call.
class PromptQuery final : public LiveQueryBase {
    Q_OBJECT
public:
    explicit PromptQuery(ModelContext& context);
    [[nodiscard]] const QList<Prompt*>& records() const;
};

/// All tags by name, ascending, in the localized standard comparison; equal names in the order of insertion.
class TagQuery final : public LiveQueryBase {
    Q_OBJECT
public:
    explicit TagQuery(ModelContext& context);
    [[nodiscard]] const QList<Tag*>& records() const;
};

} // namespace Quillstacks
