#pragma once

#include "analysis/answer/PromptAnalysis.h"

class QWidget;

namespace Quillstacks {

/// What stands below the panel's header, one for each of its states. The caller owns the widget.
namespace LexiwellContent {

[[nodiscard]] QWidget* makeIdle();
[[nodiscard]] QWidget* makeLoading();
[[nodiscard]] QWidget* makeError(const QString& message);
[[nodiscard]] QWidget* makeResult(const PromptAnalysis& analysis);

} // namespace LexiwellContent
} // namespace Quillstacks
