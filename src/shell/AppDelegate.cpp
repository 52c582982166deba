#include "shell/AppDelegate.h"

#include "platform/Windows.h"
#include "shell/DockVisibilityController.h"
#include "shell/MainWindow.h"
#include "shell/MainWindowFocusManager.h"

namespace Quillstacks {

bool AppDelegate::applicationShouldHandleReopen(bool hasVisibleWindows) const {
    if (!hasVisibleWindows) {
        DockVisibilityController::shared().setPolicy(ActivationPolicy::regular);
        MainWindowFocusManager::shared().requestFocus();
        if (QWidget* main = MainWindow::find())
            Windows::showAndActivate(main, 0);
    }
    return true;
}

} // namespace Quillstacks
