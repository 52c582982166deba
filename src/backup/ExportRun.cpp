#include "ExportRun.h"

#include "backup/format/BackupWriter.h"
#include "foundation/Log.h"
#include "library/model/LiveQuery.h"
#include "library/model/ModelContext.h"

namespace Quillstacks {

ExportRun::ExportRun(ModelContext& exported) : context(exported) {}

ExportRun::~ExportRun() = default;

void ExportRun::begin() {
    const QList<Tag*> tags = TagQuery(context).records();
    prompts = PromptQuery(context).records();
    Log::importExport.info(QStringLiteral("Export prepared: %1 tags, %2 prompts")
                               .arg(QString::number(tags.size()), QString::number(prompts.size())));
    writer = std::make_unique<BackupWriter>(bytes, ExportedData(tags, {}));
}

bool ExportRun::step() {
    if (!writer)
        begin();
    if (next < prompts.size()) {
        Prompt* prompt = prompts.at(next++);
        if (prompt->isDeleted()) // since the last step; nothing is left of it but the mark
            return true;
        writer->write(ExportedPrompt(*prompt));
        // A whole library of versions would stay in memory otherwise.
        prompt->releaseVersions();
        return true;
    }
    writer->finish();
    return false;
}

double ExportRun::fraction() const {
    return prompts.isEmpty() ? 0 : static_cast<double>(next) / static_cast<double>(prompts.size());
}

} // namespace Quillstacks
