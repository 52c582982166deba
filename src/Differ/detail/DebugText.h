#pragma once

#include "Differ/Point.h"

#include <string>

namespace Differ::detail {

/// The number in decimal; std::to_string, but at compile time too.
[[nodiscard]] constexpr std::string text(Index number) {
    std::string digits;
    for (Index rest = number; rest != 0 || digits.empty(); rest /= 10) {
        const Index digit = rest % 10;
        digits.insert(digits.begin(), static_cast<char>('0' + (digit < 0 ? -digit : digit)));
    }
    return number < 0 ? "-" + digits : digits;
}

[[nodiscard]] constexpr std::string debugText(char letter, Index at) {
    return letter + ("(" + text(at) + ")");
}

[[nodiscard]] constexpr std::string debugText(char letter, Index from, Index to) {
    return letter + ("(" + text(from) + "," + text(to) + ")");
}

} // namespace Differ::detail
