#pragma once

#include <QObject>

#include <functional>
#include <memory>

class QAction;
class QIcon;
class QMenu;

namespace Quillstacks {

class SparkleUpdaterManager;

/// The menu of the status item.
class MenuBarContent final : public QObject {
    Q_OBJECT
public:
    /// `openWindow` puts the main window on screen, making it when it is closed.
    explicit MenuBarContent(std::function<void()> openWindow, QObject* parent = nullptr);
    ~MenuBarContent() override;

    std::function<void()> openWindow;

    /// "⇧⌘Space": the stored shortcut.
    [[nodiscard]] QString shortcutText() const;
    void openQuillstacks();

    /// What the status area shows.
    [[nodiscard]] static QIcon icon();
    [[nodiscard]] QMenu* menu() const { return items.get(); }

private:
    void build();
    void updateShortcut();
    void followUpdater();

    SparkleUpdaterManager& updaterManager;
    std::unique_ptr<QMenu> items;
    QAction* quickAccess = nullptr;
    QAction* checkForUpdates = nullptr;
};

} // namespace Quillstacks
