#pragma once

#include <QAbstractButton>

namespace Quillstacks {

/// One colour of a grid, ringed while it is the chosen one. Which one that is the grid says, not a click.
class ColorSwatch final : public QAbstractButton {
    Q_OBJECT
public:
    /// Side in pixels, the ring included.
    static constexpr int side = 26;

    ColorSwatch(const QString& colorHex, QWidget* parent);

    [[nodiscard]] const QString& colorHex() const { return hex; }
    [[nodiscard]] QSize sizeHint() const override { return {side, side}; }

Q_SIGNALS:
    /// An arrow key, as a step to the right and one down.
    void arrowPressed(int right, int down);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void nextCheckState() override {}

private:
    QString hex;
};

} // namespace Quillstacks
