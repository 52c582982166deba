#include "hotkey/HotkeyRecording.h"

#include "foundation/MainQueue.h"
#include "hotkey/HotkeyManager.h"
#include "KeyMonitor.h"

namespace Quillstacks {

namespace {

constexpr double restoreDelay = 0.1; ///< seconds

/// Makes the stored shortcut live again.
void scheduleRestore() {
    MainQueue::after(restoreDelay, nullptr, [] { HotkeyManager::shared().registerHotkey(); });
}

} // namespace

std::shared_ptr<HotkeyRecording> HotkeyRecording::make(OnRecord onRecord, AfterCapture after) {
    return std::shared_ptr<HotkeyRecording>(new HotkeyRecording(std::move(onRecord), after));
}

void HotkeyRecording::toggle() {
    recording = !recording;
    if (recording)
        start();
    else
        scheduleRestore();
    Q_EMIT changed();
}

void HotkeyRecording::start() {
    recordedModifiers.reset();
    recordedKeyCode.reset();
    // So that pressing the old shortcut comes here and does not open the panel.
    HotkeyManager::shared().unregister();
    // One more with each recording; those before it stand down while this one is not recording.
    KeyMonitor::add(
        {.isListening = [self = shared_from_this()] { return self->isRecording(); },
         .keyDown = [self = shared_from_this()](
                        const KeyMonitor::KeyDown& key) { return self->handle(key.modifiers, key.keyCode); }});
}

bool HotkeyRecording::handle(quint64 modifiers, std::optional<quint16> keyCode) {
    // A plain key is refused, and so is the key of code 0, the letter A, whatever its modifiers.
    if (modifiers == 0 || keyCode.value_or(0) == 0)
        return true;
    recordedModifiers = modifiers;
    recordedKeyCode = keyCode;
    onRecord(modifiers, *keyCode);
    recording = false;
    if (afterCapture == AfterCapture::restores)
        scheduleRestore();
    Q_EMIT changed();
    return true;
}

} // namespace Quillstacks
