#include "x11/PanelHints.h"

#include "foundation/MainQueue.h"
#include "platform/Windows.h"
#include "x11/Connection.h"

#include <QEvent>
#include <QWidget>

namespace Quillstacks::X11 {

PanelHints::PanelHints(QWidget* owner) : QObject(owner), panel(owner) {
    panel->installEventFilter(this);
}

bool PanelHints::eventFilter(QObject* watched, QEvent* event) {
    // The toolkit tells a widget of its show just before it maps the window.
    if (watched == panel && event->type() == QEvent::Show) {
        const uint32_t everyWorkspace = 0xFFFFFFFF;
        setCardinals(nativeWindow(panel), "_NET_WM_DESKTOP", &everyWorkspace, 1);
        MainQueue::async(panel, [this] { Windows::setSkipTaskbar(panel, true); });
    }
    return QObject::eventFilter(watched, event);
}

} // namespace Quillstacks::X11
