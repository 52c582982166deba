#include "hotkeys/PortalTrigger.h"

#include "platform/HotKeys.h"
#include "platform/VirtualKeys.h"

#include <array>
#include <cstdlib>
#include <memory>
#include <utility>
#include <xcb/xcb_keysyms.h>
#include <xkbcommon/xkbcommon.h>
// The protocol's header has a field called "explicit".
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

namespace Quillstacks {

namespace {

constexpr quint32 evdevOffset = 8;

/// The layout in force, the first being 0.
quint8 currentGroup(xcb_connection_t* server) {
    std::free(xcb_xkb_use_extension_reply(server, xcb_xkb_use_extension(server, 1, 0), nullptr));
    const std::unique_ptr<xcb_xkb_get_state_reply_t, decltype(&std::free)> state(
        xcb_xkb_get_state_reply(server, xcb_xkb_get_state(server, XCB_XKB_ID_USE_CORE_KBD), nullptr), &std::free);
    return state ? state->group : quint8{0};
}

/// What the X server that Wayland desktops run beside themselves knows: the compositor gives it the user's layout,
/// while it tells its own clients of it only once they have the focus. 0 where there is no such server.
xkb_keysym_t symbolOfX(quint32 keyCode) {
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> server(xcb_connect(nullptr, nullptr),
                                                                              &xcb_disconnect);
    if (xcb_connection_has_error(server.get()) != 0)
        return XKB_KEY_NoSymbol;
    const std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)> symbols(
        xcb_key_symbols_alloc(server.get()), &xcb_key_symbols_free);
    if (!symbols)
        return XKB_KEY_NoSymbol;
    // Two symbols, with and without Shift, for each of the layouts.
    const int column = currentGroup(server.get()) == 1 ? 2 : 0;
    const auto key = static_cast<xcb_keycode_t>(keyCode);
    const xcb_keysym_t symbol = xcb_key_symbols_get_keysym(symbols.get(), key, column);
    return symbol != XKB_KEY_NoSymbol ? symbol : xcb_key_symbols_get_keysym(symbols.get(), key, 0);
}

/// What the system's default layout has.
xkb_keysym_t symbolByDefault(quint32 keyCode) {
    const std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> context(xkb_context_new(XKB_CONTEXT_NO_FLAGS),
                                                                             &xkb_context_unref);
    if (!context)
        return XKB_KEY_NoSymbol;
    const std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)> keymap(
        xkb_keymap_new_from_names(context.get(), nullptr, XKB_KEYMAP_COMPILE_NO_FLAGS), &xkb_keymap_unref);
    const xkb_keysym_t* symbols = nullptr;
    if (!keymap || xkb_keymap_key_get_syms_by_level(keymap.get(), keyCode, 0, 0, &symbols) < 1)
        return XKB_KEY_NoSymbol;
    return symbols[0];
}

} // namespace

std::optional<QString> portalTrigger(quint32 keyCode, quint32 modifiers) {
    static constexpr std::array<std::pair<quint32, const char*>, 4> names = {{
        {HotKeys::commandBit, "CTRL+"},
        {HotKeys::shiftBit, "SHIFT+"},
        {HotKeys::optionBit, "ALT+"},
        {HotKeys::controlBit, "LOGO+"},
    }};
    const auto evdev = VirtualKeys::evdevFromVirtual(keyCode);
    if (!evdev)
        return std::nullopt;
    xkb_keysym_t symbol = symbolOfX(*evdev + evdevOffset);
    if (symbol == XKB_KEY_NoSymbol)
        symbol = symbolByDefault(*evdev + evdevOffset);
    std::array<char, 64> name{};
    if (symbol == XKB_KEY_NoSymbol || xkb_keysym_get_name(symbol, name.data(), name.size()) < 1)
        return std::nullopt;
    QString trigger;
    for (const auto& [bit, text] : names)
        if ((modifiers & bit) != 0)
            trigger += QLatin1String(text);
    return trigger + QString::fromLatin1(name.data());
}

} // namespace Quillstacks
