#pragma once

#include "platform/DesktopSettings.h"

#include <QCoroTask>
#include <QDBusMessage> // in full: the bus finds a slot only if it knows the types of its parameters
#include <QString>
#include <QVariant>

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
    /// By value: the coroutine outlives its caller's texts. This object lives as long as the process.
    QCoro::Task<> read(QString nameSpace, QString key);
    void apply(const QString& nameSpace, const QString& key, const QVariant& value);

    DesktopSettings* settings = nullptr;
    ColorScheme schemeOfPalette = ColorScheme::light;
};

} // namespace Quillstacks
