#include "platform/DesktopSettings.h"
#include "BusThread.h"
#include "FakePortal.h"
#include "Tool.h"

#include <QDBusArgument>
#include <QDBusMetaType>

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

// One test: the settings are asked for once in the life of a process.
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

} // namespace
} // namespace Quillstacks
