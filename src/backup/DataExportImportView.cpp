#include "backup/DataExportImportView.h"

#include "backup/DataExportImportViewModel.h"
#include "backup/ExportDocument.h"
#include "foundation/LocalizedError.h"
#include "foundation/Log.h"
#include "foundation/MainQueue.h"
#include "interface/Alert.h"
#include "interface/Button.h"
#include "interface/Card.h"
#include "interface/Label.h"
#include "interface/Sheet.h"
#include "interface/SymbolImage.h"

#include "ExportRun.h"
#include "FileWriting.h"
#include "ProgressView.h"
#include "SlicedWork.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace Quillstacks {

namespace {

const QString exportTitle = QStringLiteral("Export");
const QString exportingTitle = QStringLiteral("Exporting...");
const QString importTitle = QStringLiteral("Import");
const QString importingTitle = QStringLiteral("Importing...");
constexpr int notePadding = 11; ///< its edge included
const FileDialogs::FileType jsonFiles{QStringLiteral("JSON"), QStringLiteral("json")};

Label* paragraph(const QString& text, TextStyle style) {
    auto* label = new Label(text, style, ColorRole::text2);
    label->setMaximumLines(0);
    return label;
}

} // namespace

DataExportImportView::DataExportImportView(ModelContext& library, DataExportImportViewModel& viewModel, QWidget* parent)
    : QWidget(parent), context(library), model(&viewModel) {
    setObjectName(QStringLiteral("DataExportImportView"));
    build();
    connect(model, &DataExportImportViewModel::changed, this, &DataExportImportView::showModel);
    connect(model, &DataExportImportViewModel::progressed, this, [this](double fraction) {
        if (progress)
            progress->setFraction(fraction);
    });
    connect(exportButton, &QAbstractButton::clicked, this, &DataExportImportView::exportLibrary);
    connect(importButton, &QAbstractButton::clicked, this, &DataExportImportView::importLibrary);
    showButtons();
    // Not at once: it has no window yet over which the result could be shown.
    MainQueue::async(this, [this] { showModel(); });
}

DataExportImportView::~DataExportImportView() {
    // What is not prepared by now is given up.
    if (model && preparing)
        model->setExporting(false);
}

