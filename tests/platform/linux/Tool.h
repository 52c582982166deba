#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace Quillstacks {

/// Runs the main loop until this holds; false when it does not within ten seconds.
[[nodiscard]] bool eventually(const std::function<bool()>& holds);

/// Runs a program of the desktop to its end while the main loop goes on, and gives what it wrote. A failure is the
/// test's failure.
QString run(const QString& program, const QStringList& arguments);

/// Keys by X key code, so that no layout comes between: xdotool's "keydown", "keyup" or "key" for each in order.
void keys(const char* action, std::initializer_list<int> keyCodes);
/// Presses and releases a combination: modifiers down, the key, modifiers up.
void press(std::initializer_list<int> modifiers, int key);

// X key codes of a PC keyboard: the evdev code and 8.
namespace Key {
inline constexpr int control = 37;
inline constexpr int shift = 50;
inline constexpr int alt = 64;
inline constexpr int super = 133;
inline constexpr int space = 65;
inline constexpr int z = 52; ///< the place left below; a German layout has Y there
inline constexpr int one = 10;
inline constexpr int f9 = 75;
} // namespace Key

} // namespace Quillstacks
