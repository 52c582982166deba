#include "Observer.h"

#include <xcb/xtest.h>

#include <poll.h>
#include <stdexcept>

namespace Quillstacks::Bench {

Observer::Observer() : connection(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection))
        throw std::runtime_error("no display");
    root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    symbols = xcb_key_symbols_alloc(connection);
    const auto* damage = xcb_get_extension_data(connection, &xcb_damage_id);
    const auto* test = xcb_get_extension_data(connection, &xcb_test_id);
    if (!damage->present || !test->present)
        throw std::runtime_error("the display has no damage or no test extension");
    firstDamageEvent = damage->first_event;
    const Held<xcb_damage_query_version_reply_t> version(
        xcb_damage_query_version_reply(connection, xcb_damage_query_version(connection, 1, 1), nullptr));
}

Observer::~Observer() {
    xcb_key_symbols_free(symbols);
    xcb_disconnect(connection);
}

void Observer::observe(xcb_window_t window) {
    const uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_FOCUS_CHANGE;
    xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &events);
    // Every drawing on its own, so that the moment of each is known.
    xcb_damage_create(connection, xcb_generate_id(connection), window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    xcb_flush(connection);
}

void Observer::observeTopLevels() {
    const uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection, root, XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection);
}

void Observer::observeAll() {
    observeTopLevels();
    observesNew = true;
    // A managed window lies in a frame of the window manager's.
    observeBelow(root, 2);
}

void Observer::observeBelow(xcb_window_t parent, int levels) {
    const Held<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection, xcb_query_tree(connection, parent), nullptr));
    if (!tree)
        return;
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    for (int index = 0; index < xcb_query_tree_children_length(tree.get()); ++index) {
        const Size size = sizeOf(children[index]);
        if (size.width >= smallestWindow && size.height >= smallestWindow)
            observe(children[index]);
        if (levels > 1)
            observeBelow(children[index], levels - 1);
    }
}

Moment Observer::send(xcb_keysym_t symbol, bool isDown) {
    const Held<xcb_keycode_t> codes(xcb_key_symbols_get_keycode(symbols, symbol));
    if (!codes || *codes == XCB_NO_SYMBOL)
        throw std::runtime_error("no key for this symbol");
    xcb_test_fake_input(connection, isDown ? XCB_KEY_PRESS : XCB_KEY_RELEASE, *codes, XCB_CURRENT_TIME, root, 0, 0, 0);
    const Moment sent = std::chrono::steady_clock::now();
    xcb_flush(connection);
    return sent;
}

void Observer::tap(xcb_keysym_t symbol) {
    send(symbol, true);
    send(symbol, false);
}

std::optional<Seen> Observer::translate(const xcb_generic_event_t& event) {
    const Moment now = std::chrono::steady_clock::now();
    const int type = event.response_type & 0x7f;
    if (type == firstDamageEvent + XCB_DAMAGE_NOTIFY) {
        const auto& damage = reinterpret_cast<const xcb_damage_notify_event_t&>(event);
        return Seen{Seen::What::painted, damage.drawable, now, damage.area.width, damage.area.height};
    }
    if (type == XCB_CREATE_NOTIFY && observesNew) {
        const auto& made = reinterpret_cast<const xcb_create_notify_event_t&>(event);
        if (made.width >= smallestWindow && made.height >= smallestWindow)
            observe(made.window);
    }
    if (type == XCB_MAP_NOTIFY)
        return Seen{Seen::What::mapped, reinterpret_cast<const xcb_map_notify_event_t&>(event).window, now};
    if (type == XCB_UNMAP_NOTIFY)
        return Seen{Seen::What::unmapped, reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window, now};
    if (type == XCB_FOCUS_IN) {
        const auto& focus = reinterpret_cast<const xcb_focus_in_event_t&>(event);
        if (focus.detail != XCB_NOTIFY_DETAIL_POINTER)
            return Seen{Seen::What::focused, focus.event, now};
    }
    return std::nullopt;
}

std::optional<Seen> Observer::next(Moment limit) {
    for (;;) {
        while (const Held<xcb_generic_event_t> event{xcb_poll_for_event(connection)})
            if (const auto seen = translate(*event))
                return seen;
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(limit - std::chrono::steady_clock::now());
        pollfd readable{xcb_get_file_descriptor(connection), POLLIN, 0};
        if (left.count() <= 0 || poll(&readable, 1, static_cast<int>(left.count())) == 0)
            return std::nullopt;
        if (xcb_connection_has_error(connection))
            throw std::runtime_error("the display is gone");
    }
}

void Observer::waitForQuiet(std::chrono::milliseconds quiet) {
    while (next(std::chrono::steady_clock::now() + quiet))
        continue;
}

Observer::Size Observer::sizeOf(xcb_window_t window) const {
    const Held<xcb_get_geometry_reply_t> reply(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr));
    return reply ? Size{reply->width, reply->height} : Size{};
}

} // namespace Quillstacks::Bench
