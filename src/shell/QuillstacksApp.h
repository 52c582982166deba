#pragma once

#include "shell/AppDelegate.h"

#include <QObject>

#include <chrono>
#include <exception>
#include <memory>

namespace Quillstacks {

class MainWindow;
class MenuBarContent;
class ModelContainer;
class SingleInstance;
class StatusItem;

/// The program: runs the start, in an order that matters, and owns what lives as long as the process. Needs the
/// QApplication, and goes before it.
class QuillstacksApp final : public QObject {
    Q_OBJECT
public:
    QuillstacksApp();
    ~QuillstacksApp() override;

    const AppDelegate appDelegate;
    /// Exactly one of the two is set.
    std::unique_ptr<ModelContainer> sharedModelContainer;
    std::exception_ptr containerError;

    /// From now on second starts and desktop actions come here.
    void serve(SingleInstance& instance);

    /// A second start.
    void reopen();
    /// "quick-access" or "new-prompt"; another name does nothing.
    void performAction(const QString& name);

    [[nodiscard]] MainWindow& mainWindow() { return *window; }
    [[nodiscard]] MenuBarContent& menuBarContent() { return *menu; }

private:
    void openStore();
    [[nodiscard]] static std::unique_ptr<ModelContainer> openContainer();
    void connectHotkey();
    void makeScenes();
    void makeStatusItem();
    void scheduleWelcome();
    void togglePanel();

    const std::chrono::nanoseconds startedAt; ///< on the clock
    // Built in this order and taken down in the other.
    std::unique_ptr<MainWindow> window;
    std::unique_ptr<MenuBarContent> menu;
    std::unique_ptr<StatusItem> statusItem;
};

} // namespace Quillstacks
