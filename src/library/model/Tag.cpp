#include "library/model/Tag.h"

#include "foundation/Clock.h"
#include "library/model/ModelContext.h"

#include <utility>

namespace Quillstacks {

Tag::Tag() : Record(Kind::Tag) {}

Tag::Tag(QString name, QString colorHex)
    : Record(Kind::Tag), nameText(std::move(name)), colorText(std::move(colorHex)) {
    beginLife();
    updated = Clock::now();
}

Tag::~Tag() = default;

void Tag::setName(const QString& name) {
    if (isDeleted() || name == nameText)
        return;
    if (modelContext())
        modelContext()->willReorder(this);
    const QString old = std::exchange(nameText, name);
    if (modelContext())
        modelContext()->nameChanged(this, old);
    touch();
}

void Tag::setColorHex(const QString& colorHex) {
    if (isDeleted() || colorHex == colorText)
        return;
    colorText = colorHex;
    touch();
}

void Tag::setUpdatedAt(Date date) {
    if (isDeleted() || date == updated)
        return;
    updated = date;
    touch();
}

void Tag::setPrompts(const QList<Prompt*>& prompts) {
    if (isDeleted())
        return;
    if (modelContext())
        modelContext()->setPrompts(*this, prompts);
    else
        promptList = prompts;
}

void Tag::restoreIdentity(const Uuid& id, Date createdAt, Date updatedAt) {
    Q_ASSERT(!modelContext());
    identifier = id;
    created = createdAt;
    updated = updatedAt;
}

} // namespace Quillstacks
