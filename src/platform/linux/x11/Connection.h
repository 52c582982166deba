#pragma once

#include <cstdint>
#include <xcb/xcb.h>

class QWidget;

/// The toolkit's own connection to the X server. All of these give nothing where the program does not talk X11.
namespace Quillstacks::X11 {

[[nodiscard]] xcb_connection_t* connection();
[[nodiscard]] xcb_window_t root();
/// XCB_ATOM_NONE when there is no connection.
[[nodiscard]] xcb_atom_t atom(const char* name);
/// The present owner of a selection; XCB_WINDOW_NONE when nobody owns it.
[[nodiscard]] xcb_window_t selectionOwner(xcb_atom_t selection);
/// The native window of a widget, made when there is none yet.
[[nodiscard]] xcb_window_t nativeWindow(QWidget* widget);

void setCardinals(xcb_window_t window, const char* property, const uint32_t* values, uint32_t count);
/// A message to the window manager about a window: sent to the root, as the window managers' conventions say.
void sendToWindowManager(xcb_window_t window, const char* message, const xcb_client_message_data_t& data);

} // namespace Quillstacks::X11
