// Whatever two sequences the bytes make: diff() is what the plain search gives, and every result leads from the source
// to the target. Built by src/Differ with -D DIFFER_FUZZ=ON and clang.

#include "Differ/Differ.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Differ::Diff;
using Differ::ExtendedDiff;

#define REQUIRE(condition)                                                                                             \
    do {                                                                                                               \
        if (!(condition)) {                                                                                            \
            std::fprintf(stderr, "line %d: " #condition "\n", __LINE__);                                               \
            std::abort();                                                                                              \
        }                                                                                                              \
    } while (false)

Diff plainDiff(const std::string& source, const std::string& target) {
    Diff result;
    for (const Differ::Trace& trace : Differ::diffTraces(source, target)) {
        if (trace.isInsertion()) {
            result.elements.push_back(Diff::Element::insertAt(trace.from.y));
        } else if (trace.isDeletion()) {
            result.elements.push_back(Diff::Element::deleteAt(trace.from.x));
        }
    }
    return result;
}

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> result;
    for (const char letter : text) {
        result.emplace_back(1, letter);
    }
    return result;
}

/// The matches of the plain search, and those that the search by pairs finds, which diff() turns to in long sequences.
using Matches = std::vector<std::pair<Differ::Index, Differ::Index>>;

Matches plainMatches(const std::string& source, const std::string& target) {
    Matches matches;
    for (const Differ::Trace& trace : Differ::diffTraces(source, target)) {
        if (trace.isMatch()) {
            matches.emplace_back(trace.from.x, trace.from.y);
        }
    }
    return matches;
}

Matches pairedMatches(const std::vector<std::string>& source, const std::vector<std::string>& target) {
    namespace detail = Differ::detail;
    const detail::CommonElements common({detail::Indexed(source), detail::Indexed(target), 0});
    Matches matches;
    detail::PairSearch(common).run([&](Differ::Index x, Differ::Index y) {
        matches.emplace_back(common.source.places[static_cast<std::size_t>(x)],
                             common.target.places[static_cast<std::size_t>(y)]);
    });
    std::reverse(matches.begin(), matches.end());
    return matches;
}

template <class Steps>
std::string applied(const Steps& steps, std::string content) {
    for (const auto& step : steps) {
        using Kind = typename std::decay_t<decltype(step)>::Kind;
        if (step.kind() == Kind::insertion) {
            content.insert(content.begin() + step.index(), step.element());
        } else if (step.kind() == Kind::deletion) {
            content.erase(content.begin() + step.index());
        } else if constexpr (requires { step.from(); }) {
            const char moved = content.at(static_cast<std::size_t>(step.from()));
            content.erase(content.begin() + step.from());
            content.insert(content.begin() + step.to(), moved);
        }
    }
    return content;
}

/// An order of no meaning, which may contradict itself.
auto whim(std::uint8_t seed) {
    return [state = std::uint32_t{seed} + 1](const auto&, const auto&) mutable {
        state = state * 1664525U + 1013904223U;
        return (state >> 24U & 1U) != 0;
    };
}

void check(const std::string& source, const std::string& target, std::uint8_t seed) {
    const Diff diff = Differ::diff(source, target);
    REQUIRE(diff == plainDiff(source, target));
    REQUIRE(diff == Differ::diff(lines(source), lines(target)));
    REQUIRE(pairedMatches(lines(source), lines(target)) == plainMatches(source, target));
    const ExtendedDiff extended = Differ::extendedDiff(source, target);
    REQUIRE(extended == Differ::extendedDiff(lines(source), lines(target)));
    REQUIRE(applied(Differ::patch(source, target), source) == target);
    REQUIRE(applied(Differ::patch(source, target, whim(seed)), source) == target);
    REQUIRE(applied(Differ::extendedPatch(source, target), source) == target);
    REQUIRE(applied(Differ::extendedPatch(source, target, whim(seed)), source) == target);
}

} // namespace

/// The first byte is the seed of the order, the second the number of letters; what follows is cut in two at the first
/// zero byte.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    const unsigned letters = data[1] % 32U + 1U;
    std::string source;
    std::string target;
    bool isSource = true;
    for (std::size_t at = 2; at < size; ++at) {
        if (isSource && data[at] == 0) {
            isSource = false;
        } else {
            (isSource ? source : target).push_back(static_cast<char>('a' + data[at] % letters));
        }
    }
    check(source, target, data[0]);
    return 0;
}
