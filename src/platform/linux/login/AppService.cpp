#include "platform/AppService.h"

#include "login/DesktopEntry.h"
#include "platform/FileError.h"
#include "platform/Files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>
#include <cerrno>

namespace Quillstacks {

namespace {

QString entryName() {
    return QStringLiteral("autostart/app.Quillstacks.desktop");
}

QString userFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

QString userEntry() {
    return QDir(userFolder()).filePath(entryName());
}

/// What a package put there for all users; empty for nothing.
QString systemEntry() {
    QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    folders.removeAll(userFolder());
    const auto found = std::ranges::find_if(
        folders, [](const QString& folder) { return Files::fileExists(QDir(folder).filePath(entryName())); });
    return found == folders.end() ? QString() : QDir(*found).filePath(entryName());
}

/// The user's entry hides the system's, whatever it says.
std::optional<DesktopEntry> entryInForce() {
    const QString path = Files::fileExists(userEntry()) ? userEntry() : systemEntry();
    return path.isEmpty() ? std::nullopt : DesktopEntry::read(path);
}

bool admitsThisDesktop(const DesktopEntry& entry) {
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
    const auto names = [&desktops](const QStringList& list) {
        return std::ranges::any_of(list, [&](const QString& each) { return desktops.contains(each); });
    };
    const QStringList only = entry.list("OnlyShowIn");
    return (only.isEmpty() || names(only)) && !names(entry.list("NotShowIn"));
}

bool startsThisProgram(const DesktopEntry& entry) {
    QString program = entry.program();
    if (!QDir::isAbsolutePath(program))
        program = QStandardPaths::findExecutable(program);
    const QFileInfo file(program);
    return file.isExecutable() &&
           file.canonicalFilePath() == QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath();
}

/// The caller's errno is read at once, before anything else may change it.
[[noreturn]] void refuse(const QString& path, const char* operation) {
    const int number = errno;
    throw FileError(path, number, QString::fromLatin1(operation));
}

void write(const QString& contents) {
    const QString path = userEntry();
    const QString folder = QFileInfo(path).path();
    // Not for one that is there: the folder is the desktop's, and so are its rights.
    if (!Files::fileExists(folder))
        Files::createDirectory(folder);
    // Or what it points to would be written over.
    if (QFileInfo(path).isSymLink() && !QFile::remove(path))
        refuse(path, "replace the file");
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        refuse(path, "write the file");
    file.write(contents.toUtf8());
    if (!file.commit())
        refuse(path, "write the file");
}

QString entry(const QString& lastLine) {
    return QStringLiteral("[Desktop Entry]\n"
                          "Version=1.4\n"
                          "Type=Application\n"
                          "Name=Quillstacks\n"
                          "Comment=A library of prompts for language models, one hot key away\n"
                          "Exec=%1\n"
                          "Icon=app.Quillstacks\n"
                          "Terminal=false\n")
               .arg(DesktopEntry::execOf(QCoreApplication::applicationFilePath())) +
           lastLine + u'\n';
}

} // namespace

AppService::Status AppService::status() const {
    const auto found = entryInForce();
    const bool isOn = found && found->text("Type") == QStringLiteral("Application") &&
                      !found->boolean("Hidden", false) && found->boolean("X-GNOME-Autostart-enabled", true) &&
                      admitsThisDesktop(*found) && startsThisProgram(*found);
    return isOn ? Status::enabled : Status::notRegistered;
}

void AppService::registerItem() const {
    if (status() != Status::enabled)
        write(entry(QStringLiteral("X-GNOME-Autostart-enabled=true")));
}

void AppService::unregister() const {
    if (status() != Status::enabled)
        return;
    if (!systemEntry().isEmpty())
        write(entry(QStringLiteral("Hidden=true")));
    else if (!QFile::remove(userEntry()))
        refuse(userEntry(), "remove the file");
}

} // namespace Quillstacks
