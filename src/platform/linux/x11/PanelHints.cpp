#include "x11/PanelHints.h"

#include "foundation/MainQueue.h"
#include "platform/Windows.h"
#include "x11/Connection.h"

#include <QEvent>
#include <QWidget>

namespace Quillstacks::X11 {

namespace {

constexpr uint32_t everyWorkspace = 0xFFFFFFFF;
constexpr uint32_t sourceUser = 2;

} // namespace

PanelHints::PanelHints(QWidget* owner) : QObject(owner), panel(owner) {
    panel->installEventFilter(this);
}

bool PanelHints::eventFilter(QObject* watched, QEvent* event) {
    // The toolkit tells a widget of its show just before it maps the window.
    if (watched == panel && event->type() == QEvent::Show) {
        setCardinals(nativeWindow(panel), "_NET_WM_DESKTOP", &everyWorkspace, 1);
        MainQueue::async(panel, [this] { tellOnceShown(); });
    }
    return QObject::eventFilter(watched, event);
}

void PanelHints::tellOnceShown() {
    if (!panel->isVisible())
        return;
    Windows::setSkipTaskbar(panel, true);
    // Some window managers put a panel on the workspace of the program's other windows, whatever it said of itself.
    xcb_client_message_data_t data{};
    data.data32[0] = everyWorkspace;
    data.data32[1] = sourceUser;
    sendToWindowManager(nativeWindow(panel), "_NET_WM_DESKTOP", data);
}

} // namespace Quillstacks::X11
