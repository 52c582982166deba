#include "ImportRun.h"

#include "backup/format/BackupReader.h"
#include "foundation/Log.h"
#include "library/model/ModelSaving.h"
#include "platform/FileError.h"

#include "FileReading.h"

#include <cerrno>
#include <new>

namespace Quillstacks {

namespace {

// How the time is shared out, roughly.
constexpr double readShare = 0.1;
constexpr double decodeShare = 0.25;
constexpr double mergeShare = 0.15;
constexpr double saveShare = 0.5;

} // namespace

ImportRun::ImportRun(const QString& filePath, ModelContext& into, Lookups with)
    : path(filePath), context(into), lookups(std::move(with)), batch(into),
      reading(std::make_unique<FileReading>(path)) {}

ImportRun::~ImportRun() = default;

bool ImportRun::step() {
    try {
        advance();
    } catch (const std::bad_alloc&) {
        throw FileError(path, ENOMEM, QStringLiteral("read the file"));
    }
    return phase != Phase::end;
}

void ImportRun::advance() {
    switch (phase) {
    case Phase::read:
        if (reading->step())
            break;
        decoding = std::make_unique<BackupReader>(reading->take());
        reading.reset();
        phase = Phase::decode;
        break;
    case Phase::decode:
        if (!decoding->step())
            decoded();
        break;
    case Phase::merge:
        if (merging->step())
            break;
        outcome = merging->result();
        newPrompts = merging->newPrompts();
        merging.reset();
        saving = std::make_unique<ModelSaving>(context);
        phase = Phase::save;
        break;
    case Phase::save:
        if (saving->step())
            break;
        saving.reset();
        phase = Phase::release;
        break;
    case Phase::release:
        if (!release())
            phase = Phase::end;
        break;
    case Phase::end:
        break;
    }
}

void ImportRun::decoded() {
    ExportedData data = decoding->take();
    decoding.reset();
    Log::importExport.info(QStringLiteral("Import file decoded: %1 tags, %2 prompts")
                               .arg(QString::number(data.tags.size()), QString::number(data.prompts.size())));
    merging = std::make_unique<BackupMerge>(context, std::move(data), lookups(context));
    phase = Phase::merge;
}

/// The new versions are in the store, and shown nowhere.
bool ImportRun::release() {
    if (released < newPrompts.size())
        newPrompts.at(released++)->releaseVersions();
    return released < newPrompts.size();
}

double ImportRun::fraction() const {
    switch (phase) {
    case Phase::read:
        return readShare * reading->fraction();
    case Phase::decode:
        return readShare + decodeShare * decoding->fraction();
    case Phase::merge:
        return readShare + decodeShare + mergeShare * merging->fraction();
    case Phase::save:
        return readShare + decodeShare + mergeShare + saveShare * saving->fraction();
    case Phase::release:
    case Phase::end:
        break;
    }
    return 1;
}

} // namespace Quillstacks
