#include "shell/welcome/SplashScreenWindowManager.h"

#include "foundation/MainQueue.h"
#include "interface/Spring.h"
#include "platform/Windows.h"
#include "shell/welcome/SplashScreenView.h"
#include "shell/welcome/SplashScreenWindow.h"

#include <QApplication>
#include <QPropertyAnimation>
#include <QWindow>

namespace Quillstacks {
namespace {

constexpr int fadeInTime = 150; ///< milliseconds
constexpr int fadeOutTime = 120;
constexpr double dismissedDelay = 0.1; ///< seconds
/// For so long after its show no other window of the program takes the keyboard from the welcome.
constexpr double comingTime = 2.0; ///< seconds

} // namespace

SplashScreenWindowManager& SplashScreenWindowManager::shared() {
    static auto* const manager = new SplashScreenWindowManager(qApp);
    return *manager;
}

SplashScreenWindowManager::SplashScreenWindowManager(QObject* parent) : QObject(parent) {
    connect(qApp, &QCoreApplication::aboutToQuit, this, &SplashScreenWindowManager::tearDown);
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &SplashScreenWindowManager::keepKeyboard);
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
    coming = true;
    MainQueue::after(comingTime, this, [this, mine = ++shows] {
        if (mine == shows)
            coming = false;
    });
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
    connect(fading, &QAbstractAnimation::finished, this, [this] { keepKeyboard(QGuiApplication::focusWindow()); });
}

void SplashScreenWindowManager::keepKeyboard(const QWindow* focused) {
    // The main window asks for the keyboard in the same turn, and a window manager may serve that wish last: it passes
    // over ours when it takes the welcome for the one that has it already. Each move to the main window is answered at
    // once, not looked at later: the toolkit believes what the window manager says of the focus, right or wrong.
    // Neither the panel nor another program loses the keyboard to the welcome.
    const bool isShown = window && window->isVisible();
    if (coming && isShown && focused && focused != window->windowHandle() && focused->type() == Qt::Window)
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
    coming = false;
    fade(0, fadeOutTime, easeIn());
    connect(fading, &QAbstractAnimation::finished, window, &QWidget::close);
    scheduleDismissed();
}

void SplashScreenWindowManager::windowClosed() {
    if (!dismissing)
        scheduleDismissed();
    dismissing = false;
    coming = false;
}

void SplashScreenWindowManager::scheduleDismissed() {
    MainQueue::after(dismissedDelay, this, [this] {
        if (onDismissed)
            onDismissed();
    });
}

} // namespace Quillstacks
