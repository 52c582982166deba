#pragma once

namespace Quillstacks::Accessibility {

/// Whether this process may watch keys system-wide. On X11 always. `prompt` asks the desktop's user when not; the call
/// returns at once with the present answer either way.
[[nodiscard]] bool isProcessTrusted(bool prompt);
/// Takes the user to where the desktop keeps that permission. Does nothing where it has no such place.
void openSettings();

} // namespace Quillstacks::Accessibility
