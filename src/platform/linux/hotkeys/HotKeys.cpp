#include "platform/HotKeys.h"

#include "hotkeys/X11HotKeys.h"
#include "Session.h"
#include "x11/Connection.h"

#include <QCoreApplication>
#include <QPointer>

#include <map>
#include <utility>

namespace Quillstacks::HotKeys {

namespace {

struct Registry {
    std::map<HandlerRef, Handler> handlers;
    std::map<HotKeyRef, EventHotKeyID> hotKeys;
    HandlerRef lastHandler = 0;
    HotKeyRef lastHotKey = 0;
    quint32 lastTime = 0;
};

Registry& registry() {
    static Registry instance;
    return instance;
}

void deliver(HotKeyRef hotKey, quint32 time) {
    Registry& all = registry();
    all.lastTime = time;
    const auto found = all.hotKeys.find(hotKey);
    if (found == all.hotKeys.end())
        return; // unregistered while its press was on the way
    const Event event{.hotKeyID = found->second, .time = time};
    // The newest first, on a copy: a handler may remove itself.
    const auto handlers = all.handlers;
    for (auto handler = handlers.rbegin(); handler != handlers.rend(); ++handler)
        if (handler->second(event) != eventNotHandledErr)
            return;
}

QPointer<X11HotKeys>& x11BackEnd() {
    static QPointer<X11HotKeys> instance;
    return instance;
}

/// The back end of the user's session, made at the first need; nullptr where keys cannot be grabbed.
X11HotKeys* backEnd() {
    // A grab through XWayland is granted and never fires; no hot key is better than a dead one.
    if (Session::isWayland())
        return nullptr;
    QPointer<X11HotKeys>& instance = x11BackEnd();
    auto* connection = X11::connection();
    if (!instance && connection) {
        instance = new X11HotKeys(connection, QCoreApplication::instance());
        QObject::connect(instance, &X11HotKeys::pressed, instance, &deliver);
    }
    return instance;
}

} // namespace

HandlerRef installEventHandler(Handler handler) {
    Registry& all = registry();
    all.handlers.emplace(++all.lastHandler, std::move(handler));
    return all.lastHandler;
}

void removeEventHandler(HandlerRef handler) {
    registry().handlers.erase(handler);
}

Status registerEventHotKey(quint32 keyCode, quint32 modifiers, EventHotKeyID id, HotKeyRef* out) {
    auto* keys = backEnd();
    if (!keys)
        return eventHotKeyInvalidErr;
    Registry& all = registry();
    const HotKeyRef ref = ++all.lastHotKey;
    const Status status = keys->grab(ref, keyCode, modifiers);
    if (status != noErr)
        return status;
    all.hotKeys.emplace(ref, id);
    *out = ref;
    return noErr;
}

void unregisterEventHotKey(HotKeyRef hotKey) {
    if (registry().hotKeys.erase(hotKey) == 0)
        return;
    // Not backEnd(): at the end of the process there may be none any more, and none must be made.
    if (x11BackEnd())
        x11BackEnd()->release(hotKey);
}

quint32 takeEventTime() {
    return std::exchange(registry().lastTime, 0);
}

} // namespace Quillstacks::HotKeys
