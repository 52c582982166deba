#include "x11/SelectionWatch.h"

#include "x11/Connection.h"

#include <QCoreApplication>

#include <cstdlib>
#include <xcb/xfixes.h>

namespace Quillstacks::X11 {

SelectionWatch::SelectionWatch(const char* name, QObject* parent) : QObject(parent), selection(atom(name)) {
    auto* server = connection();
    const auto* extension = server ? xcb_get_extension_data(server, &xcb_xfixes_id) : nullptr;
    if (!extension || !extension->present)
        return;
    // The server answers requests of an extension only after the client has named the version that it speaks.
    const auto cookie = xcb_xfixes_query_version(server, 5, 0);
    std::free(xcb_xfixes_query_version_reply(server, cookie, nullptr));
    xcb_xfixes_select_selection_input(server, root(), selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    xcb_flush(server);
    owner = selectionOwner(selection); // only now: what becomes of it later is told
    notifyEvent = static_cast<uint8_t>(extension->first_event + XCB_XFIXES_SELECTION_NOTIFY);
    QCoreApplication::instance()->installNativeEventFilter(this);
}

SelectionWatch::~SelectionWatch() = default;

bool SelectionWatch::isOwned() const {
    return (notifyEvent != 0 ? owner : selectionOwner(selection)) != XCB_WINDOW_NONE;
}

bool SelectionWatch::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/) {
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & 0x7f) != notifyEvent)
        return false;
    const auto* notice = reinterpret_cast<const xcb_xfixes_selection_notify_event_t*>(event);
    // The toolkit watches some selections as well, for windows of its own, and its notices pass here too.
    if (notice->selection == selection && notice->window == root()) {
        const bool isTaken = notice->subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER;
        owner = isTaken ? notice->owner : xcb_window_t{XCB_WINDOW_NONE};
        Q_EMIT changed();
    }
    return false;
}

} // namespace Quillstacks::X11
