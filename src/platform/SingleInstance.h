#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

namespace Quillstacks {

/// Keeps the program to one process per session, over org.freedesktop.Application on the session bus.
class SingleInstance final : public QObject {
    Q_OBJECT
public:
    enum class Outcome {
        first,      ///< the name is ours, or there is no session bus
        handedOver, ///< another process has it and was told to come forward: end with 0
    };
    explicit SingleInstance(QObject* parent = nullptr);
    ~SingleInstance() override;

    /// Registers the object, then asks for the name. Not the owner: calls Activate on the one that is.
    [[nodiscard]] Outcome start();
    /// Whether a session bus was there.
    [[nodiscard]] bool hasBus() const { return bus; }

Q_SIGNALS:
    /// A second start, or a click on the program's icon. `activationToken` may be empty.
    void activated(const QString& activationToken);
    /// A desktop action: "quick-access" or "new-prompt".
    void actionActivated(const QString& name, const QString& activationToken);

private:
    bool bus = false;
};

} // namespace Quillstacks
