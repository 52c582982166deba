#pragma once

#include <QObject>

class QWidget;

namespace Quillstacks {

/// What an input method composes in a field and has not handed over yet. The field shows it, but its text lacks it.
class Composition final : public QObject {
    Q_OBJECT
public:
    /// The field owns it.
    explicit Composition(QWidget* field);

    /// Whether there is any.
    [[nodiscard]] bool isActive() const { return !composed.isEmpty(); }
    /// Makes it text of the field, as it stands.
    void commit();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* field;
    QString composed;
};

} // namespace Quillstacks
