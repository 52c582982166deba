#pragma once

#include "platform/DesktopSettings.h"

#include <QDBusMessage> // in full: the bus finds a slot only if it knows the types of its parameters
#include <QString>
#include <QVariant>

class QDBusPendingCallWatcher;

namespace Quillstacks {

/// Fills DesktopSettings from the settings portal. Nothing waits for the answers: until they come, and where there is
/// no portal, the toolkit's palette decides.
class DesktopSettingsSource final : public QObject {
    Q_OBJECT
public:
    explicit DesktopSettingsSource(DesktopSettings* settings);

private Q_SLOTS:
    void settingChanged(const QDBusMessage& message);

private:
    /// `method` is "ReadOne"; where the portal is too old to know it, "Read".
    void ask(const QString& nameSpace, const QString& key, const QString& method);
    void answered(QDBusPendingCallWatcher* call, const QString& nameSpace, const QString& key, const QString& method);
    void apply(const QString& nameSpace, const QString& key, const QVariant& value);

    DesktopSettings* settings = nullptr;
    ColorScheme schemeOfPalette = ColorScheme::light;
};

} // namespace Quillstacks
