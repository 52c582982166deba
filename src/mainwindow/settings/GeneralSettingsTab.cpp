#include "GeneralSettingsTab.h"

#include "analysis/LexiwellSettingsView.h"
#include "AppearanceSettingsView.h"
#include "hotkey/HotkeySettingsView.h"

namespace Quillstacks {

GeneralSettingsTab::GeneralSettingsTab(QWidget* parent) : SettingsColumn(parent) {
    setObjectName(QStringLiteral("GeneralSettingsTab"));
    addRow({new HotkeySettingsView, new AppearanceSettingsView});
    addCard({new LexiwellSettingsView});
}

} // namespace Quillstacks
