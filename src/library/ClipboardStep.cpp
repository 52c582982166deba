#include "library/ClipboardStep.h"

#include "interface/ToastManager.h"
#include "platform/Clipboard.h"

#include <QString>

namespace Quillstacks::ClipboardStep {
namespace {

constexpr double toastSeconds = 2.0;

void copy(const QString& text, const QString& notice) {
    Clipboard::clearContents();
    Clipboard::setString(text);
    ToastManager::shared().show(notice, toastSeconds);
}

} // namespace

void copyBody(const QString& text) {
    copy(text, QStringLiteral("Copied to clipboard"));
}

void copyPromptText(const QString& text, const QString& title) {
    // Joined, not formatted: a title may hold "%1".
    copy(text, QStringLiteral("Copied \"") + title + QStringLiteral("\" to clipboard"));
}

} // namespace Quillstacks::ClipboardStep
