#pragma once

#include <QByteArray>
#include <QList>

#include <memory>

namespace Quillstacks {

class BackupWriter;
class ModelContext;
class Prompt;

/// Makes a backup's bytes of a library, in small steps.
class ExportRun final {
public:
    explicit ExportRun(ModelContext& context);
    ~ExportRun();
    Q_DISABLE_COPY_MOVE(ExportRun)

    /// False when all is encoded. Throws StoreError when versions can't be read.
    [[nodiscard]] bool step();
    /// How much is encoded, from 0 to 1.
    [[nodiscard]] double fraction() const;
    [[nodiscard]] QByteArray take() { return std::move(bytes); }

private:
    void begin();

    ModelContext& context;
    QList<Prompt*> prompts;
    qsizetype next = 0;
    QByteArray bytes;
    std::unique_ptr<BackupWriter> writer;
};

} // namespace Quillstacks
