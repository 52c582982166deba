#include "platform/Accessibility.h"
#include "platform/FakeDesktop.h"
#include "platform/Files.h"
#include "platform/Journal.h"

#include <QStandardPaths>

namespace Quillstacks {

bool Accessibility::isProcessTrusted(bool prompt) {
    FakeDesktop& desktop = FakeDesktop::shared();
    desktop.note(prompt ? QStringLiteral("isProcessTrusted prompt") : QStringLiteral("isProcessTrusted"));
    if (prompt && !desktop.trusted)
        ++desktop.trustPrompts;
    return desktop.trusted;
}

void Accessibility::openSettings() {
    FakeDesktop::shared().note(QStringLiteral("openAccessibilitySettings"));
}

QStringList Files::applicationSupportDirectories() {
    return FakeDesktop::shared().applicationSupportDirectories.value_or(
        QStringList{QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)});
}

void Files::openFolder(const QString& path) {
    FakeDesktop::shared().note(QStringLiteral("openFolder ") + path);
    FakeDesktop::shared().openedFolders << path;
}

Log::Sink Journal::sink() {
    return {};
}

} // namespace Quillstacks
