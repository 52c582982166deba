#include "library/versions/PromptVersionManager.h"

#include "foundation/Clock.h"
#include "library/model/ModelContext.h"
#include "library/model/Prompt.h"
#include "library/model/PromptVersion.h"

#include <algorithm>
#include <memory>

namespace Quillstacks {

namespace {

/// Equal dates stay in the order of the collection, so that pruning takes the same one every time.
QList<PromptVersion*> newestFirst(const Prompt& prompt) {
    QList<PromptVersion*> versions = prompt.versions();
    std::stable_sort(versions.begin(), versions.end(),
                     [](const PromptVersion* a, const PromptVersion* b) { return a->createdAt() > b->createdAt(); });
    return versions;
}

} // namespace

void PromptVersionManager::createVersion(Prompt& prompt, ModelContext& context, qint64 limit) {
    if (limit < 0)
        qFatal("a history can't be kept to %lld versions", static_cast<long long>(limit));
    auto snapshot = std::make_unique<PromptVersion>(prompt.id(), prompt.title(), prompt.body(), prompt.tags());
    const QList<PromptVersion*> earlier = newestFirst(prompt);
    if (!earlier.isEmpty() && earlier.first()->title() == snapshot->title() &&
        earlier.first()->body() == snapshot->body())
        return;
    prompt.appendVersion(std::move(snapshot));
    const QList<PromptVersion*> versions = newestFirst(prompt);
    for (qsizetype surplus = limit; surplus < versions.size(); ++surplus)
        context.remove(versions.at(surplus));
}

void PromptVersionManager::restoreVersion(const PromptVersion& version, Prompt& prompt) {
    prompt.setTitle(version.title());
    prompt.setBody(version.body());
    prompt.setUpdatedAt(Clock::now());
}

} // namespace Quillstacks
