#include "platform/HotKeys.h"

#include "platform/FakeDesktop.h"

#include <utility>

namespace Quillstacks {

HotKeys::Status FakeDesktop::press(HotKeys::Status parameterStatus, quint32 time) {
    const HotKeys::EventHotKeyID id = hotKeys.empty() ? HotKeys::EventHotKeyID() : hotKeys.begin()->second.id;
    return press(HotKeys::Event{.parameterStatus = parameterStatus, .hotKeyID = id, .time = time});
}

HotKeys::Status FakeDesktop::press(const HotKeys::Event& event) {
    eventTime = event.time;
    if (handlers.empty())
        return HotKeys::eventNotHandledErr;
    const HotKeys::Handler newest = handlers.rbegin()->second;
    return newest(event);
}

void FakeDesktop::answerHotKeys(HotKeys::Status status) {
    const auto waiting = hotKeyAnswers;
    for (const auto& [ref, answered] : waiting)
        answered(status);
}

namespace HotKeys {

HandlerRef installEventHandler(Handler handler) {
    FakeDesktop& desktop = FakeDesktop::shared();
    desktop.note(QStringLiteral("installEventHandler"));
    desktop.handlers.emplace(++desktop.lastRef, std::move(handler));
    return desktop.lastRef;
}

void removeEventHandler(HandlerRef handler) {
    FakeDesktop::shared().note(QStringLiteral("removeEventHandler"));
    FakeDesktop::shared().handlers.erase(handler);
}

Status registerEventHotKey(quint32 keyCode, quint32 modifiers, EventHotKeyID id, HotKeyRef* out, Answer answered) {
    FakeDesktop& desktop = FakeDesktop::shared();
    desktop.note(QStringLiteral("registerEventHotKey %1 0x%2").arg(keyCode).arg(modifiers, 0, 16));
    if (desktop.registerStatus != noErr)
        return desktop.registerStatus;
    desktop.hotKeys.emplace(++desktop.lastRef, FakeDesktop::HotKey{keyCode, modifiers, id});
    *out = desktop.lastRef;
    if (!desktop.hotKeysAnswerLater)
        return noErr;
    desktop.hotKeyAnswers.emplace(desktop.lastRef, std::move(answered));
    return answerPending;
}

void unregisterEventHotKey(HotKeyRef hotKey) {
    FakeDesktop::shared().note(QStringLiteral("unregisterEventHotKey"));
    FakeDesktop::shared().hotKeys.erase(hotKey);
    FakeDesktop::shared().hotKeyAnswers.erase(hotKey);
}

bool isSupported() {
    return FakeDesktop::shared().hotKeysSupported;
}

quint32 takeEventTime() {
    return std::exchange(FakeDesktop::shared().eventTime, 0);
}

} // namespace HotKeys
} // namespace Quillstacks
