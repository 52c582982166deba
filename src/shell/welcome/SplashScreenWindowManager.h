#pragma once

#include <QObject>
#include <QPointer>
#include <QSize>

#include <functional>

class QVariantAnimation;
class QWindow;

namespace Quillstacks {

class SplashScreenView;
class SplashScreenWindow;

/// Owns the welcome's window: makes it when it is first needed, shows it in the middle of the main screen, and takes it
/// away again.
class SplashScreenWindowManager final : public QObject {
    Q_OBJECT
public:
    static SplashScreenWindowManager& shared();
    explicit SplashScreenWindowManager(QObject* parent = nullptr);
    ~SplashScreenWindowManager() override;

    static constexpr QSize contentSize{600, 850};

    /// `onOpenApp` brings up the main window; the view holds it for its caller.
    void show(std::function<void()> onOpenApp);
    /// Fades the window out and closes it.
    void dismiss();

    /// What the program does when the welcome is about to show: it shows among the running ones.
    std::function<void()> onShow;
    /// Called 0.1 s after a dismissal, or after the window was closed from outside: with no other window the program
    /// goes out of sight again.
    std::function<void()> onDismissed;

    /// nullptr until first needed; kept from then on, also while it is closed.
    [[nodiscard]] SplashScreenWindow* windowController() const;
    [[nodiscard]] SplashScreenView* hostingController() const;
    /// Lets go of the window.
    void tearDown();

private:
    void create(std::function<void()> onOpenApp);
    void fade(qreal opacity, int milliseconds, const QEasingCurve& easing);
    void fadeIn();
    void keepKeyboard(const QWindow* focused);
    void windowClosed();
    void scheduleDismissed();

    // The application deletes what windows are left when it ends, and may do so before the manager goes.
    QPointer<SplashScreenWindow> window;
    QPointer<SplashScreenView> view;
    QPointer<QVariantAnimation> fading;
    bool dismissing = false;
    bool coming = false; ///< was shown a moment ago
    quint32 shows = 0;
};

} // namespace Quillstacks
