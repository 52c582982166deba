#include "platform/Files.h"

#include <QDesktopServices>
#include <QStandardPaths>
#include <QUrl>

namespace Quillstacks::Files {

QStringList applicationSupportDirectories() {
    // The writable one alone: the system's data folders, which the standard locations list as well, are not the user's.
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return folder.isEmpty() ? QStringList() : QStringList{folder};
}

void openFolder(const QString& path) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

} // namespace Quillstacks::Files
