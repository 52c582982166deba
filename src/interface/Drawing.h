#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace Quillstacks {

/// A filled rectangle with rounded corners.
void fillRounded(QPainter& painter, const QRectF& box, qreal radius, const QColor& color);
/// An edge that lies wholly inside `box`.
void strokeRounded(QPainter& painter, const QRectF& box, qreal radius, const QColor& color, qreal width = 1);
/// Both; the edge's colour stands on the ground as a wash of its own.
void drawBox(QPainter& painter, const QRectF& box, qreal radius, const QColor& ground, const QColor& edge);
/// A ground that fades from clear at the top of `box` to `color` at its bottom.
void paintFade(QPainter& painter, const QRectF& box, const QColor& color);
/// `a` at progress 0, `b` at 1.
[[nodiscard]] QColor mix(const QColor& a, const QColor& b, qreal progress);
[[nodiscard]] QColor withOpacity(QColor color, qreal opacity);

} // namespace Quillstacks
