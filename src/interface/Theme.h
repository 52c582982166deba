#pragma once

#include "interface/ColorRole.h"
#include "platform/DesktopSettings.h"

#include <QColor>
#include <QObject>
#include <QPalette>
#include <QPointer>

#include <array>

namespace Quillstacks {

/// The present values of the look. Follows the appearanceMode preference and the desktop's settings while the program
/// runs, and keeps the application's palette in step.
class Theme final : public QObject {
    Q_OBJECT
public:
    /// Made on first use; lives as long as the application object.
    static Theme& shared();

    [[nodiscard]] ColorScheme scheme() const { return currentScheme; }
    [[nodiscard]] bool isDark() const { return currentScheme == ColorScheme::dark; }
    [[nodiscard]] QColor color(ColorRole role) const { return colors[static_cast<std::size_t>(role)]; }
    /// The primary colour as a wash, opacity 0 to 1.
    [[nodiscard]] QColor ink(qreal opacity) const;
    /// A colour of the look at an opacity of 0 to 1.
    [[nodiscard]] QColor tint(ColorRole role, qreal opacity) const;
    [[nodiscard]] QColor material(Material material) const;
    [[nodiscard]] bool isComposited() const { return composited; }
    /// The desktop asks for fewer movements: each becomes a fade of 120 ms.
    [[nodiscard]] bool reducedMotion() const { return lessMotion; }
    [[nodiscard]] const QPalette& palette() const { return currentPalette; }
    /// Takes preference, desktop settings and font anew; tells changed() when anything differs.
    void refresh();

Q_SIGNALS:
    /// Scheme, accent, font, motion or compositing is another: repaint, and lay out anew.
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit Theme(QObject* parent);
    void observePreferences();
    void apply();

    std::array<QColor, static_cast<std::size_t>(ColorRole::count)> colors;
    QPalette currentPalette;
    ColorScheme currentScheme = ColorScheme::dark;
    QPointer<QObject> observed; ///< the preferences that are followed
    bool composited = true;
    bool lessMotion = false;
};

} // namespace Quillstacks
