#include "hotkeys/X11HotKeys.h"

#include "foundation/MainQueue.h"
#include "platform/VirtualKeys.h"

#include <QCoreApplication>

#include <chrono>
#include <cstdlib>
// The protocol's header has a field called "explicit".
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

namespace Quillstacks {

namespace {

constexpr quint32 evdevOffset = 8;
constexpr quint16 realModifiers = 0xff;
constexpr std::chrono::milliseconds mappingQuiet{50};

/// The head that all events of the keyboard extension share.
struct XkbEvent {
    quint8 responseType;
    quint8 xkbType;
};

} // namespace

X11HotKeys::X11HotKeys(xcb_connection_t* server, QObject* parent)
    : QObject(parent), connection(server), root(xcb_setup_roots_iterator(xcb_get_setup(server)).data->root),
      modifierMap(ModifierMap::read(server)) {
    const auto* extension = xcb_get_extension_data(connection, &xcb_xkb_id);
    if (extension && extension->present)
        xkbEvent = extension->first_event;
    QCoreApplication::instance()->installNativeEventFilter(this);
}

// The grabs end with the connection, which may be gone by now.
X11HotKeys::~X11HotKeys() = default;

HotKeys::Status X11HotKeys::grab(HotKeys::HotKeyRef ref, quint32 keyCode, quint32 modifiers) {
    const auto evdev = VirtualKeys::evdevFromVirtual(keyCode);
    if (!evdev)
        return HotKeys::eventHotKeyInvalidErr;
    readMapAgain();
    Grab added{.ref = ref, .key = static_cast<xcb_keycode_t>(*evdev + evdevOffset), .wanted = modifiers};
    const HotKeys::Status status = take(added);
    if (status == HotKeys::noErr)
        grabs.push_back(added);
    return status;
}

void X11HotKeys::release(HotKeys::HotKeyRef ref) {
    const auto found = std::ranges::find(grabs, ref, &Grab::ref);
    if (found == grabs.end())
        return;
    letGo(*found);
    grabs.erase(found);
}

HotKeys::Status X11HotKeys::take(Grab& grab) {
    const auto modifiers = modifierMap.xModifiers(grab.wanted);
    if (!modifiers)
        return HotKeys::eventHotKeyInvalidErr;
    std::vector<xcb_void_cookie_t> cookies;
    for (const quint16 lock : modifierMap.lockCombinations(*modifiers))
        cookies.push_back(xcb_grab_key_checked(connection, 1, root, static_cast<quint16>(*modifiers | lock), grab.key,
                                               XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    HotKeys::Status status = HotKeys::noErr;
    for (const auto cookie : cookies) {
        const std::unique_ptr<xcb_generic_error_t, decltype(&std::free)> error(xcb_request_check(connection, cookie),
                                                                               &std::free);
        if (error && status == HotKeys::noErr)
            status = error->error_code == XCB_ACCESS ? HotKeys::eventHotKeyExistsErr : HotKeys::eventHotKeyInvalidErr;
    }
    grab.xModifiers = modifiers;
    if (status != HotKeys::noErr)
        letGo(grab); // some of the combinations may have been granted
    return status;
}

void X11HotKeys::letGo(Grab& grab) {
    if (!grab.xModifiers)
        return;
    xcb_void_cookie_t last{};
    for (const quint16 lock : modifierMap.lockCombinations(*grab.xModifiers))
        last = xcb_ungrab_key_checked(connection, grab.key, root, static_cast<quint16>(*grab.xModifiers | lock));
    // Waits for the server: on return the combination is free for others.
    std::free(xcb_request_check(connection, last));
    grab.xModifiers.reset();
}

bool X11HotKeys::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/) {
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const int type = event->response_type & 0x7f;
    if (type == XCB_KEY_PRESS)
        return keyPressed(*reinterpret_cast<const xcb_key_press_event_t*>(event));
    // While a hot key is down, its grab takes the focus from the window that has it, and gives it back. The toolkit
    // would believe that within 0.4 s and take the program for inactive.
    if (type == XCB_FOCUS_OUT && !grabs.empty())
        return reinterpret_cast<const xcb_focus_out_event_t*>(event)->mode == XCB_NOTIFY_MODE_GRAB;
    if (type == XCB_KEY_RELEASE)
        keyReleased(*reinterpret_cast<const xcb_key_release_event_t*>(event));
    // The core protocol's own notice of a changed mapping never comes to a client that has chosen this extension, as
    // the toolkit has.
    if (xkbEvent != 0 && type == xkbEvent) {
        const int kind = reinterpret_cast<const XkbEvent*>(event)->xkbType;
        if (kind == XCB_XKB_NEW_KEYBOARD_NOTIFY || kind == XCB_XKB_MAP_NOTIFY)
            mappingChanged();
    }
    return false;
}

bool X11HotKeys::keyPressed(const xcb_key_press_event_t& event) {
    const auto state = static_cast<quint16>(event.state & realModifiers & ~modifierMap.locks);
    const auto found = std::ranges::find_if(grabs, [&](const Grab& grab) {
        return grab.key == event.detail && grab.xModifiers && state == (*grab.xModifiers & ~modifierMap.locks);
    });
    if (found == grabs.end())
        return false;
    // A key that repeats comes as a release and a press of the same moment. Whether the key counts as down is not kept:
    // a release that never came would make the hot key dead.
    const bool isRepeat = lastReleasedKey == event.detail && lastReleaseTime == event.time;
    if (!isRepeat)
        Q_EMIT pressed(found->ref, event.time);
    // A press while another program has the focus comes to the root window. The toolkit does nothing with that but to
    // note its time, and a window that is shown next needs that time to be let to the front.
    return event.event != root;
}

void X11HotKeys::keyReleased(const xcb_key_release_event_t& event) {
    lastReleasedKey = event.detail;
    lastReleaseTime = event.time;
}

void X11HotKeys::mappingChanged() {
    // A change comes as a burst of notices; only the last of them finds that no other came after it.
    const quint32 mine = ++mappingChanges;
    MainQueue::after(mappingQuiet, this, [this, mine] {
        if (mine == mappingChanges)
            readMapAgain();
    });
}

void X11HotKeys::readMapAgain() {
    const ModifierMap now = ModifierMap::read(connection);
    // Most changes are of the layout and leave the grabs good; letting go of them even for a moment could lose them.
    if (now != modifierMap)
        std::ranges::for_each(grabs, [this](Grab& grab) { letGo(grab); });
    modifierMap = now;
    // One that cannot be had under the new map stays known, and is tried again at the next change.
    for (Grab& grab : grabs)
        if (!grab.xModifiers)
            std::ignore = take(grab);
}

} // namespace Quillstacks
