#include "AdvancedSettingsTab.h"

#include "DebugLogsSettingsView.h"
#include "library/versions/VersionHistorySettingsView.h"

namespace Quillstacks {

AdvancedSettingsTab::AdvancedSettingsTab(QWidget* parent) : SettingsColumn(parent) {
    setObjectName(QStringLiteral("AdvancedSettingsTab"));
    auto* logs = new DebugLogsSettingsView;
    connect(logs, &DebugLogsSettingsView::logExportHelpRequested, this, &AdvancedSettingsTab::logExportHelpRequested);
    addCard({new VersionHistorySettingsView});
    addCard({logs});
}

} // namespace Quillstacks
