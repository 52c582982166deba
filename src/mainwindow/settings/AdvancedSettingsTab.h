#pragma once

#include "SettingsColumn.h"

namespace Quillstacks {

class DataExportImportViewModel;
class ModelContext;

/// What few people change, and what keeps the library and the program in order.
class AdvancedSettingsTab final : public SettingsColumn {
    Q_OBJECT
public:
    /// Both must outlive it.
    AdvancedSettingsTab(ModelContext& context, DataExportImportViewModel& dataExportImportSettings,
                        QWidget* parent = nullptr);

Q_SIGNALS:
    void logExportHelpRequested();
};

} // namespace Quillstacks
