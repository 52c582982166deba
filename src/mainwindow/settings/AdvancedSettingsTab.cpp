#include "AdvancedSettingsTab.h"

#include "analysis/ModelProviderSettingsView.h"
#include "backup/DataExportImportView.h"
#include "DebugLogsSettingsView.h"
#include "library/restore/RestoreQuillstacksView.h"
#include "library/versions/VersionHistorySettingsView.h"

namespace Quillstacks {

AdvancedSettingsTab::AdvancedSettingsTab(ModelContext& context, DataExportImportViewModel& dataExportImportSettings,
                                         QWidget* parent)
    : SettingsColumn(parent) {
    setObjectName(QStringLiteral("AdvancedSettingsTab"));
    auto* logs = new DebugLogsSettingsView;
    connect(logs, &DebugLogsSettingsView::logExportHelpRequested, this, &AdvancedSettingsTab::logExportHelpRequested);
    addCard({new ModelProviderSettingsView});
    addCard({new VersionHistorySettingsView});
    addCard({new DataExportImportView(context, dataExportImportSettings), new RestoreQuillstacksView(context), logs});
}

} // namespace Quillstacks
