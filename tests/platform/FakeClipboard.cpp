#include "platform/Clipboard.h"

#include "platform/FakeDesktop.h"

namespace Quillstacks::Clipboard {

void clearContents() {
    FakeDesktop::shared().note(QStringLiteral("clipboard clear"));
    FakeDesktop::shared().clipboardText.clear();
}

void setString(const QString& text) {
    FakeDesktop::shared().note(QStringLiteral("clipboard set"));
    FakeDesktop::shared().clipboardText = text;
}

QString string() {
    return FakeDesktop::shared().clipboardText;
}

} // namespace Quillstacks::Clipboard
