#pragma once

namespace Quillstacks::LastInput {

/// Begins to watch; further calls do nothing.
void watch();
/// Whether the last input was a key, and not the pointer.
[[nodiscard]] bool wasKey();

} // namespace Quillstacks::LastInput
