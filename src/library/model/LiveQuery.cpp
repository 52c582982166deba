#include "library/model/LiveQuery.h"

#include "SortedRecords.h"

#include <algorithm>

namespace Quillstacks {

namespace {

template <typename Records>
bool concernsPrompts(const Records& records) {
    return std::any_of(records.cbegin(), records.cend(),
                       [](const Record* record) { return RecordAccess::kind(*record) == RecordAccess::Kind::Prompt; });
}

template <typename Records>
bool concernsTags(const Records& records) {
    return std::any_of(records.cbegin(), records.cend(),
                       [](const Record* record) { return RecordAccess::kind(*record) == RecordAccess::Kind::Tag; });
}

} // namespace

PromptQuery::PromptQuery(ModelContext& observed)
    : context(&observed), sorted(std::make_unique<SortedRecords<Prompt>>(observed.prompts())) {
    observed.promptQueries.push_back(this);
    connect(&observed, &ModelContext::changed, this, &PromptQuery::contextChanged);
}

PromptQuery::~PromptQuery() {
    if (ModelContext* alive = context.data())
        std::erase(alive->promptQueries, this);
}

const QList<Prompt*>& PromptQuery::records() const {
    return sorted->current();
}

void PromptQuery::contextChanged(const ChangeSet& changes) {
    // A row of a prompt shows its tags, so their names and colours count as fields of the prompt.
    if (concernsPrompts(changes.inserted) || concernsPrompts(changes.updated) || concernsPrompts(changes.deleted) ||
        concernsTags(changes.updated))
        Q_EMIT changed();
}

TagQuery::TagQuery(ModelContext& observed)
    : context(&observed), sorted(std::make_unique<SortedRecords<Tag>>(observed.tags())) {
    observed.tagQueries.push_back(this);
    connect(&observed, &ModelContext::changed, this, &TagQuery::contextChanged);
}

TagQuery::~TagQuery() {
    if (ModelContext* alive = context.data())
        std::erase(alive->tagQueries, this);
}

const QList<Tag*>& TagQuery::records() const {
    return sorted->current();
}

void TagQuery::contextChanged(const ChangeSet& changes) {
    if (concernsTags(changes.inserted) || concernsTags(changes.updated) || concernsTags(changes.deleted))
        Q_EMIT changed();
}

} // namespace Quillstacks
