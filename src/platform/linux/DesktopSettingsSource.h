#pragma once

#include "platform/DesktopSettings.h"

#include <QCoroTask>
#include <QDBusMessage> // in full: the bus finds a slot only if it knows the types of its parameters
#include <QString>
#include <QVariant>

namespace Quillstacks {

/// Fills DesktopSettings from the settings portal, and again when the portal comes back. Nothing waits for the answers:
/// until they come, and where there is no portal, the toolkit's palette decides, as it is at any time.
class DesktopSettingsSource final : public QObject {
    Q_OBJECT
public:
    explicit DesktopSettingsSource(DesktopSettings* settings);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void settingChanged(const QDBusMessage& message);

private:
    void readAll();
    void paletteChanged();
    /// By value: the coroutine outlives its caller's texts. This object lives as long as the process.
    QCoro::Task<> read(QString nameSpace, QString key);
    void apply(const QString& nameSpace, const QString& key, const QVariant& value);

    DesktopSettings* settings = nullptr;
    std::optional<ColorScheme> preferredScheme; ///< what the portal says, if it says anything
};

} // namespace Quillstacks
