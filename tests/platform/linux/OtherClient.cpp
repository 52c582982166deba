#include "OtherClient.h"

#include <cstdlib>
#include <cstring>

namespace Quillstacks {

namespace {

template <typename T>
std::unique_ptr<T, decltype(&std::free)> owned(T* reply) {
    return {reply, &std::free};
}

} // namespace

OtherClient::OtherClient()
    : connection(xcb_connect(nullptr, nullptr)), screen(xcb_setup_roots_iterator(xcb_get_setup(connection)).data) {}

OtherClient::~OtherClient() {
    xcb_disconnect(connection);
}

bool OtherClient::grab(int key, quint16 modifiers) {
    const auto cookie = xcb_grab_key_checked(connection, 0, screen->root, modifiers, static_cast<xcb_keycode_t>(key),
                                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    return owned(xcb_request_check(connection, cookie)) == nullptr;
}

void OtherClient::ungrab(int key, quint16 modifiers) {
    xcb_ungrab_key(connection, static_cast<xcb_keycode_t>(key), screen->root, modifiers);
    settle();
}

bool OtherClient::couldGrab(int key, quint16 modifiers) {
    if (!grab(key, modifiers))
        return false;
    ungrab(key, modifiers);
    return true;
}

xcb_window_t OtherClient::makeWindow() {
    const xcb_window_t window = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0, 200, 200, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
    settle();
    return window;
}

xcb_window_t OtherClient::showWindow() {
    const xcb_window_t window = makeWindow();
    xcb_map_window(connection, window);
    settle();
    return window;
}

void OtherClient::destroyWindow(xcb_window_t window) {
    xcb_destroy_window(connection, window);
    settle();
}

void OtherClient::own(const char* selection, xcb_window_t window) {
    xcb_set_selection_owner(connection, window, atom(selection), XCB_CURRENT_TIME);
    settle();
}

xcb_atom_t OtherClient::atom(const char* name) {
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<uint16_t>(std::strlen(name)), name);
    const auto reply = owned(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_window_t OtherClient::activeWindow() {
    const auto values = property(screen->root, "_NET_ACTIVE_WINDOW");
    return values.empty() ? xcb_window_t{XCB_WINDOW_NONE} : values.front();
}

std::vector<quint32> OtherClient::property(xcb_window_t window, const char* name) {
    const auto cookie = xcb_get_property(connection, 0, window, atom(name), XCB_ATOM_ANY, 0, 10'000);
    const auto reply = owned(xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto* values = static_cast<const quint32*>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

std::optional<quint32> OtherClient::pixel(xcb_window_t window, int x, int y) {
    const auto cookie = xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, static_cast<int16_t>(x),
                                      static_cast<int16_t>(y), 1, 1, ~0U);
    const auto reply = owned(xcb_get_image_reply(connection, cookie, nullptr));
    if (!reply || xcb_get_image_data_length(reply.get()) < 4)
        return std::nullopt;
    quint32 value = 0;
    std::memcpy(&value, xcb_get_image_data(reply.get()), sizeof value);
    return value;
}

void OtherClient::uncover(xcb_window_t window) {
    xcb_clear_area(connection, 0, window, 0, 0, 0, 0);
    settle();
}

bool OtherClient::hasMessage(const char* type) {
    const xcb_atom_t wanted = atom(type);
    while (const auto event = owned(xcb_poll_for_event(connection)))
        if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE &&
            reinterpret_cast<const xcb_client_message_event_t*>(event.get())->type == wanted)
            return true;
    return false;
}

void OtherClient::settle() {
    // An answer to any question says that all before it has been done.
    owned(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

} // namespace Quillstacks
