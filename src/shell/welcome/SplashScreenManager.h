#pragma once

#include "foundation/StoredPreference.h"

#include <QObject>

namespace Quillstacks {

/// "hasShownSplashScreen", false by default: the user has left the welcome by its button. Written by
/// SplashScreenManager only.
[[nodiscard]] const StoredPreference<bool>& hasShownSplashScreenPreference();

/// Decides whether this start shows the welcome.
class SplashScreenManager final : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool hasShownSplashScreen READ hasShownSplashScreen WRITE setHasShownSplashScreen NOTIFY
                   hasShownSplashScreenChanged)
public:
    /// The one that the program uses; it lives as long as the process.
    static SplashScreenManager& shared();
    explicit SplashScreenManager(QObject* parent = nullptr);

    [[nodiscard]] bool hasShownSplashScreen() const;
    void setHasShownSplashScreen(bool shown);

    /// Shows the welcome half a second later, unless it was left by its button before.
    void showIfNeeded();

Q_SIGNALS:
    void hasShownSplashScreenChanged();
};

} // namespace Quillstacks
