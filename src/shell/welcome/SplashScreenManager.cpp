#include "shell/welcome/SplashScreenManager.h"

#include "foundation/MainQueue.h"
#include "platform/Windows.h"
#include "shell/welcome/SplashScreenWindowManager.h"

#include <QApplication>

namespace Quillstacks {
namespace {

constexpr double showDelay = 0.5; ///< seconds

void openApp() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() != QStringLiteral("main"))
            continue;
        Windows::showAndActivate(window, 0);
        Windows::activateIgnoringOtherApps(window);
        return;
    }
}

} // namespace

const StoredPreference<bool>& hasShownSplashScreenPreference() {
    static const StoredPreference<bool> preference(QStringLiteral("hasShownSplashScreen"), false);
    return preference;
}

SplashScreenManager& SplashScreenManager::shared() {
    static auto* const manager = new SplashScreenManager(qApp);
    return *manager;
}

SplashScreenManager::SplashScreenManager(QObject* parent) : QObject(parent) {
    hasShownSplashScreenPreference().observe(this, [this] { Q_EMIT hasShownSplashScreenChanged(); });
}

bool SplashScreenManager::hasShownSplashScreen() const {
    return hasShownSplashScreenPreference().value();
}

void SplashScreenManager::setHasShownSplashScreen(bool shown) {
    hasShownSplashScreenPreference().set(shown);
}

void SplashScreenManager::showIfNeeded() {
    if (hasShownSplashScreen())
        return;
    MainQueue::after(showDelay, this, [] { SplashScreenWindowManager::shared().show(&openApp); });
}

} // namespace Quillstacks
