#pragma once

#include <QRectF>

class QPainter;

namespace Quillstacks {

/// What casts the shadow; each has its offset, blur and darkness.
enum class ShadowKind { sheet, panel, welcome, toast, menu, card };

/// Paints the shadow of a rounded box, outside and beneath it, from a nine-patch that is kept per device pixel ratio.
/// Paint the box itself over it.
void paintShadow(QPainter& painter, const QRectF& box, qreal radius, ShadowKind kind);
/// How far the shadow reaches beyond its box, in logical pixels.
[[nodiscard]] int shadowReach(ShadowKind kind);

} // namespace Quillstacks
