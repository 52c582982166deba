#include "shell/MainWindowFocusManager.h"

#include "foundation/MainQueue.h"
#include "platform/Windows.h"

namespace Quillstacks {

MainWindowFocusManager& MainWindowFocusManager::shared() {
    static MainWindowFocusManager manager;
    return manager;
}

void MainWindowFocusManager::requestFocus() {
    pendingFocus = true;
    startAttempt(0);
}

void MainWindowFocusManager::registerWindow(QWidget* mainWindow) {
    if (window == mainWindow)
        return;
    window = mainWindow;
    if (pendingFocus)
        startAttempt(0);
}

void MainWindowFocusManager::reset() {
    window = nullptr;
    pendingFocus = false;
}

void MainWindowFocusManager::startAttempt(int number) {
    const auto last = static_cast<int>(retryDelays.size()) - 1;
    const double delay = number < 1 ? 0.0 : retryDelays.at(static_cast<size_t>(std::min(number, last)));
    // The queue drops the block if this manager is gone by then.
    MainQueue::after(delay, this, [this, number] { attempt(number); });
}

void MainWindowFocusManager::attempt(int number) {
    if (!pendingFocus)
        return;
    if (window) {
        pendingFocus = false;
        Windows::activateIgnoringOtherApps(window);
        Windows::showAndActivate(window, 0);
        window->raise();
    } else if (number + 1 < static_cast<int>(retryDelays.size())) {
        startAttempt(number + 1);
    }
    // Out of attempts the request stays pending, and registerWindow() serves it.
}

} // namespace Quillstacks
