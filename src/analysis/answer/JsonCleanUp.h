#pragma once

#include <QString>

namespace Quillstacks {

/// The JSON object within a model's answer, without fence and chatter; the trimmed answer where it has none. Braces are
/// not balanced, only the first opening and the last closing one are looked for. An answer whose last closing brace
/// stands ahead of its first opening one ends the process.
[[nodiscard]] QString cleanJSONResponse(const QString& answer);

/// The first part of it: the answer trimmed, and without a fence and what stands outside that.
[[nodiscard]] QString withoutFence(const QString& answer);

} // namespace Quillstacks
