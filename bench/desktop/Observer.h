#pragma once

#include <xcb/damage.h>
#include <xcb/xcb.h>
#include <xcb/xcb_keysyms.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <optional>
#include <vector>

namespace Quillstacks::Bench {

/// Helper windows, which nobody sees, are smaller in width or height.
inline constexpr int smallestWindow = 100;

using Moment = std::chrono::steady_clock::time_point;

inline double milliseconds(Moment from, Moment to) {
    return std::chrono::duration<double, std::milli>(to - from).count();
}

/// What happened to an observed window, with the moment at which this process heard of it.
struct Seen {
    enum class What { mapped, unmapped, focused, painted };
    What what;
    xcb_window_t window;
    Moment when;
    int width = 0; ///< painted: of the area that changed
    int height = 0;
};

/// Looks at other programs' windows from outside and presses keys, on the display of the environment. Throws
/// std::runtime_error where the display lacks what that takes.
class Observer final {
public:
    Observer();
    ~Observer();
    Observer(const Observer&) = delete;
    Observer& operator=(const Observer&) = delete;

    /// From now on tells of this window's mapping, focus and painting.
    void observe(xcb_window_t window);
    /// From now on tells of the mapping of every top-level window, frames of the window manager's included.
    void observeTopLevels();
    /// From now on observes every window of some size, those that are yet to be made as well.
    void observeAll();

    /// Presses or releases the key that gives a symbol of the present layout, and returns when that was sent.
    Moment send(xcb_keysym_t symbol, bool isDown);
    void tap(xcb_keysym_t symbol);

    /// The next thing seen, or nothing by that moment.
    std::optional<Seen> next(Moment limit);
    /// Reads on until nothing was seen for so long.
    void waitForQuiet(std::chrono::milliseconds quiet);

    struct Size {
        int width = 0;
        int height = 0;
    };
    [[nodiscard]] Size sizeOf(xcb_window_t window) const;

private:
    struct Free {
        void operator()(void* reply) const { std::free(reply); }
    };
    template <typename Reply>
    using Held = std::unique_ptr<Reply, Free>;

    std::optional<Seen> translate(const xcb_generic_event_t& event);
    void observeBelow(xcb_window_t parent, int levels);

    xcb_connection_t* connection;
    xcb_window_t root = 0;
    xcb_key_symbols_t* symbols = nullptr;
    uint8_t firstDamageEvent = 0;
    bool observesNew = false;
};

} // namespace Quillstacks::Bench
