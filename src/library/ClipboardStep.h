#pragma once

class QString;

namespace Quillstacks::ClipboardStep {

/// Puts the text on the clipboard in the place of what is there, and raises the toast "Copied to clipboard" for 2.0
/// seconds. Call it while a window of the program has the focus.
void copyBody(const QString& text);
/// The same, with a toast that names the prompt: Copied "title" to clipboard. The title is shown as given.
void copyPromptText(const QString& text, const QString& title);

} // namespace Quillstacks::ClipboardStep
