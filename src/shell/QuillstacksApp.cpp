#include "shell/QuillstacksApp.h"

#include "foundation/Clock.h"
#include "foundation/LocalizedError.h"
#include "foundation/Log.h"
#include "foundation/MainQueue.h"
#include "hotkey/HotkeyManager.h"
#include "hotkey/PermissionManager.h"
#include "library/model/ModelContainer.h"
#include "platform/Files.h"
#include "platform/SingleInstance.h"
#include "platform/StatusItem.h"
#include "quickaccess/QuickAccessWindowManager.h"
#include "shell/DataStoreError.h"
#include "shell/DockVisibilityController.h"
#include "shell/MainWindow.h"
#include "shell/MainWindowFocusManager.h"
#include "shell/MenuBarContent.h"
#include "shell/StoreLocation.h"
#include "shell/Termination.h"
#include "shell/Version.h"
#include "shell/welcome/SplashScreenManager.h"
#include "shell/welcome/SplashScreenWindowManager.h"
#include "upkeep/DataMigrationManager.h"
#include "upkeep/PreferencesMigrationManager.h"
#include "upkeep/SparkleUpdaterManager.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>

#include <tuple>

namespace Quillstacks {

namespace {

/// For so long after the start a desktop action may be what has caused it.
constexpr double startTime = 2.0; ///< seconds
constexpr double lookInterval = 0.05;

/// Those that windows observe, before all else: making the second one starts the updater.
void makeSharedManagers() {
    std::ignore = &PermissionManager::shared();
    std::ignore = &SparkleUpdaterManager::shared();
    std::ignore = &SplashScreenManager::shared();
}

} // namespace

QuillstacksApp::QuillstacksApp() : startedAt(Clock::uptime()) {
    QGuiApplication::setQuitOnLastWindowClosed(appDelegate.applicationShouldTerminateAfterLastWindowClosed());
    makeSharedManagers();
    announceVersion();
    Log::logAppStart();
    PreferencesMigrationManager::shared().migrateIfNeeded();
    openStore();
    if (sharedModelContainer)
        QuickAccessWindowManager::shared().setModelContainer(sharedModelContainer.get());
    PermissionManager::shared().checkOnLaunch();
    // Out of sight from the first moment; the main window, opened after it, brings the program back among the others.
    MainQueue::async(this, [] { DockVisibilityController::shared().setPolicy(ActivationPolicy::accessory); });
    connectHotkey();
    makeScenes();
    scheduleWelcome();
}

QuillstacksApp::~QuillstacksApp() {
    SparkleUpdaterManager::shared().updaterController.userDriver().window = {};
    SplashScreenWindowManager::shared().onShow = {};
    SplashScreenWindowManager::shared().onDismissed = {};
    HotkeyManager::shared().unregister();
    HotkeyManager::shared().onHotkeyPressed = {};
    QuickAccessWindowManager::shared().setModelContainer(nullptr);
}

void QuillstacksApp::openStore() {
    try {
        sharedModelContainer = openContainer();
        Log::data.info(QStringLiteral("SwiftData container initialized successfully"));
    } catch (const std::exception& error) {
        containerError = std::current_exception();
        Log::data.fault(QStringLiteral("Failed to create SwiftData container: ") + localizedDescription(error));
    }
}

std::unique_ptr<ModelContainer> QuillstacksApp::openContainer() {
    const Schema schema = Schema::current();
    const QString store = StoreLocation::store();
    if (store.isEmpty())
        throw DataStoreError(DataStoreError::Case::cannotAccessApplicationSupport);
    Files::createDirectory(QFileInfo(store).path());
    DataMigrationManager::shared().migrateIfNeeded(store);
    Log::logStorageLocation(store);
    return std::make_unique<ModelContainer>(schema, ModelConfiguration{store, true});
}

void QuillstacksApp::connectHotkey() {
    HotkeyManager::shared().onHotkeyPressed = [] {
        MainQueue::async(nullptr, [] { QuickAccessWindowManager::shared().toggle(); });
    };
    HotkeyManager::shared().registerIfPermitted();
}

void QuillstacksApp::makeScenes() {
    window = std::make_unique<MainWindow>(MainWindow::Store{sharedModelContainer.get(), containerError});
    menu = std::make_unique<MenuBarContent>([this] { window->open(); });
    SparkleUpdaterManager::shared().updaterController.userDriver().window = [this](bool bringForward) -> QWidget* {
        if (bringForward)
            window->open();
        return window->isVisible() ? window.get() : nullptr;
    };
    MainQueue::async(this, [this] { window->open(); });
    // After the window, which somebody is waiting for.
    MainQueue::async(this, [this] {
        makeStatusItem();
        QGuiApplication::setWindowIcon(
            QIcon::fromTheme(QStringLiteral("app.Quillstacks"), QIcon(QStringLiteral(":/app-icon.svg"))));
    });
    // Once the window has been painted, so that the first press need not wait for the panel to be built.
    MainQueue::after(0.5, this, [] { QuickAccessWindowManager::shared().prepare(); });
}

void QuillstacksApp::makeStatusItem() {
    statusItem = std::make_unique<StatusItem>(QStringLiteral("Quillstacks"), MenuBarContent::icon(), menu->menu());
    connect(statusItem.get(), &StatusItem::noTrayFound, this, [] {
        Log::ui.standard(
            QStringLiteral("No status area found: the menu is not shown; start Quillstacks again, or use its "
                           "desktop actions or the hot key, to reach it"));
    });
}

void QuillstacksApp::scheduleWelcome() {
    SplashScreenWindowManager& welcome = SplashScreenWindowManager::shared();
    welcome.onShow = [] {
        DockVisibilityController::shared().setPolicy(ActivationPolicy::regular);
        MainWindowFocusManager::shared().requestFocus();
    };
    welcome.onDismissed = [] {
        const QWidget* main = MainWindow::find();
        if (!main || !main->isVisible())
            DockVisibilityController::shared().setPolicy(ActivationPolicy::accessory);
    };
    MainQueue::after(0.1, this, [] { SplashScreenManager::shared().showIfNeeded(); });
}

void QuillstacksApp::serve(SingleInstance& instance) {
    connect(&instance, &SingleInstance::activated, this, &QuillstacksApp::reopen);
    connect(&instance, &SingleInstance::actionActivated, this, &QuillstacksApp::performAction);
}

void QuillstacksApp::reopen() {
    if (appDelegate.applicationShouldHandleReopen(window->isVisible()))
        window->open();
}

void QuillstacksApp::performAction(const QString& name) {
    if (name == QStringLiteral("quick-access"))
        togglePanel();
    else if (name == QStringLiteral("new-prompt"))
        window->openNewPrompt();
}

void QuillstacksApp::togglePanel() {
    // The action may be what has started the program. The main window is on its way then, and would take the keyboard
    // from a panel that is there before it.
    const bool isStarting = Clock::uptime() - startedAt < std::chrono::duration<double>(startTime);
    if (isStarting && (!window->isActiveWindow() || MainWindowFocusManager::shared().pendingFocus))
        MainQueue::after(lookInterval, this, [this] { togglePanel(); });
    else
        QuickAccessWindowManager::shared().toggle();
}

} // namespace Quillstacks
