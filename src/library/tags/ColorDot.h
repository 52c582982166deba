#pragma once

#include <QColor>
#include <QWidget>

namespace Quillstacks {

/// A filled circle in the middle of `box`.
void paintDot(QPainter& painter, const QRectF& box, qreal diameter, const QColor& color);

/// The same as a widget.
class ColorDot final : public QWidget {
    Q_OBJECT
public:
    ColorDot(int diameter, QWidget* parent);
    void setColor(const QColor& color);
    [[nodiscard]] const QColor& color() const { return shown; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor shown;
};

} // namespace Quillstacks
