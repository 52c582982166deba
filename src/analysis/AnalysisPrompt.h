#pragma once

#include <QString>

namespace Quillstacks {

/// What the model is told to do. Answers are compared between versions of the program by it: not a byte of it changes.
[[nodiscard]] const QString& analysisSystemPrompt();

} // namespace Quillstacks
