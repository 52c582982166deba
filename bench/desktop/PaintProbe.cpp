// How long other programs take, seen from outside: the same probe looks at ours and at its peers.
//
//   bench_paint_probe start ROUNDS COMMAND [ARGUMENT…]   from the start of a process to its first window's mapping
//   bench_paint_probe panel ROUNDS                       from the hot key to mapped, painted and focused
//   bench_paint_probe keys WINDOW ROUNDS LETTERS         from each letter's key press to the last painting that it
//   causes
//
// Prints one line a measurement, in milliseconds.
#include "Observer.h"

#include <X11/keysym.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace Quillstacks::Bench {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 10s;
/// A painting that comes later than this after the one before has another cause: the cursor's blinking, say.
constexpr auto burstGap = 40ms;

Moment soon() {
    return std::chrono::steady_clock::now() + patience;
}

Seen waitFor(Observer& observer, Seen::What what) {
    const Moment limit = soon();
    while (const auto seen = observer.next(limit))
        if (seen->what == what)
            return *seen;
    throw std::runtime_error("what was waited for did not come");
}

pid_t launch(char** command) {
    const pid_t process = fork();
    if (process == 0) {
        // Its log is nobody's business here.
        dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
        execvp(command[0], command);
        _exit(127);
    }
    return process;
}

void end(pid_t process) {
    kill(process, SIGTERM);
    waitpid(process, nullptr, 0);
}

void measureStart(int rounds, char** command) {
    Observer observer;
    observer.observeTopLevels();
    for (int round = 0; round < rounds; ++round) {
        observer.waitForQuiet(300ms);
        const Moment begun = std::chrono::steady_clock::now();
        const pid_t process = launch(command);
        Seen seen = waitFor(observer, Seen::What::mapped);
        for (auto size = observer.sizeOf(seen.window); size.width < smallestWindow || size.height < smallestWindow;
             size = observer.sizeOf(seen.window))
            seen = waitFor(observer, Seen::What::mapped);
        std::printf("mapped %.3f\n", milliseconds(begun, seen.when));
        observer.waitForQuiet(300ms);
        end(process);
    }
}

struct Opening {
    std::optional<Moment> mapped;
    std::optional<Moment> focused;
    std::optional<Moment> painted; ///< the first painting of the whole window
    Moment settled{};              ///< the last one that follows without a pause
    [[nodiscard]] bool isComplete() const { return mapped && focused && painted; }
};

void note(Opening& opening, const Seen& seen, Observer::Size size) {
    if (seen.what == Seen::What::mapped)
        opening.mapped = opening.mapped.value_or(seen.when);
    else if (seen.what == Seen::What::focused)
        opening.focused = opening.focused.value_or(seen.when);
    else if (seen.what == Seen::What::painted && opening.mapped) {
        opening.settled = seen.when;
        if (seen.width * seen.height * 10 >= size.width * size.height * 9)
            opening.painted = opening.painted.value_or(seen.when);
    }
}

/// What becomes of the window that is mapped, painted and focused next; it may be made anew for each press.
std::pair<xcb_window_t, Opening> observeOpening(Observer& observer) {
    std::map<xcb_window_t, Opening> openings;
    xcb_window_t found = XCB_NONE;
    Moment limit = soon();
    while (const auto seen = observer.next(limit)) {
        Opening& opening = openings[seen->window];
        note(opening, *seen, observer.sizeOf(seen->window));
        if (opening.isComplete()) {
            found = seen->window;
            limit = seen->when + burstGap;
        }
    }
    if (found == XCB_NONE)
        throw std::runtime_error("the panel did not come");
    return {found, openings[found]};
}

void waitForUnmapping(Observer& observer, xcb_window_t window) {
    while (waitFor(observer, Seen::What::unmapped).window != window)
        continue;
}

void measurePanel(int rounds) {
    Observer observer;
    observer.observeAll();
    for (int round = 0; round < rounds; ++round) {
        observer.waitForQuiet(500ms);
        observer.send(XK_Control_L, true);
        observer.send(XK_Shift_L, true);
        observer.waitForQuiet(50ms);
        const Moment pressed = observer.send(XK_space, true);
        const auto [window, opening] = observeOpening(observer);
        observer.send(XK_space, false);
        observer.send(XK_Shift_L, false);
        observer.send(XK_Control_L, false);
        const Moment ready = std::max({*opening.mapped, *opening.focused, *opening.painted});
        std::printf("mapped %.3f focused %.3f painted %.3f ready %.3f settled %.3f\n",
                    milliseconds(pressed, *opening.mapped), milliseconds(pressed, *opening.focused),
                    milliseconds(pressed, *opening.painted), milliseconds(pressed, ready),
                    milliseconds(pressed, opening.settled));
        observer.tap(XK_Escape);
        waitForUnmapping(observer, window);
    }
}

double measureKey(Observer& observer, xcb_keysym_t symbol) {
    const Moment pressed = observer.send(symbol, true);
    Moment last = waitFor(observer, Seen::What::painted).when;
    observer.send(symbol, false);
    while (const auto seen = observer.next(last + burstGap))
        if (seen->what == Seen::What::painted)
            last = seen->when;
    return milliseconds(pressed, last);
}

void measureKeys(xcb_window_t window, int rounds, std::string_view letters) {
    Observer observer;
    observer.observe(window);
    for (int round = 0; round < rounds; ++round) {
        for (const char letter : letters) {
            observer.waitForQuiet(120ms);
            // The symbol of a Latin letter is its code.
            std::printf("%c %.3f\n", letter, measureKey(observer, static_cast<unsigned char>(letter)));
        }
        for (std::size_t left = letters.size(); left > 0; --left) {
            observer.tap(XK_BackSpace);
            observer.waitForQuiet(120ms);
        }
    }
}

int run(int count, char** arguments) {
    const std::string_view mode = count > 1 ? arguments[1] : "";
    if (mode == "start" && count > 3)
        measureStart(std::stoi(arguments[2]), arguments + 3);
    else if (mode == "panel" && count == 3)
        measurePanel(std::stoi(arguments[2]));
    else if (mode == "keys" && count == 5)
        measureKeys(static_cast<xcb_window_t>(std::stoul(arguments[2])), std::stoi(arguments[3]), arguments[4]);
    else
        throw std::runtime_error("start ROUNDS COMMAND… | panel ROUNDS | keys WINDOW ROUNDS LETTERS");
    return 0;
}

} // namespace
} // namespace Quillstacks::Bench

int main(int count, char** arguments) {
    try {
        return Quillstacks::Bench::run(count, arguments);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", arguments[0], error.what());
        return 1;
    }
}
