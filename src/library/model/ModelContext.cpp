#include "library/model/ModelContext.h"

#include "library/model/LiveQuery.h"
#include "library/model/ModelSaving.h"
#include "library/model/StoreError.h"

#include "foundation/MainQueue.h"

#include "PendingChanges.h"
#include "RecordTable.h"
#include "Relations.h"
#include "SortedRecords.h"
#include "Store.h"

#include <algorithm>
#include <utility>

namespace Quillstacks {

ModelContext::ModelContext(std::unique_ptr<Store> openStore, bool maySave)
    : store(std::move(openStore)), pending(std::make_unique<PendingChanges>()), allowsSave(maySave) {
    StoredRecords stored = store->takeRecords();
    relations = std::make_unique<Relations>(*this, *pending, stored.lastLinkOrder);
    promptTable = std::make_unique<RecordTable<Prompt>>(std::move(stored.prompts), &Prompt::title);
    tagTable = std::make_unique<RecordTable<Tag>>(std::move(stored.tags), &Tag::name);
    lastVersionRow = stored.lastVersionRow;
    for (const auto& prompt : promptTable->everything())
        prompt->context = this;
    for (const auto& tag : tagTable->everything())
        tag->context = this;
}

ModelContext::~ModelContext() {
    for (PromptQuery* query : promptQueries)
        query->sorted->clear();
    for (TagQuery* query : tagQueries)
        query->sorted->clear();
}

void ModelContext::join(Record& record) {
    record.context = this;
    record.fieldsDirty = true;
    list(record);
    changes.inserted.insert(&record);
    schedule();
}

Prompt* ModelContext::insert(std::unique_ptr<Prompt> prompt) {
    Q_ASSERT(prompt && !prompt->context);
    Prompt* inserted = promptTable->add(std::move(prompt));
    join(*inserted);
    for (PromptQuery* query : promptQueries)
        query->sorted->add(inserted);
    inserted->linksDirty = true;
    setTags(*inserted, std::exchange(inserted->tagList, {}));
    for (const auto& version : inserted->ownedVersions)
        adopt(*version);
    return inserted;
}

Tag* ModelContext::insert(std::unique_ptr<Tag> tag) {
    Q_ASSERT(tag && !tag->context);
    Tag* inserted = tagTable->add(std::move(tag));
    join(*inserted);
    for (TagQuery* query : tagQueries)
        query->sorted->add(inserted);
    setPrompts(*inserted, std::exchange(inserted->promptList, {}));
    return inserted;
}

PromptVersion* ModelContext::insert(std::unique_ptr<PromptVersion> version) {
    Q_ASSERT(version && !version->context);
    PromptVersion* inserted = freeVersions.emplace_back(std::move(version)).get();
    adopt(*inserted);
    return inserted;
}

void ModelContext::adopt(PromptVersion& version) {
    version.rowId = ++lastVersionRow;
    join(version);
    if (version.owner)
        noteUpdated(version.owner);
}

void ModelContext::markDeleted(Record& record) {
    record.deleted = true;
    changes.inserted.remove(&record);
    changes.updated.remove(&record);
    changes.deleted.insert(&record);
    schedule();
}

void ModelContext::remove(Prompt* prompt) {
    if (!prompt || prompt->deleted || prompt->context != this)
        return;
    for (PromptQuery* query : promptQueries)
        query->sorted->remove(prompt);
    promptTable->forget(prompt);
    for (Tag* tag : relations->dissolve(*prompt))
        noteUpdated(tag);
    // The rows of the versions go with the prompt's own, also those that were never read.
    for (PromptVersion* version : std::exchange(prompt->versionList, {}))
        forget(*version);
    prompt->versionsLoaded = true;
    if (prompt->stored)
        pending->removedPrompts.push_back(prompt->rowId);
    prompt->titleText.clear();
    prompt->bodyText.clear();
    markDeleted(*prompt);
}

void ModelContext::remove(Tag* tag) {
    if (!tag || tag->deleted || tag->context != this)
        return;
    for (TagQuery* query : tagQueries)
        query->sorted->remove(tag);
    tagTable->forget(tag);
    for (Prompt* prompt : relations->dissolve(*tag))
        noteUpdated(prompt);
    if (tag->stored)
        pending->removedTags.push_back(tag->rowId);
    tag->nameText.clear();
    tag->colorText.clear();
    markDeleted(*tag);
}

void ModelContext::remove(PromptVersion* version) {
    if (!version || version->deleted || version->context != this)
        return;
    if (version->owner) {
        version->owner->versionList.removeOne(version);
        noteUpdated(version->owner);
    }
    if (version->stored)
        pending->removedVersions.push_back(version->rowId);
    forget(*version);
}

void ModelContext::forget(PromptVersion& version) {
    version.titleText.clear();
    version.bodyText.clear();
    version.names.clear();
    version.colors.clear();
    markDeleted(version);
}

void ModelContext::removeAllVersions() {
    for (const auto& prompt : promptTable->everything()) {
        for (PromptVersion* version : std::exchange(prompt->versionList, {}))
            forget(*version);
        prompt->versionsLoaded = true;
        if (!prompt->deleted)
            noteUpdated(prompt.get());
    }
    for (const auto& version : freeVersions) {
        if (!version->deleted)
            forget(*version);
    }
    freeVersionsRead = true;
    pending->versionsRemovedUpTo = lastVersionRow;
}

void ModelContext::save() {
    if (saving) {
        saving->writing.reset();
        saving->disturbed = true;
    }
    if (!hasChanges())
        return;
    requireLeaveToSave();
    store->write(*pending);
    markSaved();
}

void ModelContext::requireLeaveToSave() const {
    if (!allowsSave)
        throw StoreError(StoreError::Kind::readOnly, store->path(), QStringLiteral("opened without leave to save"));
}

void ModelContext::markSaved() {
    for (Record* record : pending->dirty) {
        record->listed = false;
        record->fieldsDirty = false;
        record->stored = true;
        if (record->kind == Record::Kind::Prompt)
            static_cast<Prompt*>(record)->linksDirty = false;
    }
    *pending = {};
}

bool ModelContext::hasChanges() const {
    return pending->removesRows() || std::any_of(pending->dirty.cbegin(), pending->dirty.cend(),
                                                 [](const Record* record) { return !record->deleted; });
}

void ModelContext::list(Record& record) {
    if (!std::exchange(record.listed, true))
        pending->dirty.push_back(&record);
}

void ModelContext::recordChanged(Record* record) {
    record->fieldsDirty = true;
    list(*record);
    noteUpdated(record);
}

void ModelContext::noteUpdated(Record* record) {
    if (!changes.inserted.contains(record))
        changes.updated.insert(record);
    schedule();
}

void ModelContext::schedule() {
    if (saving)
        saving->disturbed = true;
    if (std::exchange(scheduled, true))
        return;
    MainQueue::async(this, [this] { processPendingChanges(); });
}

void ModelContext::processPendingChanges() {
    scheduled = false;
    if (batches == 0 && !changes.isEmpty())
        Q_EMIT changed(std::exchange(changes, {}));
}

ModelContext::Batch::Batch(ModelContext& target) : context(&target) {
    ++target.batches;
}

ModelContext::Batch::~Batch() {
    if (context && --context->batches == 0)
        context->schedule();
}

void ModelContext::titleChanged(Prompt* prompt, const QString& old) {
    promptTable->textChanged(prompt, old);
}

void ModelContext::nameChanged(Tag* tag, const QString& old) {
    tagTable->textChanged(tag, old);
}

void ModelContext::willReorder(Prompt* prompt) {
    for (PromptQuery* query : promptQueries)
        query->sorted->takeOut(prompt);
}

void ModelContext::willReorder(Tag* tag) {
    for (TagQuery* query : tagQueries)
        query->sorted->takeOut(tag);
}

void ModelContext::linksChanged(Prompt& prompt) {
    prompt.linksDirty = true;
    list(prompt); // a long body is not written again for a tag
    noteUpdated(&prompt);
}

void ModelContext::setTags(Prompt& prompt, const QList<Tag*>& wanted) {
    const Relations::Touched touched = relations->setTags(prompt, wanted);
    for (Prompt* linked : touched.prompts)
        linksChanged(*linked);
    for (Tag* tag : touched.tags)
        noteUpdated(tag);
}

void ModelContext::setPrompts(Tag& tag, const QList<Prompt*>& wanted) {
    const Relations::Touched touched = relations->setPrompts(tag, wanted);
    for (Prompt* linked : touched.prompts)
        linksChanged(*linked);
    for (Tag* linked : touched.tags)
        noteUpdated(linked);
}

QList<Prompt*> ModelContext::prompts() const {
    return promptTable->all();
}

QList<Tag*> ModelContext::tags() const {
    return tagTable->all();
}

Prompt* ModelContext::promptWithId(const Uuid& id) const {
    return promptTable->withId(id);
}

Tag* ModelContext::tagWithId(const Uuid& id) const {
    return tagTable->withId(id);
}

QList<Prompt*> ModelContext::promptsWithTitle(const QString& title) const {
    return promptTable->withText(title);
}

QList<Tag*> ModelContext::tagsWithName(const QString& name) const {
    return tagTable->withText(name);
}

} // namespace Quillstacks
