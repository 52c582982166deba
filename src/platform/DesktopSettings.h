#pragma once

#include <QColor>
#include <QObject>

#include <optional>

namespace Quillstacks {

enum class ColorScheme { light, dark };

/// What the desktop's own settings say about looks, from the settings portal where there is one. Follows changes while
/// the program runs.
class DesktopSettings final : public QObject {
    Q_OBJECT
public:
    static DesktopSettings& shared();

    /// The portal's preference; without one, by the lightness of the toolkit's palette. That is seen in the role
    /// Midlight, which the program's own palette must not set.
    [[nodiscard]] ColorScheme colorScheme() const { return scheme; }
    [[nodiscard]] std::optional<QColor> accentColor() const { return accent; }
    [[nodiscard]] bool reducedMotion() const { return lessMotion; }

Q_SIGNALS:
    void changed();

private:
    DesktopSettings();
    friend class DesktopSettingsSource;
    ColorScheme scheme = ColorScheme::light;
    std::optional<QColor> accent;
    bool lessMotion = false;
};

} // namespace Quillstacks
