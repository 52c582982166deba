#pragma once

#include <QtGlobal>

#include <optional>
#include <vector>
#include <xcb/xcb.h>

namespace Quillstacks {

/// Another program on the same X server.
class OtherClient final {
public:
    OtherClient();
    ~OtherClient();
    Q_DISABLE_COPY_MOVE(OtherClient)

    /// Tries to grab a key; false when somebody else holds it.
    [[nodiscard]] bool grab(int key, quint16 modifiers);
    void ungrab(int key, quint16 modifiers);
    /// Whether a grab could be had now; takes none.
    [[nodiscard]] bool couldGrab(int key, quint16 modifiers);

    /// A mapped window of 200 by 200 that wants the focus.
    xcb_window_t showWindow();
    /// A window that is never shown.
    xcb_window_t makeWindow();
    void destroyWindow(xcb_window_t window);
    /// Becomes the owner of a selection; XCB_WINDOW_NONE gives it up.
    void own(const char* selection, xcb_window_t window);
    [[nodiscard]] xcb_atom_t atom(const char* name);
    /// The window that the window manager says is active.
    [[nodiscard]] xcb_window_t activeWindow();
    /// A property's 32-bit values.
    [[nodiscard]] std::vector<quint32> property(xcb_window_t window, const char* name);
    /// The colour of a window's pixel as it is on screen, alpha included; unset while the window is not.
    [[nodiscard]] std::optional<quint32> pixel(xcb_window_t window, int x, int y);
    /// Has the server draw a window's background anew, as when something moves off it.
    void uncover(xcb_window_t window);
    /// Whether a message of this type has come to one of its windows.
    [[nodiscard]] bool hasMessage(const char* type);

private:
    void settle();

    xcb_connection_t* connection = nullptr;
    const xcb_screen_t* screen = nullptr;
};

} // namespace Quillstacks
