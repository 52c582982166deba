#pragma once

#include "library/model/Record.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace Quillstacks {

class PromptVersion;
class Tag;

/// A titled text with tags, a pin and a history. Setters are observed: the context tells its live queries on the next
/// turn of the loop. No setter saves.
class Prompt final : public Record {
public:
    /// A new prompt with a new id, created and updated now. The tags see it once it is inserted.
    Prompt(QString title, QString body, QList<Tag*> tags = {});
    ~Prompt() override;

    [[nodiscard]] const QString& title() const { return titleText; }
    [[nodiscard]] const QString& body() const { return bodyText; }
    [[nodiscard]] Date updatedAt() const { return updated; }
    [[nodiscard]] bool isPinned() const { return pinned; }
    [[nodiscard]] std::optional<Date> pinnedAt() const { return pinDate; }
    /// In their own order, each once; deleted tags are never among them.
    [[nodiscard]] const QList<Tag*>& tags() const { return tagList; }
    /// In the order of their appending; read from the store when first asked for. Throws StoreError.
    [[nodiscard]] const QList<PromptVersion*>& versions() const;
    /// Whether versions() is not empty, without reading it. Throws StoreError.
    [[nodiscard]] bool hasVersions() const;
    /// Frees the versions that were read from the store; pointers to them die, and the next versions() reads them
    /// again. For a walk over the whole library. Does nothing while one of them is not saved yet.
    void releaseVersions();

    void setTitle(const QString& title);
    void setBody(const QString& body);
    void setUpdatedAt(Date date);
    /// Sets both sides of the relation. Every tag must be in the prompt's context.
    void setTags(const QList<Tag*>& tags);
    /// Inverts the pin; its date becomes now, or none. Leaves updatedAt alone.
    void togglePin();
    /// Adds at the end. On an inserted prompt the version is inserted with it, otherwise with the prompt's insertion.
    /// Throws StoreError when the earlier versions can't be read.
    PromptVersion* appendVersion(std::unique_ptr<PromptVersion> version);

    /// What an import restores: dates, pin and identity as they were written, before insertion only.
    void restoreIdentity(const Uuid& id, Date createdAt, Date updatedAt, bool isPinned, std::optional<Date> pinnedAt);

private:
    friend class ModelContext;
    friend class RecordAccess;

    Prompt(); ///< to be filled from the store
    void readVersions() const;

    QString titleText;
    QString bodyText;
    Date updated{};
    bool pinned = false;
    bool linksDirty = false; ///< the tags differ from the store
    mutable bool versionsLoaded = true;
    std::optional<Date> pinDate;
    QList<Tag*> tagList;
    mutable QList<PromptVersion*> versionList;
    mutable std::vector<std::unique_ptr<PromptVersion>> ownedVersions; ///< those of the list, and deleted ones
};

} // namespace Quillstacks
