#pragma once

#include <QtGlobal>

#include <memory>

namespace Quillstacks {

class ModelContext;
class StoreWriting;

/// A save in steps, for changes that are too many to be written in one turn of the main loop. All of it is committed
/// with the last step or nothing is: one that is destroyed before has written nothing, and the changes stay in the
/// context. At most one for each context at a time, which must outlive it.
class ModelSaving final {
public:
    explicit ModelSaving(ModelContext& context);
    ~ModelSaving();
    Q_DISABLE_COPY_MOVE(ModelSaving)

    /// Writes some of the changes; false when all is committed. Where the context changed or was saved since the last
    /// step, all that is left is written at once. Throws StoreError; nothing is written then.
    [[nodiscard]] bool step();
    /// How much has been written, from 0 to 1.
    [[nodiscard]] double fraction() const;

private:
    friend class ModelContext;
    void begin();

    ModelContext& context;
    std::unique_ptr<StoreWriting> writing; ///< while there is something to write
    bool hasBegun = false;
    bool disturbed = false; ///< the context is not what it was at the beginning
};

} // namespace Quillstacks
