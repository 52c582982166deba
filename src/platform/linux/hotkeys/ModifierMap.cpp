#include "hotkeys/ModifierMap.h"

#include "platform/HotKeys.h"

#include <array>
#include <cstdlib>
#include <memory>
#include <xcb/xcb_keysyms.h>

namespace Quillstacks {

namespace {

// From the X protocol's list of key symbols.
constexpr xcb_keysym_t scrollLock = 0xff14;
constexpr xcb_keysym_t numLock = 0xff7f;
constexpr xcb_keysym_t altLeft = 0xffe9;
constexpr xcb_keysym_t altRight = 0xffea;
constexpr xcb_keysym_t superLeft = 0xffeb;
constexpr xcb_keysym_t superRight = 0xffec;
constexpr int symbolColumns = 4; // two groups of two levels each

void note(xcb_keysym_t symbol, quint16 bit, ModifierMap& map) {
    switch (symbol) {
    case scrollLock:
    case numLock:
        map.locks |= bit;
        break;
    case altLeft:
    case altRight:
        map.alt = map.alt ? map.alt : bit;
        break;
    case superLeft:
    case superRight:
        map.super = map.super ? map.super : bit;
        break;
    default:
        break;
    }
}

} // namespace

ModifierMap ModifierMap::read(xcb_connection_t* connection) {
    ModifierMap map;
    const std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)> symbols(xcb_key_symbols_alloc(connection),
                                                                                      &xcb_key_symbols_free);
    const std::unique_ptr<xcb_get_modifier_mapping_reply_t, decltype(&std::free)> reply(
        xcb_get_modifier_mapping_reply(connection, xcb_get_modifier_mapping(connection), nullptr), &std::free);
    if (!symbols || !reply)
        return map;
    const xcb_keycode_t* keys = xcb_get_modifier_mapping_keycodes(reply.get());
    // The first three, Shift, Lock and Control, have their meaning by their place.
    for (int modifier = 3; modifier < 8; ++modifier) {
        const auto bit = static_cast<quint16>(1U << modifier);
        for (int index = 0; index < reply->keycodes_per_modifier; ++index) {
            const xcb_keycode_t key = keys[modifier * reply->keycodes_per_modifier + index];
            for (int column = 0; key != 0 && column < symbolColumns; ++column)
                note(xcb_key_symbols_get_keysym(symbols.get(), key, column), bit, map);
        }
    }
    return map;
}

std::optional<quint16> ModifierMap::xModifiers(quint32 hotKeyModifiers) const {
    const std::array<std::pair<quint32, quint16>, 4> bits = {{
        {HotKeys::commandBit, quint16{XCB_MOD_MASK_CONTROL}},
        {HotKeys::shiftBit, quint16{XCB_MOD_MASK_SHIFT}},
        {HotKeys::optionBit, alt},
        {HotKeys::controlBit, super},
    }};
    quint16 wanted = 0;
    for (const auto& [hotKeyBit, xBit] : bits) {
        if ((hotKeyModifiers & hotKeyBit) == 0)
            continue;
        if (xBit == 0)
            return std::nullopt;
        wanted |= xBit;
    }
    return wanted;
}

std::vector<quint16> ModifierMap::lockCombinations(quint16 modifiers) const {
    const auto free = static_cast<quint16>(locks & ~modifiers);
    std::vector<quint16> combinations;
    // Counts down through every subset of the bits.
    for (quint16 subset = free;; subset = static_cast<quint16>((subset - 1) & free)) {
        combinations.push_back(subset);
        if (subset == 0)
            return combinations;
    }
}

} // namespace Quillstacks
