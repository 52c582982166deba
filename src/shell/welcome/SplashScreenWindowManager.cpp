#include "shell/welcome/SplashScreenWindowManager.h"

#include "foundation/MainQueue.h"
#include "interface/Spring.h"
#include "platform/Windows.h"
#include "shell/welcome/SplashScreenView.h"
#include "shell/welcome/SplashScreenWindow.h"

#include <QApplication>
#include <QPropertyAnimation>

namespace Quillstacks {
namespace {

constexpr int fadeInTime = 150; ///< milliseconds
constexpr int fadeOutTime = 120;
constexpr double dismissedDelay = 0.1; ///< seconds

} // namespace

SplashScreenWindowManager& SplashScreenWindowManager::shared() {
    static auto* const manager = new SplashScreenWindowManager(qApp);
    return *manager;
}

SplashScreenWindowManager::SplashScreenWindowManager(QObject* parent) : QObject(parent) {
    connect(qApp, &QCoreApplication::aboutToQuit, this, &SplashScreenWindowManager::tearDown);
}

SplashScreenWindowManager::~SplashScreenWindowManager() {
    // A window that has outlived the application can't be deleted any more.
    if (qApp)
        tearDown();
}

SplashScreenWindow* SplashScreenWindowManager::windowController() const {
    return window;
}

SplashScreenView* SplashScreenWindowManager::hostingController() const {
    return view;
}

void SplashScreenWindowManager::tearDown() {
    delete window;
}

void SplashScreenWindowManager::create(std::function<void()> onOpenApp) {
    window = new SplashScreenWindow;
    view = new SplashScreenView(std::move(onOpenApp), [this] { dismiss(); });
    window->setContent(view);
    view->setFocus(Qt::OtherFocusReason);
    connect(window, &SplashScreenWindow::closed, this, &SplashScreenWindowManager::windowClosed);
}

void SplashScreenWindowManager::show(std::function<void()> onOpenApp) {
    if (!window)
        create(std::move(onOpenApp));
    if (onShow)
        onShow();
    QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    delete fading;
    dismissing = false;
    window->centre(screen, contentSize);
    window->setWindowOpacity(0);
    window->show();
    window->raise();
    window->activateWindow();
    MainQueue::async(this, [this] { fadeIn(); });
}

void SplashScreenWindowManager::fadeIn() {
    if (!window || !window->isVisible() || dismissing)
        return;
    // The main window was brought to the front in this turn as well; the welcome is what is to be seen first.
    Windows::showAndActivate(window, 0);
    fade(1, fadeInTime, easeOut());
    connect(fading, &QAbstractAnimation::finished, this, &SplashScreenWindowManager::keepKeyboard);
}

void SplashScreenWindowManager::keepKeyboard() {
    // A window manager may pass over a request for a window that it had not mapped yet, and leave the keyboard to the
    // main window, which asked in the same turn. What another program has stays with it.
    QWidget* active = QApplication::activeWindow();
    if (active && active != window && window && window->isVisible())
        Windows::showAndActivate(window, 0);
}

void SplashScreenWindowManager::fade(qreal opacity, int milliseconds, const QEasingCurve& easing) {
    delete fading;
    auto* animation = new QPropertyAnimation(window, "windowOpacity", window);
    animation->setDuration(milliseconds);
    animation->setEasingCurve(easing);
    animation->setStartValue(window->windowOpacity());
    animation->setEndValue(opacity);
    fading = animation;
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

void SplashScreenWindowManager::dismiss() {
    if (!window || !window->isVisible() || dismissing)
        return;
    dismissing = true;
    fade(0, fadeOutTime, easeIn());
    connect(fading, &QAbstractAnimation::finished, window, &QWidget::close);
    scheduleDismissed();
}

void SplashScreenWindowManager::windowClosed() {
    if (!dismissing)
        scheduleDismissed();
    dismissing = false;
}

void SplashScreenWindowManager::scheduleDismissed() {
    MainQueue::after(dismissedDelay, this, [this] {
        if (onDismissed)
            onDismissed();
    });
}

} // namespace Quillstacks
