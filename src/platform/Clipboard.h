#pragma once

#include <QString>

/// The desktop's general clipboard.
namespace Quillstacks::Clipboard {

/// Drops what it holds.
void clearContents();
/// Puts a plain text on it. Call it while a window of the program has the focus: Wayland asks for that.
void setString(const QString& text);
[[nodiscard]] QString string();

} // namespace Quillstacks::Clipboard
