#pragma once

#include "backup/BackupMerge.h"
#include "backup/ImportResult.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace Quillstacks {

class ImportRun;
class ModelContext;
class SlicedWork;

/// What the screen of export and import shows, and the import itself. It outlives the screen.
class DataExportImportViewModel final : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isExporting READ isExporting NOTIFY changed)
    Q_PROPERTY(bool isImporting READ isImporting NOTIFY changed)
    Q_PROPERTY(bool showingImportAlert READ showingImportAlert NOTIFY changed)
public:
    explicit DataExportImportViewModel(QObject* parent = nullptr);
    ~DataExportImportViewModel() override;

    /// An export is being prepared.
    [[nodiscard]] bool isExporting() const { return exporting; }
    [[nodiscard]] bool isImporting() const { return importing; }
    /// The result alert is open.
    [[nodiscard]] bool showingImportAlert() const { return showingAlert; }
    /// Of the last import.
    [[nodiscard]] const std::optional<ImportResult>& importResult() const { return lastResult; }

    void setExporting(bool exporting);
    void setShowingImportAlert(bool showing);
    /// Merges a backup file into the library and saves it, in slices on the main thread; returns at once. Whatever
    /// comes of it stands in importResult() in the end. The context must outlive this object. Does nothing while an
    /// import runs.
    void importData(const QString& path, ModelContext& context);

    /// How an import looks up what is there.
    std::function<MergeLookups(const ModelContext&)> lookups = MergeLookups::of;

Q_SIGNALS:
    void changed();
    /// How far the import is, from 0 to 1, a few times a second.
    void progressed(double fraction);

private:
    void finish();
    void fail(const std::exception& error);
    void end(const ImportResult& result);

    bool exporting = false;
    bool importing = false;
    bool showingAlert = false;
    std::optional<ImportResult> lastResult;
    std::unique_ptr<ImportRun> run;
    std::unique_ptr<SlicedWork> work;
};

} // namespace Quillstacks
