#pragma once

#include <QString>

class QWidget;

namespace Quillstacks {

/// What stands below the panel's header, one for each of its states without a result. The caller owns the widget.
namespace LexiwellContent {

[[nodiscard]] QWidget* makeIdle();
[[nodiscard]] QWidget* makeLoading();
[[nodiscard]] QWidget* makeError(const QString& message);

} // namespace LexiwellContent
} // namespace Quillstacks
