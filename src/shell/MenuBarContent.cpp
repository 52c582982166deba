#include "shell/MenuBarContent.h"

#include "foundation/MainQueue.h"
#include "hotkey/HotkeyPreferences.h"
#include "hotkey/ShortcutDisplay.h"
#include "interface/Symbol.h"
#include "interface/Theme.h"
#include "platform/Windows.h"
#include "quickaccess/QuickAccessWindowManager.h"
#include "shell/DockVisibilityController.h"
#include "shell/MainWindow.h"
#include "shell/MainWindowFocusManager.h"
#include "shell/Termination.h"
#include "upkeep/SparkleUpdaterManager.h"

#include <QApplication>
#include <QIcon>
#include <QMenu>

#include <algorithm>

namespace Quillstacks {

namespace {

/// One that brings the program to the front with it; nullptr when none is open.
QWidget* anyOpenWindow() {
    const auto windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find_if(
        windows, [](const QWidget* window) { return window->isVisible() && window->windowType() == Qt::Window; });
    return found == windows.end() ? nullptr : *found;
}

} // namespace

MenuBarContent::MenuBarContent(std::function<void()> opensWindow, QObject* parent)
    : QObject(parent), openWindow(std::move(opensWindow)), updaterManager(SparkleUpdaterManager::shared()),
      items(std::make_unique<QMenu>()) {
    build();
    updateShortcut();
    followUpdater();
    connect(&updaterManager, &SparkleUpdaterManager::changed, this, &MenuBarContent::followUpdater);
    globalHotkeyModifiersPreference().observe(this, [this] { updateShortcut(); });
    globalHotkeyKeyCodePreference().observe(this, [this] { updateShortcut(); });
}

MenuBarContent::~MenuBarContent() = default;

QIcon MenuBarContent::icon() {
    // The desktop recolours a symbolic icon of its theme to suit its panel. Ours, where none is installed, has a colour
    // that can be told from a dark and from a light one.
    QIcon drawn;
    const QColor color = Theme::shared().color(ColorRole::accentFill);
    for (const int size : {16, 22, 24, 32, 48, 64})
        drawn.addPixmap(Symbol::pixmap(QStringLiteral("circle.dotted.circle.fill"), size, color, 1));
    return QIcon::fromTheme(QStringLiteral("app.Quillstacks-symbolic"), drawn);
}

QString MenuBarContent::shortcutText() const {
    return shortcutDisplayString(static_cast<quint64>(globalHotkeyModifiersPreference().value()),
                                 globalHotkeyKeyCodePreference().value());
}

void MenuBarContent::build() {
    quickAccess = items->addAction(QString());
    connect(quickAccess, &QAction::triggered, this, [] { QuickAccessWindowManager::shared().toggle(); });
    items->addSeparator();
    const QAction* open = items->addAction(QStringLiteral("Open Quillstacks"));
    connect(open, &QAction::triggered, this, &MenuBarContent::openQuillstacks);
    items->addSeparator();
    checkForUpdates = items->addAction(QString());
    connect(checkForUpdates, &QAction::triggered, this, [this] { updaterManager.checkForUpdates(); });
    items->addSeparator();
    const QAction* quitItem = items->addAction(QStringLiteral("Quit Quillstacks"));
    connect(quitItem, &QAction::triggered, this, &quit);
}

void MenuBarContent::updateShortcut() {
    quickAccess->setText(QStringLiteral("Quick Access (%1)").arg(shortcutText()));
}

void MenuBarContent::followUpdater() {
    const QString title = QStringLiteral("Check for Updates");
    checkForUpdates->setText(updaterManager.updateAvailable() ? title + QStringLiteral(" (Available!)") : title);
    checkForUpdates->setEnabled(!updaterManager.isCheckingForUpdates() && !updaterManager.updateInProgress());
}

void MenuBarContent::openQuillstacks() {
    // The window may be open, closed, or not made yet; each step is needed for one of these.
    DockVisibilityController::shared().setPolicy(ActivationPolicy::regular);
    MainWindowFocusManager::shared().requestFocus();
    openWindow();
    MainWindowFocusManager::shared().requestFocus();
    MainQueue::after(0.1, this, [] {
        QWidget* front = MainWindow::find();
        if (front)
            Windows::showAndActivate(front, 0);
        else
            front = anyOpenWindow();
        if (front)
            Windows::activateIgnoringOtherApps(front);
    });
}

} // namespace Quillstacks
