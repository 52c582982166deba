#include "mainwindow/settings/SettingsTab.h"

namespace Quillstacks {

QString label(SettingsTab tab) {
    switch (tab) {
    case SettingsTab::general:
        return QStringLiteral("General");
    case SettingsTab::advanced:
        break;
    }
    return QStringLiteral("Advanced");
}

} // namespace Quillstacks
