#pragma once

#include "interface/AppearanceMode.h"
#include "interface/Style.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

namespace Quillstacks {

/// What a program that takes pictures of screens starts with: folders that are thrown away, the program's style, and
/// what its arguments name, the folder for the pictures and the appearance: PROGRAM FOLDER [light].
class Preview final {
public:
    Preview(int& argc, char** argv) : application((useFoldersOf(home), argc), argv) {
        QFont font(QStringLiteral("Inter"));
        font.setPointSizeF(10.5);
        QApplication::setFont(font);
        installStyle(application);
        QApplication::setQuitOnLastWindowClosed(false);
        QDir().mkpath(folder());
        const bool light = QApplication::arguments().contains(QStringLiteral("light"));
        appearanceModePreference().set(light ? AppearanceMode::light : AppearanceMode::dark);
    }
    Q_DISABLE_COPY_MOVE(Preview)

    [[nodiscard]] static QString folder() { return QApplication::arguments().value(1, QStringLiteral(".")); }
    /// Where a library for the pictures can stand.
    [[nodiscard]] QString storeFile() const { return home.filePath(QStringLiteral("Quillstacks.store")); }

private:
    static void useFoldersOf(const QTemporaryDir& home) {
        for (const char* name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"})
            qputenv(name, home.path().toUtf8());
    }

    QTemporaryDir home;
    QApplication application;
};

} // namespace Quillstacks
