#include "GeneralSettingsTab.h"

#include "analysis/LexiwellSettingsView.h"
#include "AppearanceSettingsView.h"
#include "hotkey/HotkeySettingsView.h"
#include "upkeep/LaunchAtLoginSettingsView.h"
#include "upkeep/SparkleUpdaterManager.h"
#include "upkeep/UpdateSettingsView.h"

namespace Quillstacks {

GeneralSettingsTab::GeneralSettingsTab(QWidget* parent) : SettingsColumn(parent) {
    setObjectName(QStringLiteral("GeneralSettingsTab"));
    addRow({new HotkeySettingsView, new AppearanceSettingsView});
    addCard({new LexiwellSettingsView});
    addRow({new UpdateSettingsView(SparkleUpdaterManager::shared()), new LaunchAtLoginSettingsView});
}

} // namespace Quillstacks
