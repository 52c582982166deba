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
    if (number < 0) {
        digits.insert(digits.begin(), '-');
    }
    return digits;
}

[[nodiscard]] constexpr std::string debugText(char letter, Index at) {
    std::string result{letter, '('};
    result += text(at);
    result += ')';
    return result;
}

[[nodiscard]] constexpr std::string debugText(char letter, Index from, Index to) {
    std::string result{letter, '('};
    result += text(from);
    result += ',';
    result += text(to);
    result += ')';
    return result;
}

} // namespace Differ::detail
