#pragma once

namespace Quillstacks::Accessibility {

/// Whether this process may watch keys system-wide. On X11 always. `prompt` asks the desktop's user when not; the call
/// returns at once with the present answer either way.
[[nodiscard]] bool isProcessTrusted(bool prompt);

} // namespace Quillstacks::Accessibility
