#include "languagemodel/ModelFiles.h"

#include "platform/Files.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace Quillstacks {

QString ModelFiles::folder() {
    const QStringList directories = Files::applicationSupportDirectories();
    return directories.isEmpty() ? QString() : directories.first() + QStringLiteral("/app.Quillstacks");
}

ModelFiles ModelFiles::find() {
    const QString place = folder();
    const QString runtime = QStandardPaths::findExecutable(QStringLiteral("llama-server"));
    if (runtime.isEmpty())
        throw LanguageModelError(LanguageModelError::Case::noRuntime, place);
    // An empty path would stand for the folder that the program was started in.
    const QFileInfoList models = place.isEmpty() ? QFileInfoList()
                                                 : QDir(place).entryInfoList({QStringLiteral("*.gguf")},
                                                                             QDir::Files | QDir::Readable, QDir::Name);
    if (models.isEmpty())
        throw LanguageModelError(LanguageModelError::Case::noModelFile, place);
    return {.runtime = runtime, .model = models.first().filePath(), .modelChanged = models.first().lastModified()};
}

LanguageModelError ModelFiles::error(LanguageModelError::Case what, const QString& detail) const {
    return {what, folder(), QFileInfo(model).fileName(), detail};
}

} // namespace Quillstacks
