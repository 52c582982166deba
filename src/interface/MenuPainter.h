#pragma once

#include <QRect>
#include <QSize>

class QMenu;
class QPainter;
class QStyleOptionMenuItem;
class QWidget;

/// How menus and tool tips are drawn.
namespace Quillstacks::MenuPainter {

inline constexpr int margin = 5;
/// Dynamic property of an action that takes something away.
inline constexpr const char* destructiveProperty = "quillstacksDestructive";

/// Kept clear around a menu of the program for its shadow; 0 for other widgets, and where nothing is composited.
[[nodiscard]] int shadowMargin(const QWidget* widget);
[[nodiscard]] QSize itemSize(const QStyleOptionMenuItem& item);
/// Ground and shadow of a whole menu.
void paintMenu(QPainter& painter, const QRect& window, const QWidget* menu);
void paintGround(QPainter& painter, const QRect& box, qreal radius);
void paintItem(QPainter& painter, const QStyleOptionMenuItem& item, const QMenu* menu);

} // namespace Quillstacks::MenuPainter
