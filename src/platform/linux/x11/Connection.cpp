#include "x11/Connection.h"

#include <QGuiApplication>
#include <QWidget>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace Quillstacks::X11 {

namespace {

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

} // namespace

xcb_connection_t* connection() {
    if (!qGuiApp)
        return nullptr;
    const auto* native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return native ? native->connection() : nullptr;
}

xcb_window_t root() {
    auto* server = connection();
    return server ? xcb_setup_roots_iterator(xcb_get_setup(server)).data->root : xcb_window_t{XCB_WINDOW_NONE};
}

xcb_atom_t atom(const char* name) {
    auto* server = connection();
    if (!server)
        return XCB_ATOM_NONE;
    // Asking takes a round trip, and an atom stays what it is for as long as the server runs.
    static std::map<std::string, xcb_atom_t, std::less<>> known;
    if (const auto found = known.find(std::string_view(name)); found != known.end())
        return found->second;
    const auto cookie = xcb_intern_atom(server, 0, static_cast<uint16_t>(std::strlen(name)), name);
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server, cookie, nullptr), &std::free);
    return reply ? known.emplace(name, reply->atom).first->second : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_window_t selectionOwner(xcb_atom_t selection) {
    auto* server = connection();
    if (!server)
        return XCB_WINDOW_NONE;
    const auto cookie = xcb_get_selection_owner(server, selection);
    const Reply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(server, cookie, nullptr),
                                                       &std::free);
    return reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
}

xcb_window_t nativeWindow(QWidget* widget) {
    return static_cast<xcb_window_t>(widget->winId());
}

void setCardinals(xcb_window_t window, const char* property, const uint32_t* values, uint32_t count) {
    auto* server = connection();
    if (!server)
        return;
    xcb_change_property(server, XCB_PROP_MODE_REPLACE, window, atom(property), XCB_ATOM_CARDINAL, 32, count, values);
    xcb_flush(server);
}

void sendToWindowManager(xcb_window_t window, const char* message, const xcb_client_message_data_t& data) {
    auto* server = connection();
    if (!server)
        return;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    event.data = data;
    xcb_send_event(server, 0, root(), XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(server);
}

} // namespace Quillstacks::X11
