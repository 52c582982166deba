#include "MenuPainter.h"

#include "interface/Drawing.h"
#include "interface/Menu.h"
#include "interface/Shadow.h"
#include "interface/Symbol.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QFontMetricsF>
#include <QMenu>
#include <QPainter>
#include <QStyleOption>

#include <cmath>

namespace Quillstacks::MenuPainter {
namespace {

constexpr int rowHeight = 28;
constexpr int separatorHeight = 11;
constexpr int padding = 9;
constexpr int symbolSize = 15;
constexpr int gap = 9;
constexpr int shortcutGap = 24;
constexpr int leastWidth = 160;
constexpr qreal menuRadius = 9;

QFont font() {
    return textFont(TextStyle::callout);
}

/// The title as a person reads it, and the shortcut behind its tab.
std::pair<QString, QString> parts(const QString& text) {
    const auto tab = text.indexOf(QLatin1Char('\t'));
    const QString title = tab < 0 ? text : text.left(tab);
    QString shown;
    for (qsizetype i = 0; i < title.size(); ++i) {
        if (title[i] == u'&' && i + 1 < title.size())
            ++i;
        shown += title[i];
    }
    return {shown, tab < 0 ? QString() : text.mid(tab + 1)};
}

void drawText(QPainter& painter, const QRectF& box, const QString& text, bool atEnd) {
    const QFontMetricsF metrics(painter.font());
    const qreal x = atEnd ? box.right() - metrics.horizontalAdvance(text) : box.left();
    painter.drawText(QPointF(x, std::round(box.center().y() + metrics.capHeight() / 2)), text);
}

} // namespace

QSize itemSize(const QStyleOptionMenuItem& item) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator)
        return {leastWidth, separatorHeight};
    const QFontMetricsF metrics(font());
    const auto [title, shortcut] = parts(item.text);
    qreal width = 2 * padding + metrics.horizontalAdvance(title);
    if (item.maxIconWidth > 0)
        width += symbolSize + gap;
    if (!shortcut.isEmpty())
        width += shortcutGap + metrics.horizontalAdvance(shortcut);
    return {std::max(leastWidth, static_cast<int>(std::ceil(width))), rowHeight};
}

int shadowMargin(const QWidget* widget) {
    const bool casts = qobject_cast<const Menu*>(widget) && widget->testAttribute(Qt::WA_TranslucentBackground);
    return casts && Theme::shared().isComposited() ? shadowReach(ShadowKind::menu) : 0;
}

void paintMenu(QPainter& painter, const QRect& window, const QWidget* menu) {
    const int reach = shadowMargin(menu);
    const QRect box = window.adjusted(reach, reach, -reach, -reach);
    if (reach > 0)
        paintShadow(painter, box, menuRadius, ShadowKind::menu);
    paintGround(painter, box, menuRadius);
}

void paintGround(QPainter& painter, const QRect& box, qreal radius) {
    const Theme& theme = Theme::shared();
    if (!theme.isComposited()) {
        painter.fillRect(box, theme.color(ColorRole::popover));
        radius = 0;
    }
    drawBox(painter, box, radius, theme.color(ColorRole::popover), theme.color(ColorRole::border));
}

void paintItem(QPainter& painter, const QStyleOptionMenuItem& item, const QMenu* menu) {
    const Theme& theme = Theme::shared();
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(QRect(item.rect.left() + padding, item.rect.center().y(), item.rect.width() - 2 * padding, 1),
                         theme.color(ColorRole::separator));
        return;
    }
    painter.save();
    const bool enabled = item.state & QStyle::State_Enabled;
    const bool highlighted = enabled && (item.state & QStyle::State_Selected);
    const QAction* action = menu ? menu->actionAt(item.rect.center()) : nullptr;
    const bool destructive = action && action->property(destructiveProperty).toBool();
    QColor color = theme.color(destructive ? ColorRole::red : ColorRole::text);
    if (highlighted) {
        fillRounded(painter, item.rect, 6, theme.color(ColorRole::accentFill));
        color = theme.color(ColorRole::onAccent);
    }
    if (!enabled)
        painter.setOpacity(0.5);
    QRectF box = QRectF(item.rect).adjusted(padding, 0, -padding, 0);
    if (item.maxIconWidth > 0) {
        const QRectF place(box.left(), box.center().y() - symbolSize / 2.0, symbolSize, symbolSize);
        if (item.checked)
            Symbol::paint(painter, place, QStringLiteral("checkmark"), color);
        else if (action)
            Symbol::paint(painter, place, action->icon().name(), color);
        box.setLeft(box.left() + symbolSize + gap);
    }
    painter.setFont(font());
    painter.setPen(color);
    const auto [title, shortcut] = parts(item.text);
    drawText(painter, box, title, false);
    if (!shortcut.isEmpty()) {
        painter.setPen(highlighted ? color : theme.color(ColorRole::text3));
        drawText(painter, box, shortcut, true);
    }
    painter.restore();
}

} // namespace Quillstacks::MenuPainter
