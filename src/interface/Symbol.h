#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QRectF>
#include <QString>

class QPainter;

namespace Quillstacks {

/// The program's icons, each an outline or a solid shape in one colour, named by symbol name ("star.fill").
namespace Symbol {

/// Paints the symbol into a square centred in `box`, crisp at the painter's device pixel ratio. `lineWidth` replaces
/// the line of outlines, on the symbols' grid of 24 (1.25 to 1.5 above 40 px); 0 keeps it. An unknown name paints
/// nothing.
void paint(QPainter& painter, const QRectF& box, const QString& name, const QColor& color, qreal lineWidth = 0);
/// The same as a pixmap of size x size logical pixels. Pixmaps are kept.
[[nodiscard]] QPixmap pixmap(const QString& name, qreal size, const QColor& color, qreal devicePixelRatio,
                             qreal lineWidth = 0);
/// For actions of menus; takes the colour of text at drawing time.
[[nodiscard]] QIcon icon(const QString& name);
[[nodiscard]] bool exists(const QString& name);

} // namespace Symbol
} // namespace Quillstacks
