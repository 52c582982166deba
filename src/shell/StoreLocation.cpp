#include "shell/StoreLocation.h"

#include "platform/Files.h"

namespace Quillstacks {

QString StoreLocation::folder() {
    const QStringList directories = Files::applicationSupportDirectories();
    return directories.isEmpty() ? QString() : directories.first() + QStringLiteral("/app.Quillstacks");
}

QString StoreLocation::store() {
    const QString parent = folder();
    return parent.isEmpty() ? QString() : parent + QStringLiteral("/Quillstacks.store");
}

} // namespace Quillstacks
