#include "interface/Drawing.h"

#include <QLinearGradient>
#include <QPainter>

namespace Quillstacks {

void fillRounded(QPainter& painter, const QRectF& box, qreal radius, const QColor& color) {
    if (!color.isValid() || color.alpha() == 0)
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    if (radius > 0)
        painter.drawRoundedRect(box, radius, radius);
    else
        painter.drawRect(box);
}

void strokeRounded(QPainter& painter, const QRectF& box, qreal radius, const QColor& color, qreal width) {
    if (!color.isValid() || color.alpha() == 0)
        return;
    const qreal half = width / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box.adjusted(half, half, -half, -half), std::max(0.0, radius - half),
                            std::max(0.0, radius - half));
}

void drawBox(QPainter& painter, const QRectF& box, qreal radius, const QColor& ground, const QColor& edge) {
    fillRounded(painter, box, radius, ground);
    strokeRounded(painter, box, radius, edge);
}

void paintFade(QPainter& painter, const QRectF& box, const QColor& color) {
    QLinearGradient gradient(box.topLeft(), box.bottomLeft());
    gradient.setColorAt(0, withOpacity(color, 0));
    gradient.setColorAt(1, color);
    painter.fillRect(box, gradient);
}

QColor mix(const QColor& a, const QColor& b, qreal progress) {
    if (progress <= 0 || !b.isValid())
        return a;
    if (progress >= 1 || !a.isValid())
        return b;
    // Weighted by opacity, so that a clear colour has no say in the hue.
    const qreal alpha = a.alphaF() * (1 - progress) + b.alphaF() * progress;
    if (alpha <= 0)
        return a;
    const auto channel = [&](qreal x, qreal y) {
        return static_cast<float>((x * a.alphaF() * (1 - progress) + y * b.alphaF() * progress) / alpha);
    };
    const auto bounded = [](float value) { return std::clamp(value, 0.0F, 1.0F); };
    return QColor::fromRgbF(bounded(channel(a.redF(), b.redF())), bounded(channel(a.greenF(), b.greenF())),
                            bounded(channel(a.blueF(), b.blueF())), static_cast<float>(alpha));
}

QColor withOpacity(QColor color, qreal opacity) {
    color.setAlphaF(static_cast<float>(std::clamp(opacity, 0.0, 1.0)));
    return color;
}

} // namespace Quillstacks
