#pragma once

#include "library/model/ModelContext.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <memory>

namespace Quillstacks {

template <typename T>
class SortedRecords;

/// Tells that the records of a live query, their order or one of their fields have changed (for prompts also their
/// tags' fields). Once for all changes of a turn of the loop.
class LiveQueryBase : public QObject {
    Q_OBJECT
Q_SIGNALS:
    void changed();
};

/// All prompts, the latest updatedAt first; equal dates in the order of insertion. Current at every call. Empty once
/// its context is gone.
class PromptQuery final : public LiveQueryBase {
    Q_OBJECT
public:
    explicit PromptQuery(ModelContext& observed);
    ~PromptQuery() override;
    [[nodiscard]] const QList<Prompt*>& records() const;

private:
    friend class ModelContext;
    void contextChanged(const ChangeSet& changes);

    QPointer<ModelContext> context;
    std::unique_ptr<SortedRecords<Prompt>> sorted;
};

/// All tags by name, ascending, in the localized standard comparison; equal names in the order of insertion. Current at
/// every call. Empty once its context is gone.
class TagQuery final : public LiveQueryBase {
    Q_OBJECT
public:
    explicit TagQuery(ModelContext& observed);
    ~TagQuery() override;
    [[nodiscard]] const QList<Tag*>& records() const;

private:
    friend class ModelContext;
    void contextChanged(const ChangeSet& changes);

    QPointer<ModelContext> context;
    std::unique_ptr<SortedRecords<Tag>> sorted;
};

} // namespace Quillstacks
