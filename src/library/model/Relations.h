#pragma once

#include "PendingChanges.h"

#include <QList>

namespace Quillstacks {

class ModelContext;

/// Keeps Prompt::tags() and Tag::prompts(), the two sides of one relation, alike.
class Relations final {
public:
    /// `lastOrder` is the greatest place in a tag's list that the store knows of.
    Relations(const ModelContext& owner, PendingChanges& unsaved, qint64 lastOrder)
        : context(owner), pending(unsaved), order(lastOrder) {}

    struct Touched {
        QList<Prompt*> prompts; ///< whose links differ from before
        QList<Tag*> tags;
    };
    Touched setTags(Prompt& prompt, const QList<Tag*>& wanted);
    Touched setPrompts(Tag& tag, const QList<Prompt*>& wanted);
    /// Takes the record out of the lists of the others, which are those that it gives back. Its own list is empty then.
    QList<Tag*> dissolve(Prompt& prompt);
    QList<Prompt*> dissolve(Tag& tag);

private:
    template <typename T>
    QList<T*> usable(const QList<T*>& wanted) const;
    void link(Prompt& prompt, Tag& tag);
    void unlink(Prompt& prompt, Tag& tag);

    const ModelContext& context;
    PendingChanges& pending;
    qint64 order;
};

} // namespace Quillstacks
