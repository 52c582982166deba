#pragma once

namespace Quillstacks::Session {

/// Whether the user's session is a Wayland one. Asked of the session, not of the toolkit: a program that runs through
/// XWayland talks X11, and still its key grabs there succeed and never fire.
[[nodiscard]] bool isWayland();

} // namespace Quillstacks::Session
