#include "backup/DataExportImportViewModel.h"

#include "foundation/LocalizedError.h"
#include "foundation/Log.h"
#include "foundation/MainQueue.h"

#include "ImportRun.h"
#include "SlicedWork.h"

#include <QFileInfo>

namespace Quillstacks {

DataExportImportViewModel::DataExportImportViewModel(QObject* parent) : QObject(parent) {}

DataExportImportViewModel::~DataExportImportViewModel() = default;

void DataExportImportViewModel::setExporting(bool now) {
    exporting = now;
    Q_EMIT changed();
}

void DataExportImportViewModel::setShowingImportAlert(bool showing) {
    showingAlert = showing;
    Q_EMIT changed();
}

void DataExportImportViewModel::importData(const QString& path, ModelContext& context) {
    if (importing)
        return;
    importing = true;
    Q_EMIT changed();
    Log::importExport.info(QStringLiteral("Starting data import from: ") + QFileInfo(path).fileName());
    run = std::make_unique<ImportRun>(path, context, lookups);
    work = std::make_unique<SlicedWork>(SlicedWork::Parts{[this] { return run->step(); }, [this] { finish(); },
                                                          [this](const std::exception& error) { fail(error); },
                                                          [this] { Q_EMIT progressed(run->fraction()); }});
}

void DataExportImportViewModel::finish() {
    const ImportResult result = run->result();
    Log::logOperation(QStringLiteral("Import"), result.success, result.importedTagsCount + result.importedPromptsCount);
    if (!result.success)
        Log::importExport.error(
            QStringLiteral("Import completed with %1 errors").arg(QString::number(result.errors.size())));
    end(result);
}

void DataExportImportViewModel::fail(const std::exception& error) {
    const QString description = localizedDescription(error);
    Log::logOperation(QStringLiteral("Import"), false, 0);
    Log::importExport.error(QStringLiteral("Import failed: ") + description);
    end(ImportResult::failed(description));
}

void DataExportImportViewModel::end(const ImportResult& result) {
    lastResult = result;
    showingAlert = true;
    importing = false;
    run.reset();
    // Not at once: this is called from within it.
    work.release()->deleteLater();
    Q_EMIT changed();
}

} // namespace Quillstacks
