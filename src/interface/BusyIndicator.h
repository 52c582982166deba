#pragma once

#include <QVariantAnimation>
#include <QWidget>

namespace Quillstacks {

/// A grey arc that turns while something of unknown length goes on, dimmed while disabled. It stands still where the
/// desktop asks for fewer movements. Its accessible name says what goes on.
class BusyIndicator final : public QWidget {
    Q_OBJECT
public:
    static constexpr int usualDiameter = 24;
    /// `diameter` in points.
    explicit BusyIndicator(const QString& accessibleName, QWidget* parent = nullptr, int diameter = usualDiameter);

    [[nodiscard]] bool isTurning() const { return turn.state() == QAbstractAnimation::Running; }
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void follow();

    const int diameter;
    QVariantAnimation turn; ///< in degrees
};

} // namespace Quillstacks
