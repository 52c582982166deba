#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <array>

namespace Quillstacks {

/// Brings the main window to the front, also when it does not exist yet at the time of the request. Main thread only.
class MainWindowFocusManager final : public QObject {
    Q_OBJECT
public:
    static MainWindowFocusManager& shared();
    MainWindowFocusManager() = default;

    void requestFocus();
    /// Tells which window is the main one, and serves a request that waits for it.
    void registerWindow(QWidget* mainWindow);
    void reset();

    /// Seconds before attempt number n; the first attempt has none whatever stands here, and later ones take the last.
    static constexpr std::array<double, 5> retryDelays = {0.0, 0.05, 0.1, 0.2, 0.4};

    QPointer<QWidget> window;
    bool pendingFocus = false;

private:
    void startAttempt(int number);
    void attempt(int number);
};

} // namespace Quillstacks
