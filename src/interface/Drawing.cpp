#include "interface/Drawing.h"

#include <QLinearGradient>
#include <QPainter>

#include <array>
#include <cmath>

namespace Quillstacks {

namespace {

/// Whether edges and the ends of corners fall between device pixels; then sides need no antialiasing and meet the
/// corners without a seam.
bool isOnGrid(const QPainter& painter, const QRectF& box, qreal corner) {
    const QTransform transform = painter.deviceTransform();
    if (transform.type() > QTransform::TxScale || box.width() < 2 * corner || box.height() < 2 * corner)
        return false;
    const QRectF outer = transform.mapRect(box);
    const QRectF inner = transform.mapRect(box.adjusted(corner, corner, -corner, -corner));
    const auto isWhole = [](qreal value) { return std::abs(value - std::round(value)) < 0.01; };
    return std::ranges::all_of(std::array{outer.left(), outer.top(), outer.right(), outer.bottom(), inner.left(),
                                          inner.top(), inner.right(), inner.bottom()},
                               isWhole);
}

/// The boxes of the four arcs, and the angle at which each begins.
std::array<std::pair<QRectF, int>, 4> arcs(const QRectF& box, qreal radius) {
    const QSizeF size(2 * radius, 2 * radius);
    return {{{QRectF(box.topLeft(), size), 90},
             {QRectF(box.topRight() - QPointF(2 * radius, 0), size), 0},
             {QRectF(box.bottomRight() - QPointF(2 * radius, 2 * radius), size), 270},
             {QRectF(box.bottomLeft() - QPointF(0, 2 * radius), size), 180}}};
}

// Antialiasing is slow in proportion to the height of what is drawn, so only the corners get it.
void fillInParts(QPainter& painter, const QRectF& box, qreal radius, const QColor& color) {
    painter.fillRect(box.adjusted(0, radius, 0, -radius), color);
    painter.fillRect(QRectF(box.left() + radius, box.top(), box.width() - 2 * radius, radius), color);
    painter.fillRect(QRectF(box.left() + radius, box.bottom() - radius, box.width() - 2 * radius, radius), color);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    for (const auto& [place, angle] : arcs(box, radius))
        painter.drawPie(place, angle * 16, 90 * 16);
}

void strokeInParts(QPainter& painter, const QRectF& box, qreal radius, const QColor& color, qreal width) {
    const qreal across = box.width() - 2 * radius;
    const qreal along = box.height() - 2 * radius;
    painter.fillRect(QRectF(box.left() + radius, box.top(), across, width), color);
    painter.fillRect(QRectF(box.left() + radius, box.bottom() - width, across, width), color);
    painter.fillRect(QRectF(box.left(), box.top() + radius, width, along), color);
    painter.fillRect(QRectF(box.right() - width, box.top() + radius, width, along), color);
    const qreal half = width / 2;
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::FlatCap));
    painter.setBrush(Qt::NoBrush);
    for (const auto& [place, angle] : arcs(box.adjusted(half, half, -half, -half), radius - half))
        painter.drawArc(place, angle * 16, 90 * 16);
}

} // namespace

void fillRounded(QPainter& painter, const QRectF& box, qreal radius, const QColor& color) {
    if (!color.isValid() || color.alpha() == 0)
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    if (isOnGrid(painter, box, radius)) {
        fillInParts(painter, box, radius, color);
        return;
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(box, radius, radius);
}

void strokeRounded(QPainter& painter, const QRectF& box, qreal radius, const QColor& color, qreal width) {
    if (!color.isValid() || color.alpha() == 0)
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    if (radius > width && isOnGrid(painter, box, radius)) {
        strokeInParts(painter, box, radius, color, width);
        return;
    }
    const qreal half = width / 2;
    const qreal middle = std::max(0.0, radius - half);
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box.adjusted(half, half, -half, -half), middle, middle);
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
