#pragma once

#include <QtGlobal>

#include <functional>

/// System-wide hot keys, one event handler and one key at a time per reference. Keys are virtual key codes (positions
/// on an ANSI keyboard), modifiers the four bits below.
namespace Quillstacks::HotKeys {

using Status = qint32;
inline constexpr Status noErr = 0;
inline constexpr Status answerPending = 1; ///< the desktop has been asked, and tells later
inline constexpr Status eventNotHandledErr = -9874;
inline constexpr Status eventHotKeyExistsErr = -9878;  ///< another program holds the combination
inline constexpr Status eventHotKeyInvalidErr = -9879; ///< no such key here, or no service that could grab it

inline constexpr quint32 commandBit = 0x100;
inline constexpr quint32 shiftBit = 0x200;
inline constexpr quint32 optionBit = 0x800;
inline constexpr quint32 controlBit = 0x1000;

struct EventHotKeyID {
    quint32 signature = 0;
    quint32 id = 0;
    friend bool operator==(const EventHotKeyID&, const EventHotKeyID&) = default;
};

/// A press, as the handler gets it.
struct Event {
    Status parameterStatus = noErr; ///< what reading the identifier gives
    EventHotKeyID hotKeyID;
    quint32 time = 0; ///< of the key press, in milliseconds of the window system; 0 when there is none
};

using Handler = std::function<Status(const Event&)>;
using HandlerRef = quint64; ///< 0: none
using HotKeyRef = quint64;  ///< 0: none

[[nodiscard]] HandlerRef installEventHandler(Handler handler);
void removeEventHandler(HandlerRef handler);
/// What a pending registration has come to: noErr, or why there is no hot key. Told again whenever that changes, as
/// when the desktop takes the key away or gives it after all; never from within a call of these functions, and not
/// after the registration's end.
using Answer = std::function<void(Status)>;

/// Grabs the combination, whatever the state of the lock keys. On success, or while pending, `*out` is set. Survives
/// changes of the layout and of the modifier map. One press fires once until the key is released.
[[nodiscard]] Status registerEventHotKey(quint32 keyCode, quint32 modifiers, EventHotKeyID id, HotKeyRef* out,
                                         Answer answered = {});
void unregisterEventHotKey(HotKeyRef hotKey);

/// Whether programs can have hot keys on this desktop at all, as far as is known by now.
[[nodiscard]] bool isSupported();

/// The time stamp of the press that was delivered last, once: 0 after it was taken, and when there was none. A window
/// that a press opens asks for the focus with it; one that is opened otherwise must not come with the time of a press
/// long ago.
[[nodiscard]] quint32 takeEventTime();

} // namespace Quillstacks::HotKeys
