#include "hotkey/HotkeyManager.h"

#include "foundation/Log.h"
#include "foundation/MainQueue.h"
#include "hotkey/HotkeyPreferences.h"
#include "hotkey/ShortcutDisplay.h"
#include "platform/Accessibility.h"

#include <QPointer>

#include <array>
#include <limits>
#include <utility>

namespace Quillstacks {

namespace {

constexpr std::string_view signature = "QSTK";
constexpr quint32 identifier = 1;

/// Nobody but the recorder writes these, and it cannot produce such values: what stands there is not ours to guess at.
[[noreturn]] void endProcess(const char* what, qint64 value) {
    qFatal("%s cannot be converted: %lld", what, static_cast<long long>(value));
}

quint32 storedKeyCode() {
    const qint64 value = globalHotkeyKeyCodePreference().value();
    if (value < 0 || value > std::numeric_limits<quint32>::max())
        endProcess("The stored key code", value);
    return static_cast<quint32>(value);
}

quint32 storedModifiers() {
    const qint64 value = globalHotkeyModifiersPreference().value();
    if (value < 0)
        endProcess("The stored modifiers", value);
    return static_cast<quint32>(value); // the flags are in the low half
}

} // namespace

HotkeyManager& HotkeyManager::shared() {
    // Never destroyed: the hot key ends with the process, and the desktop's connection is closed by then.
    static auto* const instance = new HotkeyManager;
    return *instance;
}

HotkeyManager::HotkeyManager() : hotKeyID{.signature = fourCharCode(signature), .id = identifier} {}

HotkeyManager::~HotkeyManager() {
    unregister();
    onHotkeyPressed = nullptr;
}

void HotkeyManager::registerHotkey(std::optional<quint32> keyCode, std::optional<quint32> modifiers) {
    unregister();
    if (!Accessibility::isProcessTrusted(false))
        Log::hotkey.error(QStringLiteral("Accessibility permissions not granted. Hotkey registration may fail."));
    // Read also when both are given, so that a value that makes no sense is noticed at the first registration.
    const quint32 savedKeyCode = storedKeyCode();
    const quint32 savedModifiers = storedModifiers();
    const quint32 effectiveKeyCode = keyCode.value_or(savedKeyCode);
    const quint32 effectiveModifiers = modifiers ? *modifiers : carbonModifiers(savedModifiers);

    eventHandler = HotKeys::installEventHandler(
        [self = QPointer<HotkeyManager>(this)](const HotKeys::Event& event) { return handleEvent(self, event); });
    HotKeys::HotKeyRef registered = 0;
    const HotKeys::Status status = HotKeys::registerEventHotKey(
        effectiveKeyCode, effectiveModifiers, hotKeyID, &registered,
        [self = QPointer<HotkeyManager>(this), effectiveKeyCode, effectiveModifiers](HotKeys::Status answer) {
            if (self)
                self->registrationAnswered(effectiveKeyCode, effectiveModifiers, answer);
        });
    if (status == HotKeys::noErr || status == HotKeys::answerPending)
        requestedRef = registered;
    if (status != HotKeys::answerPending)
        registrationAnswered(effectiveKeyCode, effectiveModifiers, status);
}

void HotkeyManager::registrationAnswered(quint32 keyCode, quint32 modifiers, HotKeys::Status status) {
    hotKeyRef = status == HotKeys::noErr ? requestedRef : std::nullopt;
    Log::logHotkeyRegistration(keyCode, modifiers, status == HotKeys::noErr);
    if (status != HotKeys::noErr)
        Log::hotkey.error(QStringLiteral("RegisterEventHotKey failed with status: %1").arg(status));
}

void HotkeyManager::unregister() {
    if (requestedRef)
        HotKeys::unregisterEventHotKey(*std::exchange(requestedRef, std::nullopt));
    if (std::exchange(hotKeyRef, std::nullopt))
        Log::hotkey.debug(QStringLiteral("Hotkey unregistered"));
    // Stands also after a registration that failed.
    if (eventHandler)
        HotKeys::removeEventHandler(*std::exchange(eventHandler, std::nullopt));
}

void HotkeyManager::registerIfPermitted() {
    if (!Accessibility::isProcessTrusted(false)) {
        Log::permissions.standard(QStringLiteral("No accessibility permission, hotkey registration skipped"));
        return;
    }
    Log::permissions.info(QStringLiteral("Permission already granted, registering hotkey"));
    unregister();
    registerHotkey();
}

void HotkeyManager::requestPermissionAndRegister() {
    Log::permissions.info(QStringLiteral("Requesting accessibility permission via system dialog"));
    if (!Accessibility::isProcessTrusted(true)) {
        Log::permissions.standard(QStringLiteral("Permission not granted yet, waiting for user action"));
        return;
    }
    Log::logPermission(QStringLiteral("Accessibility"), true);
    unregister();
    registerHotkey();
}

HotKeys::Status HotkeyManager::handleEvent(HotkeyManager* userData, const HotKeys::Event& event) {
    if (!userData)
        return HotKeys::eventNotHandledErr;
    // Which hot key it was is not asked: there is one, and any that is delivered here counts as its press.
    if (event.parameterStatus == HotKeys::noErr)
        MainQueue::async(userData, [userData] {
            if (const auto pressed = userData->onHotkeyPressed)
                pressed();
        });
    return HotKeys::noErr;
}

quint32 carbonModifiers(quint32 from) {
    static constexpr std::array<std::pair<quint64, quint32>, 4> bits = {{
        {ModifierFlags::command, HotKeys::commandBit},
        {ModifierFlags::shift, HotKeys::shiftBit},
        {ModifierFlags::option, HotKeys::optionBit},
        {ModifierFlags::control, HotKeys::controlBit},
    }};
    quint32 result = 0;
    for (const auto& [flag, bit] : bits)
        if ((from & flag) != 0)
            result |= bit;
    return result;
}

quint32 fourCharCode(std::string_view text) {
    quint32 code = 0;
    for (size_t index = 0; index < 4; ++index)
        code = (code << 8) | (index < text.size() ? static_cast<quint8>(text[index]) : 0U);
    return code;
}

} // namespace Quillstacks
