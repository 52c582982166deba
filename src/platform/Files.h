#pragma once

#include <QString>
#include <QStringList>

/// Places and files of the user. Paths are absolute.
namespace Quillstacks::Files {

/// The user's application support directories; possibly empty. The first is used.
[[nodiscard]] QStringList applicationSupportDirectories();
/// Makes a folder with all its parents, mode 0700 for those that it makes, and takes group's and others' rights from
/// the folder itself when it was there. Throws FileError.
void createDirectory(const QString& path);
[[nodiscard]] bool fileExists(const QString& path);
/// Copies a file (mode 0600) to a path where none stands; never leaves half a file there. Throws FileError.
void copyItem(const QString& from, const QString& to);
/// Shows a folder in the file manager.
void openFolder(const QString& path);

} // namespace Quillstacks::Files
