#pragma once

#include "platform/FileDialogs.h"

#include <QByteArray>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <optional>

class QLayout;

namespace Quillstacks {

class Button;
class DataExportImportViewModel;
class ExportRun;
class FileWriting;
class ModelContext;
class ProgressView;
class SlicedWork;

/// The card of the settings that writes the library to a backup file, or merges one into it.
class DataExportImportView final : public QWidget {
    Q_OBJECT
public:
    /// The library must outlive it. The model may go a moment before it, when both have one owner.
    DataExportImportView(ModelContext& context, DataExportImportViewModel& model, QWidget* parent = nullptr);
    ~DataExportImportView() override;

    // State
    [[nodiscard]] bool showingFileImporter() const { return showsImporter; }
    [[nodiscard]] bool showingFileExporter() const { return showsExporter; }
    /// What the save dialog is about; it outlives a save that failed or was cancelled.
    [[nodiscard]] const std::optional<QByteArray>& exportData() const { return bytes; }

    // Actions
    /// Prepares the backup, then asks where to save it.
    void exportLibrary();
    /// Asks for a backup file, then imports it.
    void importLibrary();

private:
    void build();
    [[nodiscard]] QLayout* buildRow(const QString& title, const QString& line, Button* button);
    [[nodiscard]] QWidget* buildNote();
    void showButton(Button* button, bool isBusy, const QString& title, const QString& busyTitle);
    void showButtons();
    void showModel();
    void showProgress(const QString& title);
    void endProgress();
    void prepared();
    void preparationFailed(const std::exception& error);
    void showFileExporter();
    void exporterEnded(const FileDialogs::Answer& answer);
    void write(const QString& path);
    void written(const QString& path);
    void exportFailed(const QString& description);
    void importerEnded(const FileDialogs::Answer& answer);
    void showImportAlert();

    ModelContext& context;
    const QPointer<DataExportImportViewModel> model;
    bool showsImporter = false;
    bool showsExporter = false;
    bool alertIsOpen = false;
    std::optional<QByteArray> bytes;
    std::unique_ptr<ExportRun> preparing; ///< each while it lasts
    std::unique_ptr<FileWriting> writing;
    std::unique_ptr<SlicedWork> work;
    QPointer<ProgressView> progress;
    Button* exportButton = nullptr;
    Button* importButton = nullptr;
};

} // namespace Quillstacks
