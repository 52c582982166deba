#include "ColorDot.h"

#include <QPainter>

namespace Quillstacks {

void paintDot(QPainter& painter, const QRectF& box, qreal diameter, const QColor& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(box.center(), diameter / 2, diameter / 2);
    painter.restore();
}

ColorDot::ColorDot(int diameter, QWidget* parent) : QWidget(parent) {
    setFixedSize(diameter, diameter);
}

void ColorDot::setColor(const QColor& color) {
    shown = color;
    update();
}

void ColorDot::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintDot(painter, rect(), width(), shown);
}

} // namespace Quillstacks
