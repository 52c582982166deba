#pragma once

#include "backup/BackupMerge.h"
#include "library/model/ModelContext.h"

#include <functional>
#include <optional>

namespace Quillstacks {

class BackupReader;
class FileReading;
class ModelSaving;

/// One import, from the file to the saved library, in small steps. One that is destroyed before its end has saved
/// nothing.
class ImportRun final {
public:
    using Lookups = std::function<MergeLookups(const ModelContext&)>;
    ImportRun(const QString& path, ModelContext& context, Lookups lookups);
    ~ImportRun();
    Q_DISABLE_COPY_MOVE(ImportRun)

    /// False when all is saved. Throws where file, format or save fail; a FileError where the memory does not do.
    [[nodiscard]] bool step();
    /// How far it is, from 0 to 1.
    [[nodiscard]] double fraction() const;
    /// When the last step is made.
    [[nodiscard]] const ImportResult& result() const { return outcome; }

private:
    enum class Phase { read, decode, merge, save, release, end };

    void advance();
    void decoded();
    bool release();

    const QString path;
    ModelContext& context;
    const Lookups lookups;
    const ModelContext::Batch batch; ///< screens beneath need not follow each slice
    Phase phase = Phase::read;
    std::unique_ptr<FileReading> reading; ///< each while its phase lasts
    std::unique_ptr<BackupReader> decoding;
    std::unique_ptr<BackupMerge> merging;
    std::unique_ptr<ModelSaving> saving;
    QList<Prompt*> newPrompts;
    qsizetype released = 0;
    ImportResult outcome;
};

} // namespace Quillstacks
