#pragma once

#include <QRect>
#include <QSize>

class QMenu;
class QPainter;
class QStyleOptionMenuItem;

/// How menus and tool tips are drawn.
namespace Quillstacks::MenuPainter {

inline constexpr int margin = 5;
/// Dynamic property of an action that takes something away.
inline constexpr const char* destructiveProperty = "quillstacksDestructive";

[[nodiscard]] QSize itemSize(const QStyleOptionMenuItem& item);
void paintGround(QPainter& painter, const QRect& box, qreal radius);
void paintItem(QPainter& painter, const QStyleOptionMenuItem& item, const QMenu* menu);

} // namespace Quillstacks::MenuPainter
