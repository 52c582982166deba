#include "variables/VariableTokenAttachmentCell.h"

#include "interface/Drawing.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace Quillstacks {
namespace {

constexpr qreal fontSize = 12;
constexpr int roomForDot = 20;
constexpr int roomAtEnd = 8;
constexpr qreal inset = 2;
constexpr qreal fillOpacity = 0.12;
constexpr qreal selectedOpacity = 0.30;
constexpr qreal edgeOpacity = 0.18;
constexpr qreal dotSize = 6;
constexpr qreal dotLeft = 8;
constexpr qreal dotAbove = 3;
constexpr qreal nameGap = 6;
constexpr qreal nameAbove = 7;

QFont nameFont() {
    return absoluteFont(fontSize, QFont::Medium);
}

} // namespace

QSizeF VariableTokenAttachmentCell::size() const {
    return {std::ceil(QFontMetricsF(nameFont()).horizontalAdvance(name)) + roomForDot + roomAtEnd, height};
}

void VariableTokenAttachmentCell::draw(QPainter& painter, const QRectF& frame, bool isSelected) const {
    const Theme& theme = Theme::shared();
    const QRectF pill = frame.adjusted(0, inset, 0, -inset);
    const qreal middle = pill.center().y();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    drawBox(painter, pill, pill.height() / 2, theme.tint(ColorRole::accent, isSelected ? selectedOpacity : fillOpacity),
            theme.tint(ColorRole::accent, edgeOpacity));
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.color(ColorRole::accent));
    const QRectF dot(pill.left() + dotLeft, middle - dotAbove, dotSize, dotSize);
    painter.drawEllipse(dot);
    const QFont font = nameFont();
    painter.setFont(font);
    painter.setPen(theme.color(ColorRole::text));
    painter.drawText(QPointF(dot.right() + nameGap, middle - nameAbove + QFontMetricsF(font).ascent()), name);
    painter.restore();
}

} // namespace Quillstacks
