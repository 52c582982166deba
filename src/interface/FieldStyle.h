#pragma once

class QStyle;

namespace Quillstacks {

/// The style of text fields that draw frame and caret themselves: it draws neither.
[[nodiscard]] QStyle* fieldStyle();

/// Half of the desktop's time for one blink of the caret, in milliseconds; 0 for a caret that stands still.
[[nodiscard]] int caretInterval();

} // namespace Quillstacks
