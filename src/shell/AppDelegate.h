#pragma once

#include <QtGlobal>

namespace Quillstacks {

/// What the program answers when the desktop asks it about its life and its windows.
class AppDelegate final {
public:
    AppDelegate() = default;
    Q_DISABLE_COPY_MOVE(AppDelegate)

    /// Never: the program lives on in the status area.
    [[nodiscard]] bool applicationShouldTerminateAfterLastWindowClosed() const { return false; }
    /// A second start, or a click on the program's icon. True: the desktop's usual answer, the main window on screen,
    /// comes next.
    [[nodiscard]] bool applicationShouldHandleReopen(bool hasVisibleWindows) const;
};

} // namespace Quillstacks
