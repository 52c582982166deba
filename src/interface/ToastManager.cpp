#include "interface/ToastManager.h"

#include "foundation/MainQueue.h"

namespace Quillstacks {

ToastManager& ToastManager::shared() {
    static ToastManager manager;
    return manager;
}

void ToastManager::show(const QString& message, double duration) {
    if (currentMessage != message) {
        currentMessage = message;
        Q_EMIT messageChanged();
    }
    setShowing(true);
    MainQueue::after(duration, this, [this] { setShowing(false); });
}

void ToastManager::setShowing(bool isShowing) {
    if (showing == isShowing)
        return;
    showing = isShowing;
    Q_EMIT isShowingChanged();
}

} // namespace Quillstacks
