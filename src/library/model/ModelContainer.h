#pragma once

#include <QString>
#include <QStringList>

#include <memory>

namespace Quillstacks {

class ModelContext;

/// The names of the model types, in order, and the version of their layout in the store.
struct Schema {
    QStringList models;
    QString version;

    /// Tag, Prompt, PromptVersion; 1.0.0.
    static Schema current();
};

/// Where a store lies and whether it may be written.
struct ModelConfiguration {
    QString path;
    bool allowsSave = true;
};

/// The open store: one SQLite file with "-wal" and "-shm" beside it, mode 0600, held for this process alone.
class ModelContainer final {
public:
    /// Opens the store, or creates it where no file stands. Throws StoreError, and then leaves the file untouched. The
    /// folder must exist.
    ModelContainer(const Schema& schema, const ModelConfiguration& configuration);
    ~ModelContainer();
    ModelContainer(const ModelContainer&) = delete;
    ModelContainer& operator=(const ModelContainer&) = delete;

    [[nodiscard]] ModelContext& mainContext() const { return *context; }

private:
    std::unique_ptr<ModelContext> context;
};

} // namespace Quillstacks
