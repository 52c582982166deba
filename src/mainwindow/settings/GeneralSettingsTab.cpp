#include "GeneralSettingsTab.h"

#include "AppearanceSettingsView.h"

namespace Quillstacks {

GeneralSettingsTab::GeneralSettingsTab(QWidget* parent) : SettingsColumn(parent) {
    setObjectName(QStringLiteral("GeneralSettingsTab"));
    addRow({new AppearanceSettingsView});
}

} // namespace Quillstacks
