#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

namespace Quillstacks {

class SingleInstance;

/// org.freedesktop.Application, as the desktop entry specification has it.
class ApplicationAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    explicit ApplicationAdaptor(SingleInstance* instance);

    /// What a caller passes on of its own start.
    [[nodiscard]] static QVariantMap platformDataOfThisStart();

public Q_SLOTS:
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& name, const QVariantList& parameter, const QVariantMap& platformData);

private:
    SingleInstance* instance = nullptr;
};

} // namespace Quillstacks
