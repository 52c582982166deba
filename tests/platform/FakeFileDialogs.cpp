#include "platform/FileDialogs.h"

#include "platform/FakeDesktop.h"

#include <utility>

namespace Quillstacks {

namespace {

void open(const QString& kind, QWidget* over, const FileDialogs::FileType& type, const QString& name,
          FileDialogs::Done done) {
    FakeDesktop& desktop = FakeDesktop::shared();
    desktop.note(kind + QLatin1Char(' ') + type.suffix + (name.isEmpty() ? QString() : QLatin1Char(' ') + name));
    desktop.fileDialog = FakeDesktop::FileDialog{over, std::move(done)};
}

} // namespace

void FileDialogs::saveFile(QWidget* over, const FileType& type, const QString& offeredName, Done done) {
    open(QStringLiteral("saveFile"), over, type, offeredName, std::move(done));
}

void FileDialogs::openFile(QWidget* over, const FileType& type, Done done) {
    open(QStringLiteral("openFile"), over, type, {}, std::move(done));
}

bool FakeDesktop::answerFileDialog(const FileDialogs::Answer& answer) {
    const auto dialog = std::exchange(fileDialog, std::nullopt);
    if (!dialog || !dialog->over)
        return false;
    dialog->done(answer);
    return true;
}

} // namespace Quillstacks
