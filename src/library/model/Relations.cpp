#include "Relations.h"

#include "RecordAccess.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace Quillstacks {

/// Without what is deleted, foreign to the context or there twice.
template <typename T>
QList<T*> Relations::usable(const QList<T*>& wanted) const {
    QList<T*> result;
    QSet<const T*> seen;
    for (T* record : wanted) {
        if (!record || record->isDeleted() || seen.contains(record))
            continue;
        Q_ASSERT_X(record->modelContext() == &context, "Relations", "insert a record before it is linked");
        if (record->modelContext() != &context)
            continue;
        seen.insert(record);
        result.append(record);
    }
    return result;
}

void Relations::link(Prompt& prompt, Tag& tag) {
    RecordAccess::prompts(tag).append(&prompt);
    pending.linkOrder.insert({&prompt, &tag}, ++order);
}

void Relations::unlink(Prompt& prompt, Tag& tag) {
    RecordAccess::prompts(tag).removeOne(&prompt);
    pending.linkOrder.remove({&prompt, &tag});
}

Relations::Touched Relations::setTags(Prompt& prompt, const QList<Tag*>& wanted) {
    const QList<Tag*> next = usable(wanted);
    QList<Tag*>& list = RecordAccess::tags(prompt);
    if (next == list)
        return {};
    const QSet<Tag*> before(list.cbegin(), list.cend());
    const QSet<Tag*> after(next.cbegin(), next.cend());
    Touched touched;
    touched.prompts = {&prompt};
    for (Tag* tag : std::as_const(list)) {
        if (after.contains(tag))
            continue;
        unlink(prompt, *tag);
        touched.tags.append(tag);
    }
    for (Tag* tag : next) {
        if (before.contains(tag))
            continue;
        link(prompt, *tag);
        touched.tags.append(tag);
    }
    list = next;
    return touched;
}

Relations::Touched Relations::setPrompts(Tag& tag, const QList<Prompt*>& wanted) {
    const QList<Prompt*> next = usable(wanted);
    const QList<Prompt*> old = RecordAccess::prompts(tag);
    if (next == old)
        return {};
    const QSet<Prompt*> before(old.cbegin(), old.cend());
    const QSet<Prompt*> after(next.cbegin(), next.cend());
    Touched touched;
    touched.tags = {&tag};
    QList<Prompt*> kept;
    for (Prompt* prompt : old) {
        if (after.contains(prompt)) {
            kept.append(prompt);
            continue;
        }
        RecordAccess::tags(*prompt).removeOne(&tag);
        pending.linkOrder.remove({prompt, &tag});
        touched.prompts.append(prompt);
    }
    // Up to where old and new order part, the places in the store still hold; everything after gets a later one.
    const auto parted = std::mismatch(next.cbegin(), next.cend(), kept.cbegin(), kept.cend()).first;
    for (auto moved = parted; moved != next.cend(); ++moved) {
        if (!before.contains(*moved))
            RecordAccess::tags(**moved).append(&tag);
        pending.linkOrder.insert({*moved, &tag}, ++order);
        touched.prompts.append(*moved);
    }
    RecordAccess::prompts(tag) = next;
    return touched;
}

QList<Tag*> Relations::dissolve(Prompt& prompt) {
    QList<Tag*> left = std::exchange(RecordAccess::tags(prompt), {});
    for (Tag* tag : std::as_const(left))
        unlink(prompt, *tag);
    return left;
}

QList<Prompt*> Relations::dissolve(Tag& tag) {
    QList<Prompt*> left = std::exchange(RecordAccess::prompts(tag), {});
    for (Prompt* prompt : std::as_const(left)) {
        RecordAccess::tags(*prompt).removeOne(&tag);
        pending.linkOrder.remove({prompt, &tag});
    }
    return left;
}

} // namespace Quillstacks
