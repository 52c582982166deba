#include "interface/Theme.h"

#include "ColorTable.h"
#include "interface/AppearanceMode.h"
#include "interface/Drawing.h"
#include "interface/TextStyle.h"
#include "platform/Windows.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>

namespace Quillstacks {
namespace {

ColorScheme preferredScheme() {
    switch (appearanceModePreference().value()) {
    case AppearanceMode::light:
        return ColorScheme::light;
    case AppearanceMode::dark:
        return ColorScheme::dark;
    case AppearanceMode::system:
        break;
    }
    return DesktopSettings::shared().colorScheme();
}

/// Leaves the roles of shading (Light, Midlight, Dark, Mid) as the desktop has them: DesktopSettings reads from them
/// whether the desktop is light or dark, and nothing is painted with them here.
QPalette makePalette(const Theme& theme) {
    const auto color = [&theme](ColorRole role) { return theme.color(role); };
    QPalette palette;
    palette.setColor(QPalette::Window, color(ColorRole::window));
    palette.setColor(QPalette::WindowText, color(ColorRole::text));
    palette.setColor(QPalette::Base, color(ColorRole::field));
    palette.setColor(QPalette::AlternateBase, color(ColorRole::card));
    palette.setColor(QPalette::Text, color(ColorRole::text));
    palette.setColor(QPalette::PlaceholderText, color(ColorRole::text3));
    palette.setColor(QPalette::Button, color(ColorRole::card));
    palette.setColor(QPalette::ButtonText, color(ColorRole::text));
    palette.setColor(QPalette::BrightText, color(ColorRole::onAccent));
    palette.setColor(QPalette::ToolTipBase, color(ColorRole::popover));
    palette.setColor(QPalette::ToolTipText, color(ColorRole::text));
    palette.setColor(QPalette::Highlight, color(ColorRole::textSelection));
    palette.setColor(QPalette::HighlightedText, color(ColorRole::text));
    palette.setColor(QPalette::Link, color(ColorRole::accent));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, color(ColorRole::text4));
    return palette;
}

} // namespace

Theme& Theme::shared() {
    static QPointer<Theme> theme;
    if (!theme)
        theme = new Theme(qApp);
    return *theme;
}

Theme::Theme(QObject* parent) : QObject(parent) {
    connect(&DesktopSettings::shared(), &DesktopSettings::changed, this, &Theme::refresh);
    Windows::observeComposited(this, [this] { refresh(); });
    qApp->installEventFilter(this);
    observePreferences();
    apply();
}

QColor Theme::ink(qreal opacity) const {
    return withOpacity(isDark() ? QColor(Qt::white) : QColor(22, 24, 40), opacity);
}

QColor Theme::tint(ColorRole role, qreal opacity) const {
    return withOpacity(color(role), opacity);
}

QColor Theme::material(Material material) const {
    switch (material) {
    case Material::regular:
        // Whether the compositor blurs cannot be known, so the ground is the one that reads without.
        if (composited)
            return withOpacity(isDark() ? QColor(0x25262C) : QColor(0xF8F8FA), .97);
        return isDark() ? QColor(0x25262C) : QColor(0xF6F6F8);
    case Material::raised:
        if (composited)
            return isDark() ? withOpacity(QColor(0x3A3C45), .94) : withOpacity(Qt::white, .96);
        return isDark() ? QColor(0x3A3C45) : QColor(Qt::white);
    case Material::ultraThin:
        break;
    }
    return ink(isDark() ? .035 : .028);
}

void Theme::refresh() {
    observePreferences();
    const auto oldColors = colors;
    const bool oldMotion = lessMotion;
    const bool oldComposited = composited;
    apply();
    if (colors != oldColors || lessMotion != oldMotion || composited != oldComposited)
        Q_EMIT changed();
}

void Theme::apply() {
    currentScheme = preferredScheme();
    lessMotion = DesktopSettings::shared().reducedMotion();
    composited = Windows::isComposited();
    colors = makeColorTable(isDark(), DesktopSettings::shared().accentColor());
    currentPalette = makePalette(*this);
    if (QApplication::palette() != currentPalette)
        QApplication::setPalette(currentPalette);
}

void Theme::observePreferences() {
    Preferences* standard = &Preferences::standard();
    if (observed == standard)
        return;
    if (observed)
        disconnect(observed, nullptr, this, nullptr);
    observed = standard;
    connect(standard, &Preferences::changed, this, [this](const QString& key) {
        if (key == appearanceModePreference().key)
            refresh();
    });
}

bool Theme::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange && watched == qApp) {
        resetTextFonts();
        Q_EMIT changed();
    }
    return false;
}

} // namespace Quillstacks
