#pragma once

namespace Quillstacks {

/// Whether the keyboard is in a text that takes letters. Plain keys that mean something elsewhere are letters there.
[[nodiscard]] bool isTyping();

} // namespace Quillstacks
