#pragma once

#include "foundation/Uuid.h"
#include "library/model/Prompt.h"
#include "library/model/PromptVersion.h"
#include "library/model/Tag.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QSet>

#include <memory>
#include <vector>

namespace Quillstacks {

class ModelSaving;
class PromptQuery;
class Relations;
class Store;
class TagQuery;
struct PendingChanges;
template <typename T>
class RecordTable;

/// What happened since the context last told.
struct ChangeSet {
    QSet<const Record*> inserted;
    QSet<const Record*> updated;
    QSet<const Record*> deleted;
    [[nodiscard]] bool isEmpty() const { return inserted.isEmpty() && updated.isEmpty() && deleted.isEmpty(); }
};

/// Owns the records of one store. Reads see what is not saved yet. Main thread only. Get it from a ModelContainer.
class ModelContext final : public QObject {
    Q_OBJECT
public:
    ~ModelContext() override;

    /// Takes the record over and returns it. Loose versions of a prompt come with it; its tags must be inserted.
    Prompt* insert(std::unique_ptr<Prompt> prompt);
    Tag* insert(std::unique_ptr<Tag> tag);
    /// A version that stands in no prompt's list: only versions() finds it, and no prompt's deletion takes it along.
    PromptVersion* insert(std::unique_ptr<PromptVersion> version);

    /// Deletes at once in memory, and in the store with the next save. A prompt takes its versions with it and leaves
    /// its tags; a tag leaves its prompts; a version leaves its prompt's list. Deleting twice does nothing.
    void remove(Prompt* prompt);
    void remove(Tag* tag);
    void remove(PromptVersion* version);
    /// Deletes every version, also those in no prompt's list, without reading them.
    void removeAllVersions();

    /// Writes all changes in one transaction; its cost depends on what changed only. Throws StoreError; the changes
    /// stay then, to be written by the next save.
    void save();
    [[nodiscard]] bool hasChanges() const;
    /// Tells the live queries now what they would be told on the next turn of the loop.
    void processPendingChanges();

    /// While one is alive, the live queries are told nothing, and at its end once of everything: for changes that take
    /// many turns of the loop. Reads are current all the same.
    class Batch final {
    public:
        explicit Batch(ModelContext& target);
        ~Batch();
        Q_DISABLE_COPY_MOVE(Batch)
    private:
        const QPointer<ModelContext> context;
    };

    /// All records that are not deleted, unsaved ones included, in the order of insertion.
    [[nodiscard]] QList<Prompt*> prompts() const;
    [[nodiscard]] QList<Tag*> tags() const;
    /// Prompt by prompt, those in no prompt's list last. Reads all of them from the store. Throws StoreError.
    [[nodiscard]] QList<PromptVersion*> versions();
    /// Hashed lookups; nullptr or an empty list when there is none.
    [[nodiscard]] Prompt* promptWithId(const Uuid& id) const;
    [[nodiscard]] Tag* tagWithId(const Uuid& id) const;
    [[nodiscard]] QList<Prompt*> promptsWithTitle(const QString& title) const;
    [[nodiscard]] QList<Tag*> tagsWithName(const QString& name) const;

Q_SIGNALS:
    /// Once for all changes of a turn. Use LiveQuery rather than this.
    void changed(const Quillstacks::ChangeSet& changes);

private:
    friend class ModelContainer;
    friend class ModelSaving;
    friend class Prompt;
    friend class PromptQuery;
    friend class Record;
    friend class Tag;
    friend class TagQuery;

    ModelContext(std::unique_ptr<Store> openStore, bool maySave);

    void requireLeaveToSave() const;
    void markSaved();
    void join(Record& record);
    void list(Record& record);
    void recordChanged(Record* record);
    void noteUpdated(Record* record);
    void schedule();
    void markDeleted(Record& record);
    void titleChanged(Prompt* prompt, const QString& old);
    void nameChanged(Tag* tag, const QString& old);
    void willReorder(Prompt* prompt);
    void willReorder(Tag* tag);
    void setTags(Prompt& prompt, const QList<Tag*>& wanted);
    void setPrompts(Tag& tag, const QList<Prompt*>& wanted);
    void linksChanged(Prompt& prompt);
    void adopt(PromptVersion& version);
    void forget(PromptVersion& version);
    void loadVersions(const Prompt& prompt);
    void unloadVersions(Prompt& prompt);
    void readFreeVersions();
    bool storedVersionsExist(const Prompt& prompt);

    std::unique_ptr<Store> store;
    std::unique_ptr<PendingChanges> pending;
    std::unique_ptr<Relations> relations;
    std::unique_ptr<RecordTable<Prompt>> promptTable;
    std::unique_ptr<RecordTable<Tag>> tagTable;
    std::vector<std::unique_ptr<PromptVersion>> freeVersions; ///< in no prompt's list
    std::vector<PromptQuery*> promptQueries;
    std::vector<TagQuery*> tagQueries;
    ChangeSet changes;
    ModelSaving* saving = nullptr; ///< while one is alive
    int batches = 0;
    qint64 lastVersionRow = 0;
    bool freeVersionsRead = false;
    bool scheduled = false;
    const bool allowsSave;
};

} // namespace Quillstacks
