#include "platform/DesktopSettings.h"
#include "BusThread.h"
#include "FakePortal.h"
#include "Tool.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusMetaType>
#include <QPalette>
#include <QProxyStyle>

#include <gtest/gtest.h>

namespace Quillstacks {

/// A colour as the portal sends it.
struct PortalColor {
    double red = 0;
    double green = 0;
    double blue = 0;
};

QDBusArgument& operator<<(QDBusArgument& argument, const PortalColor& color) {
    argument.beginStructure();
    argument << color.red << color.green << color.blue;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalColor& color) {
    argument.beginStructure();
    argument >> color.red >> color.green >> color.blue;
    argument.endStructure();
    return argument;
}

} // namespace Quillstacks

Q_DECLARE_METATYPE(Quillstacks::PortalColor)

namespace Quillstacks {

namespace {

void change(FakePortal& portal, const char* nameSpace, const char* key, const QVariant& value) {
    QMetaObject::invokeMethod(&portal, [&portal, nameSpace, key, value] {
        Q_EMIT portal.SettingChanged(QString::fromLatin1(nameSpace), QString::fromLatin1(key), QDBusVariant(value));
    });
}

/// A style that makes the toolkit's palette a light or a dark one, as a desktop does that changes its colours.
class StyleOf final : public QProxyStyle {
public:
    explicit StyleOf(ColorScheme wanted) : scheme(wanted) {}
    using QProxyStyle::polish;
    void polish(QPalette& palette) override {
        palette = QPalette(scheme == ColorScheme::dark ? QColor(0x2A2E32) : QColor(0xEFF0F1));
    }

private:
    ColorScheme scheme;
};

// The settings are made once in the life of a process, so this test comes first.
TEST(DesktopSettingsFromPortal, areReadWithoutWaitingAndFollowed) {
    qDBusRegisterMetaType<PortalColor>();
    BusThread<FakePortal> portal("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop");
    portal.service.isSilent = true;
    DesktopSettings& settings = DesktopSettings::shared();
    EXPECT_EQ(settings.colorScheme(), ColorScheme::light) << "of the toolkit's palette, until the portal answers";
    EXPECT_FALSE(settings.reducedMotion());
    EXPECT_FALSE(settings.accentColor());
    portal.service.isSilent = false;

    EXPECT_TRUE(eventually([&] { return settings.colorScheme() == ColorScheme::dark; })) << "ReadOne";
    EXPECT_TRUE(eventually([&] { return settings.reducedMotion(); })) << "Read";
    EXPECT_FALSE(settings.accentColor()) << "this portal has none";

    int changes = 0;
    QObject context;
    QObject::connect(&settings, &DesktopSettings::changed, &context, [&changes] { ++changes; });
    change(portal.service, "org.freedesktop.appearance", "color-scheme", QVariant::fromValue(uint{2}));
    EXPECT_TRUE(eventually([&] { return settings.colorScheme() == ColorScheme::light; }));
    change(portal.service, "org.freedesktop.appearance", "accent-color",
           QVariant::fromValue(PortalColor{.red = 1, .green = 0.5, .blue = 0}));
    EXPECT_TRUE(eventually([&] { return settings.accentColor().has_value(); }));
    EXPECT_EQ(settings.accentColor().value_or(QColor()).name(), QStringLiteral("#ff8000"));
    change(portal.service, "org.freedesktop.appearance", "accent-color",
           QVariant::fromValue(PortalColor{.red = -1, .green = -1, .blue = -1}));
    EXPECT_TRUE(eventually([&] { return !settings.accentColor().has_value(); })) << "out of range: no preference";
    change(portal.service, "org.gnome.desktop.interface", "font-name", QStringLiteral("Sans 11"));
    change(portal.service, "org.gnome.desktop.interface", "enable-animations", true);
    EXPECT_TRUE(eventually([&] { return !settings.reducedMotion(); }));
    EXPECT_EQ(changes, 4) << "a setting of no interest is none";
    change(portal.service, "org.freedesktop.appearance", "color-scheme", QVariant::fromValue(uint{1}));
    EXPECT_TRUE(eventually([&] { return settings.colorScheme() == ColorScheme::dark; }));
    change(portal.service, "org.freedesktop.appearance", "color-scheme", QVariant::fromValue(uint{0}));
    EXPECT_TRUE(eventually([&] { return settings.colorScheme() == ColorScheme::light; })) << "no preference: palette";
}

TEST(DesktopSettingsFromPortal, areReadAgainWhenThePortalComesBack) {
    DesktopSettings& settings = DesktopSettings::shared();
    {
        BusThread<FakePortal> portal("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop");
        EXPECT_TRUE(eventually([&] { return settings.colorScheme() == ColorScheme::dark; }));
        change(portal.service, "org.freedesktop.appearance", "color-scheme", QVariant::fromValue(uint{2}));
        EXPECT_TRUE(eventually([&] { return settings.colorScheme() == ColorScheme::light; }));
    }
    BusThread<FakePortal> portal("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop");
    EXPECT_TRUE(eventually([&] { return settings.colorScheme() == ColorScheme::dark; }));
}

TEST(DesktopSettingsFromPortal, itsPreferenceStandsWhateverThePaletteDoes) {
    BusThread<FakePortal> portal("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop");
    DesktopSettings& settings = DesktopSettings::shared();
    EXPECT_TRUE(eventually([&] { return settings.colorScheme() == ColorScheme::dark; }));
    int changes = 0;
    QObject context;
    QObject::connect(&settings, &DesktopSettings::changed, &context, [&changes] { ++changes; });
    for (const ColorScheme scheme : {ColorScheme::dark, ColorScheme::light}) {
        QApplication::setStyle(new StyleOf(scheme));
        EXPECT_EQ(QGuiApplication::palette().color(QPalette::Window).lightness() < 128, scheme == ColorScheme::dark);
        EXPECT_EQ(settings.colorScheme(), ColorScheme::dark);
    }
    EXPECT_EQ(changes, 0);
}

TEST(DesktopSettingsWithoutPortal, theToolkitsPaletteIsFollowedWhileTheProgramHasItsOwn) {
    DesktopSettings& settings = DesktopSettings::shared();
    EXPECT_EQ(settings.colorScheme(), ColorScheme::light);
    QPalette own;
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button, QPalette::WindowText})
        own.setColor(role, Qt::white);
    QApplication::setPalette(own);
    int changes = 0;
    QObject context;
    QObject::connect(&settings, &DesktopSettings::changed, &context, [&changes] { ++changes; });
    QApplication::setStyle(new StyleOf(ColorScheme::dark));
    EXPECT_EQ(settings.colorScheme(), ColorScheme::dark);
    EXPECT_EQ(QGuiApplication::palette().color(QPalette::Window), QColor(Qt::white)) << "the program's own";
    QApplication::setStyle(new StyleOf(ColorScheme::light));
    EXPECT_EQ(settings.colorScheme(), ColorScheme::light);
    EXPECT_EQ(changes, 2);
}

} // namespace
} // namespace Quillstacks
