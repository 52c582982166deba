#include "platform/HotKeys.h"

#include "hotkeys/PortalHotKeys.h"
#include "hotkeys/X11HotKeys.h"
#include "instance/StartupToken.h"
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
    QPointer<X11HotKeys> x11;
    QPointer<PortalHotKeys> portal;
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

// Each is made at the first need; nullptr where the user's session is not of its kind.

PortalHotKeys* portalBackEnd() {
    auto* portal = PortalHotKeys::shared();
    QPointer<PortalHotKeys>& known = registry().portal;
    if (portal && !known) {
        known = portal;
        QObject::connect(portal, &PortalHotKeys::pressed, portal,
                         [](HotKeyRef hotKey, quint32 time, const QString& activationToken) {
                             StartupToken::useForNextActivation(activationToken);
                             deliver(hotKey, time);
                         });
    }
    return portal;
}

X11HotKeys* x11BackEnd() {
    QPointer<X11HotKeys>& instance = registry().x11;
    auto* connection = X11::connection();
    if (!instance && connection && !Session::isWayland()) {
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

Status registerEventHotKey(quint32 keyCode, quint32 modifiers, EventHotKeyID id, HotKeyRef* out, Answer answered) {
    Registry& all = registry();
    const HotKeyRef ref = ++all.lastHotKey;
    Status status = eventHotKeyInvalidErr;
    // A grab through XWayland is granted and never fires; no hot key is better than a dead one.
    if (auto* portal = portalBackEnd())
        status = portal->grab(ref, keyCode, modifiers, std::move(answered));
    else if (auto* keys = x11BackEnd())
        status = keys->grab(ref, keyCode, modifiers);
    if (status != noErr && status != answerPending)
        return status;
    all.hotKeys.emplace(ref, id);
    *out = ref;
    return status;
}

void unregisterEventHotKey(HotKeyRef hotKey) {
    Registry& all = registry();
    if (all.hotKeys.erase(hotKey) == 0)
        return;
    // Not made anew: at the end of the process there may be none any more.
    if (all.portal)
        all.portal->release(hotKey);
    if (all.x11)
        all.x11->release(hotKey);
}

bool isSupported() {
    if (const auto* portal = portalBackEnd())
        return portal->isSupported();
    return x11BackEnd() != nullptr;
}

quint32 takeEventTime() {
    return std::exchange(registry().lastTime, 0);
}

} // namespace Quillstacks::HotKeys
