#pragma once

#include "library/model/Record.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace Quillstacks {

class Prompt;
class Tag;

/// A frozen copy of a prompt's text, with its tags' names and colours as texts. Never edited.
class PromptVersion final : public Record {
public:
    /// A new version with a new id, created now; names and colours are taken from the tags in their order.
    PromptVersion(const Uuid& promptId, QString title, QString body, const QList<Tag*>& tags);
    ~PromptVersion() override;

    /// The id of the prompt that it was taken from; plain data, not a relation.
    [[nodiscard]] const Uuid& promptId() const { return prompt; }
    [[nodiscard]] const QString& title() const { return titleText; }
    [[nodiscard]] const QString& body() const { return bodyText; }
    [[nodiscard]] const QStringList& tagNames() const { return names; }
    /// Parallel to tagNames().
    [[nodiscard]] const QStringList& tagColors() const { return colors; }

    /// What an import restores: identity, tags as texts and date as they were written, before insertion only.
    void restoreIdentity(const Uuid& id, QStringList tagNames, QStringList tagColors, Date createdAt);

private:
    friend class ModelContext;
    friend class Prompt;
    friend class RecordAccess;

    PromptVersion(); ///< to be filled from the store

    Uuid prompt;
    QString titleText;
    QString bodyText;
    QStringList names;
    QStringList colors;
    Prompt* owner = nullptr; ///< in whose versions() it stands; nullptr for one that was inserted on its own
    qint64 position = 0;     ///< in that list; grows, with gaps where versions were deleted
};

} // namespace Quillstacks
