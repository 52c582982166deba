#include "library/model/Prompt.h"

#include "foundation/Clock.h"
#include "library/model/ModelContext.h"
#include "library/model/PromptVersion.h"

#include <utility>

namespace Quillstacks {

Prompt::Prompt() : Record(Kind::Prompt) {}

Prompt::Prompt(QString title, QString body, QList<Tag*> tags)
    : Record(Kind::Prompt), titleText(std::move(title)), bodyText(std::move(body)), tagList(std::move(tags)) {
    beginLife();
    updated = Clock::now();
}

Prompt::~Prompt() = default;

const QList<PromptVersion*>& Prompt::versions() const {
    readVersions();
    return versionList;
}

bool Prompt::hasVersions() const {
    return versionsLoaded ? !versionList.isEmpty() : modelContext()->storedVersionsExist(*this);
}

void Prompt::readVersions() const {
    if (!versionsLoaded)
        modelContext()->loadVersions(*this);
}

void Prompt::releaseVersions() {
    if (modelContext() && !isDeleted())
        modelContext()->unloadVersions(*this);
}

void Prompt::setTitle(const QString& title) {
    if (isDeleted() || title == titleText)
        return;
    const QString old = std::exchange(titleText, title);
    if (modelContext())
        modelContext()->titleChanged(this, old);
    touch();
}

void Prompt::setBody(const QString& body) {
    if (isDeleted() || body == bodyText)
        return;
    bodyText = body;
    touch();
}

void Prompt::setUpdatedAt(Date date) {
    if (isDeleted() || date == updated)
        return;
    if (modelContext())
        modelContext()->willReorder(this);
    updated = date;
    touch();
}

void Prompt::setTags(const QList<Tag*>& tags) {
    if (isDeleted())
        return;
    if (modelContext()) {
        modelContext()->setTags(*this, tags);
    } else {
        tagList = tags;
    }
}

void Prompt::togglePin() {
    if (isDeleted())
        return;
    pinned = !pinned;
    pinDate = pinned ? std::optional(Clock::now()) : std::nullopt;
    touch();
}

PromptVersion* Prompt::appendVersion(std::unique_ptr<PromptVersion> version) {
    Q_ASSERT(version && !version->modelContext() && !isDeleted());
    readVersions();
    PromptVersion* appended = version.get();
    appended->owner = this;
    appended->position = versionList.isEmpty() ? 0 : versionList.last()->position + 1;
    ownedVersions.push_back(std::move(version));
    versionList.append(appended);
    if (modelContext())
        modelContext()->adopt(*appended);
    return appended;
}

void Prompt::restoreIdentity(const Uuid& id, Date createdAt, Date updatedAt, bool isPinned,
                             std::optional<Date> pinnedAt) {
    Q_ASSERT(!modelContext());
    identifier = id;
    created = createdAt;
    updated = updatedAt;
    pinned = isPinned;
    pinDate = pinnedAt;
}

} // namespace Quillstacks
