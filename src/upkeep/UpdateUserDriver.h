#pragma once

#include "interface/Alert.h"
#include "upkeep/feed/UpdateItem.h"

#include <QObject>

#include <functional>

namespace Quillstacks {

/// What the updater says to the user, as alerts over a window of the program's.
class UpdateUserDriver final : public QObject {
    Q_OBJECT
public:
    explicit UpdateUserDriver(QObject* parent = nullptr);

    /// Gives the window to speak in. When the user waits for an answer (`bringForward`), it is put on screen for it;
    /// otherwise nullptr while it is not there. Without one, nothing is said.
    std::function<QWidget*(bool bringForward)> window;

    /// What nobody waits for is said when the program's window is there and free of sheets; the latest of it, where
    /// there is more.
    void showUpdateFound(const UpdateItem& item, bool isAwaited, std::function<void()> download);
    void showDownloadStarted(const UpdateItem& item);
    void showDownloaded(const UpdateItem& item, const QString& path, bool isAwaited);
    void showNoUpdateFound(const QString& presentVersion);
    void showFailure(const QString& reason);

private:
    struct Notice {
        Alert::Text text;
        std::function<void()> confirmed;
    };
    void say(Notice notice, bool isAwaited);
    void sayPending();

    std::function<void()> pending;
};

} // namespace Quillstacks
