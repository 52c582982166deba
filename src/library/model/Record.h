#pragma once

#include "foundation/Date.h"
#include "foundation/Uuid.h"

#include <QtGlobal>

namespace Quillstacks {

class ModelContext;

/// What the three kinds of record share. A record lives in a std::unique_ptr until it is inserted into a context, which
/// owns it from then on; everybody else holds plain pointers, valid for the context's life. Equality is identity.
class Record {
public:
    Q_DISABLE_COPY_MOVE(Record)
    virtual ~Record();

    [[nodiscard]] const Uuid& id() const { return identifier; }
    [[nodiscard]] Date createdAt() const { return created; }
    /// The context that owns the record; nullptr before insertion.
    [[nodiscard]] ModelContext* modelContext() const { return context; }
    /// True from the moment of deletion on. Texts are empty and lists are empty then; setters do nothing any more.
    [[nodiscard]] bool isDeleted() const { return deleted; }

protected:
    enum class Kind : quint8 { Prompt, Tag, PromptVersion };
    explicit Record(Kind ofKind) : kind(ofKind) {}
    /// A new id, created now.
    void beginLife();
    /// Marks the record to be written by the next save and tells the context, if there is one.
    void touch();

    Uuid identifier;
    Date created{};

private:
    friend class ModelContext;
    friend class RecordAccess;
    ModelContext* context = nullptr;
    qint64 rowId = 0; ///< given at insertion and growing: key in the store and place in the order of insertion
    const Kind kind;
    bool listed = false;      ///< among what the next save has to write
    bool fieldsDirty = false; ///< its row differs from the store
    bool stored = false;      ///< has a row in the store
    bool deleted = false;
};

} // namespace Quillstacks
