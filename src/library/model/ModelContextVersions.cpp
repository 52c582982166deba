// How a context reads versions when they are asked for, and lets go of them again.
#include "library/model/ModelContext.h"

#include "PendingChanges.h"
#include "RecordTable.h"
#include "Store.h"

#include <algorithm>
#include <utility>

namespace Quillstacks {

void ModelContext::loadVersions(const Prompt& prompt) {
    std::vector<std::unique_ptr<PromptVersion>> read;
    if (prompt.stored)
        read = store->readVersions(prompt.rowId);
    for (auto& version : read) {
        version->context = this;
        // The prompt hands out its versions to be deleted even where it is itself only looked at.
        version->owner = const_cast<Prompt*>(&prompt);
        prompt.versionList.append(version.get());
        prompt.ownedVersions.push_back(std::move(version));
    }
    prompt.versionsLoaded = true;
}

void ModelContext::unloadVersions(Prompt& prompt) {
    const auto unsaved = [](const PromptVersion* version) { return !version->stored; };
    if (!prompt.versionsLoaded || !prompt.stored ||
        std::any_of(prompt.versionList.cbegin(), prompt.versionList.cend(), unsaved))
        return;
    // While the removal of a version is not saved, the store would give it back.
    const auto removedUnsaved = [this](const auto& version) {
        return version->deleted && version->stored && pending->removesRows();
    };
    if (pending->versionsRemovedUpTo > 0 ||
        std::any_of(prompt.ownedVersions.cbegin(), prompt.ownedVersions.cend(), removedUnsaved))
        return;
    for (const PromptVersion* version : std::as_const(prompt.versionList)) {
        changes.inserted.remove(version);
        changes.updated.remove(version);
    }
    prompt.versionList.clear();
    std::erase_if(prompt.ownedVersions, [](const auto& version) { return !version->deleted; });
    prompt.versionsLoaded = false;
}

bool ModelContext::storedVersionsExist(const Prompt& prompt) {
    return prompt.stored && store->hasVersions(prompt.rowId);
}

void ModelContext::readFreeVersions() {
    if (freeVersionsRead)
        return;
    for (auto& version : store->readFreeVersions()) {
        const auto known = [&version](const auto& other) { return other->rowId == version->rowId; };
        if (std::any_of(freeVersions.cbegin(), freeVersions.cend(), known))
            continue; // inserted and saved in this run
        version->context = this;
        freeVersions.push_back(std::move(version));
    }
    freeVersionsRead = true;
}

QList<PromptVersion*> ModelContext::versions() {
    QList<PromptVersion*> result;
    for (Prompt* prompt : prompts())
        result.append(prompt->versions());
    readFreeVersions();
    for (const auto& version : freeVersions) {
        if (!version->deleted)
            result.append(version.get());
    }
    return result;
}

} // namespace Quillstacks
