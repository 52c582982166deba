#include "DesktopSettingsSource.h"

#include <QCoroDBusPendingCall>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

#include <array>

namespace Quillstacks {

namespace {

constexpr uint preferDark = 1;
constexpr uint preferLight = 2;
constexpr int middleLightness = 128;

const QString portal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString gnomeInterface = QStringLiteral("org.gnome.desktop.interface");
const QString colorSchemeKey = QStringLiteral("color-scheme");
const QString accentColorKey = QStringLiteral("accent-color");
const QString animationsKey = QStringLiteral("enable-animations");
const QString readOne = QStringLiteral("ReadOne");
const QString readOld = QStringLiteral("Read");

/// The older call wraps its answer in one variant more.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

/// Three numbers from 0 to 1; the portal's way to say "none" is a number out of that range.
std::optional<QColor> colorFrom(const QVariant& value) {
    if (!value.canConvert<QDBusArgument>())
        return std::nullopt;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("(ddd)"))
        return std::nullopt;
    std::array<double, 3> parts{};
    argument.beginStructure();
    for (double& part : parts)
        argument >> part;
    argument.endStructure();
    if (!std::ranges::all_of(parts, [](double part) { return part >= 0 && part <= 1; }))
        return std::nullopt;
    return QColor::fromRgbF(static_cast<float>(parts[0]), static_cast<float>(parts[1]), static_cast<float>(parts[2]));
}

/// None for any other number.
std::optional<ColorScheme> schemePreference(uint number) {
    if (number == preferDark)
        return ColorScheme::dark;
    return number == preferLight ? std::optional(ColorScheme::light) : std::nullopt;
}

/// The desktop's, also while the program has a palette of its own: that one leaves this role to the desktop.
ColorScheme schemeOfPalette() {
    const bool dark = QGuiApplication::palette().color(QPalette::Midlight).lightness() < middleLightness;
    return dark ? ColorScheme::dark : ColorScheme::light;
}

QDBusMessage question(const QString& method, const QString& nameSpace, const QString& key) {
    auto message = QDBusMessage::createMethodCall(portal, portalPath, settingsInterface, method);
    message << nameSpace << key;
    return message;
}

} // namespace

DesktopSettingsSource::DesktopSettingsSource(DesktopSettings* target) : QObject(target), settings(target) {
    settings->scheme = schemeOfPalette();
    qApp->installEventFilter(this);

    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    // The slot takes the whole message: one that names its parameters' types is silently never called for this signal.
    bus.connect(portal, portalPath, settingsInterface, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QDBusMessage)));
    // What changed while it was away, or before it was first there, is told by no signal.
    auto* watcher = new QDBusServiceWatcher(portal, bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &DesktopSettingsSource::readAll);
    readAll();
}

void DesktopSettingsSource::readAll() {
    read(appearance, colorSchemeKey);
    read(appearance, accentColorKey);
    read(gnomeInterface, animationsKey);
}

bool DesktopSettingsSource::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qApp)
        paletteChanged();
    return false;
}

void DesktopSettingsSource::paletteChanged() {
    const ColorScheme scheme = preferredScheme.value_or(schemeOfPalette());
    if (scheme == settings->scheme)
        return;
    settings->scheme = scheme;
    Q_EMIT settings->changed();
}

QCoro::Task<> DesktopSettingsSource::read(QString nameSpace, QString key) {
    QDBusMessage reply = co_await QDBusConnection::sessionBus().asyncCall(question(readOne, nameSpace, key));
    // A portal that is too old to know the call knows its forerunner.
    if (reply.errorName() == QLatin1String("org.freedesktop.DBus.Error.UnknownMethod"))
        reply = co_await QDBusConnection::sessionBus().asyncCall(question(readOld, nameSpace, key));
    if (reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty())
        apply(nameSpace, key, unwrapped(reply.arguments().constFirst()));
}

void DesktopSettingsSource::settingChanged(const QDBusMessage& message) {
    const QVariantList arguments = message.arguments();
    if (arguments.size() == 3)
        apply(arguments.at(0).toString(), arguments.at(1).toString(), unwrapped(arguments.at(2)));
}

void DesktopSettingsSource::apply(const QString& nameSpace, const QString& key, const QVariant& value) {
    ColorScheme scheme = settings->scheme;
    std::optional<QColor> accent = settings->accent;
    bool lessMotion = settings->lessMotion;
    if (nameSpace == appearance && key == colorSchemeKey) {
        preferredScheme = schemePreference(value.toUInt());
        scheme = preferredScheme.value_or(schemeOfPalette());
    } else if (nameSpace == appearance && key == accentColorKey) {
        accent = colorFrom(value);
    } else if (nameSpace == gnomeInterface && key == animationsKey) {
        lessMotion = !value.toBool();
    }
    if (scheme == settings->scheme && accent == settings->accent && lessMotion == settings->lessMotion)
        return;
    settings->scheme = scheme;
    settings->accent = accent;
    settings->lessMotion = lessMotion;
    Q_EMIT settings->changed();
}

} // namespace Quillstacks