void DataExportImportView::build() {
    exportButton = new Button(exportTitle);
    exportButton->setSymbol(QStringLiteral("square.and.arrow.up"));
    importButton = new Button(importTitle);
    importButton->setSymbol(QStringLiteral("square.and.arrow.down"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new Label(QStringLiteral("Data Management"), TextStyle::headline));
    column->addSpacing(3);
    column->addWidget(paragraph(QStringLiteral("Export your prompts and tags to a backup file, or import data from a "
                                               "previous export."),
                                TextStyle::subheadline));
    column->addSpacing(16);
    column->addLayout(buildRow(QStringLiteral("Export Data"),
                               QStringLiteral("Save all your prompts and tags to a backup file"), exportButton));
    column->addSpacing(14);
    column->addLayout(buildRow(QStringLiteral("Import Data"),
                               QStringLiteral("Restore prompts and tags from a backup file"), importButton));
    column->addSpacing(16);
    column->addWidget(buildNote());
}

QLayout* DataExportImportView::buildRow(const QString& title, const QString& line, Button* button) {
    auto* name = new Label(title);
    name->setTextStyle(TextStyle::body, QFont::Medium);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addWidget(name);
    texts->addWidget(paragraph(line, TextStyle::caption));
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addLayout(texts, 1);
    row->addWidget(button);
    return row;
}

QWidget* DataExportImportView::buildNote() {
    auto* note = new Card(Card::tinted(ColorRole::blue, 0.05, 0.2, 8));
    auto* name = new Label(QStringLiteral("Import Behavior"));
    name->setTextStyle(TextStyle::caption, QFont::DemiBold);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addWidget(name);
    texts->addWidget(paragraph(QStringLiteral("Existing items with the same name will be skipped. Tags are matched by "
                                              "name, prompts by title."),
                               TextStyle::caption));
    auto* row = new QHBoxLayout(note);
    row->setContentsMargins(notePadding, notePadding, notePadding, notePadding);
    row->setSpacing(8);
    row->addWidget(new SymbolImage(QStringLiteral("info.circle.fill"), 16, ColorRole::blue), 0, Qt::AlignTop);
    row->addLayout(texts, 1);
    return note;
}

void DataExportImportView::showButton(Button* button, bool isBusy, const QString& title, const QString& busyTitle) {
    button->setTitle(isBusy ? busyTitle : title);
    button->setBusy(isBusy);
}

void DataExportImportView::showButtons() {
    showButton(exportButton, model->isExporting(), exportTitle, exportingTitle);
    showButton(importButton, model->isImporting(), importTitle, importingTitle);
}

void DataExportImportView::showModel() {
    if (!model)
        return;
    showButtons();
    if (model->showingImportAlert() && !model->isImporting())
        showImportAlert();
}

void DataExportImportView::showProgress(const QString& title) {
    // First of all, so that the keyboard comes back to the button which is about to be disabled.
    endProgress();
    progress = ProgressView::present(this, title);
}

void DataExportImportView::endProgress() {
    if (progress)
        progress->dismiss();
    progress.clear();
}

void DataExportImportView::exportLibrary() {
    if (model->isExporting() || model->isImporting() || showsExporter || work)
        return;
    showProgress(exportingTitle);
    model->setExporting(true);
    Log::importExport.info(QStringLiteral("Starting data export"));
    preparing = std::make_unique<ExportRun>(context);
    work = std::make_unique<SlicedWork>(
        SlicedWork::Parts{[this] { return preparing->step(); }, [this] { prepared(); },
                          [this](const std::exception& error) { preparationFailed(error); },
                          [this] {
                              if (progress)
                                  progress->setFraction(preparing->fraction());
                          }});
}

void DataExportImportView::prepared() {
    bytes = preparing->take();
    preparing.reset();
    work.release()->deleteLater(); // this is called from within it
    showsExporter = true;
    model->setExporting(false);
    endProgress();
    showFileExporter();
}

void DataExportImportView::preparationFailed(const std::exception& error) {
    Log::importExport.error(QStringLiteral("Export preparation failed: ") + localizedDescription(error));
    preparing.reset();
    work.release()->deleteLater();
    model->setExporting(false);
    endProgress();
}

void DataExportImportView::showFileExporter() {
    FileDialogs::saveFile(this, jsonFiles, QStringLiteral("Quillstacks-Backup"),
                          [this](const FileDialogs::Answer& answer) { exporterEnded(answer); });
}

void DataExportImportView::exporterEnded(const FileDialogs::Answer& answer) {
    showsExporter = false;
    if (answer.failure)
        exportFailed(*answer.failure);
    else if (answer.path)
        write(*answer.path);
}

void DataExportImportView::write(const QString& path) {
    try {
        writing = ExportDocument{bytes}.writing(path);
    } catch (const LocalizedError& error) {
        exportFailed(error.errorDescription());
        return;
    }
    showProgress(exportingTitle);
    work = std::make_unique<SlicedWork>(
        SlicedWork::Parts{[this] { return writing->step(); }, [this, path] { written(path); },
                          [this](const std::exception& error) { exportFailed(localizedDescription(error)); },
                          [this] {
                              if (progress)
                                  progress->setFraction(writing->fraction());
                          }});
}

void DataExportImportView::written(const QString& path) {
    Log::logOperation(exportTitle, true, 1);
    Log::importExport.info(QStringLiteral("Export saved to: ") + QFileInfo(path).fileName());
    bytes.reset();
    writing.reset();
    work.release()->deleteLater();
    endProgress();
}

void DataExportImportView::exportFailed(const QString& description) {
    Log::logOperation(exportTitle, false, 0);
    Log::importExport.error(QStringLiteral("Export failed: ") + description);
    writing.reset();
    if (work)
        work.release()->deleteLater();
    endProgress();
}

void DataExportImportView::importLibrary() {
    if (model->isImporting() || showsImporter || work)
        return;
    showsImporter = true;
    FileDialogs::openFile(this, jsonFiles, [this](const FileDialogs::Answer& answer) { importerEnded(answer); });
}

void DataExportImportView::importerEnded(const FileDialogs::Answer& answer) {
    showsImporter = false;
    if (answer.failure)
        Log::importExport.error(QStringLiteral("File picker failed: ") + *answer.failure);
    if (!answer.path)
        return;
    showProgress(importingTitle);
    model->importData(*answer.path, context);
}

void DataExportImportView::showImportAlert() {
    endProgress();
    if (alertIsOpen || !model->importResult())
        return;
    alertIsOpen = true;
    Alert::Text text;
    text.title = QStringLiteral("Import Result");
    text.message = model->importResult()->message();
    text.confirmTitle = QStringLiteral("OK");
    text.cancelTitle.clear();
    Alert::show(this, text, [this] {
        alertIsOpen = false;
        model->setShowingImportAlert(false);
    });
}

} // namespace Quillstacks
