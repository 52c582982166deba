#pragma once

#include "library/model/Record.h"

#include <QList>
#include <QString>

namespace Quillstacks {

class Prompt;

/// A coloured label. Names need not be unique.
class Tag final : public Record {
public:
    /// A new tag with a new id, created and updated now. `colorHex` is stored as given.
    Tag(QString name, QString colorHex);
    ~Tag() override;

    [[nodiscard]] const QString& name() const { return nameText; }
    [[nodiscard]] const QString& colorHex() const { return colorText; }
    [[nodiscard]] Date updatedAt() const { return updated; }
    /// The other side of Prompt::tags(), each prompt once, in the order in which the prompts took the tag.
    [[nodiscard]] const QList<Prompt*>& prompts() const { return promptList; }

    void setName(const QString& name);
    void setColorHex(const QString& colorHex);
    void setUpdatedAt(Date date);
    /// Sets both sides of the relation. Every prompt must be in the tag's context.
    void setPrompts(const QList<Prompt*>& prompts);

    /// What an import restores: identity and dates as they were written, before insertion only.
    void restoreIdentity(const Uuid& id, Date createdAt, Date updatedAt);

private:
    friend class ModelContext;
    friend class RecordAccess;

    Tag(); ///< to be filled from the store

    QString nameText;
    QString colorText;
    Date updated{};
    QList<Prompt*> promptList;
};

} // namespace Quillstacks
