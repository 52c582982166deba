#pragma once

#include "foundation/Preferences.h"

#include <QFile>
#include <QTemporaryDir>

namespace Quillstacks {

/// An empty domain in a folder of its own. While one is alive it is Preferences::standard().
class TestPreferences final {
public:
    TestPreferences() { Preferences::setStandard(&preferences); }
    ~TestPreferences() { Preferences::setStandard(nullptr); }
    Q_DISABLE_COPY_MOVE(TestPreferences)

    Preferences* operator->() { return &preferences; }
    Preferences& operator*() { return preferences; }
    /// What is on disk; empty when there is no file.
    [[nodiscard]] QByteArray fileContents() const {
        QFile file(preferences.filePath());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QTemporaryDir folder;
    Preferences preferences{folder.filePath(QStringLiteral("app.Quillstacks/preferences.json"))};
};

} // namespace Quillstacks
