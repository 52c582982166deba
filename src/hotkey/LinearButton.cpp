#include "LinearButton.h"

#include "interface/Drawing.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace Quillstacks {

namespace {

constexpr qreal points = 13;
constexpr int lineHeight = 18;
constexpr int paddingX = 16;
constexpr int paddingY = 8;
constexpr qreal corner = 6;
constexpr qreal edgeOpacity = 0.15;
constexpr qreal hoverOpacity = 0.95;
constexpr qreal pressedOpacity = 0.8;
constexpr qreal pressedScale = 0.98;

} // namespace

LinearButton::LinearButton(const QString& text, bool primary, QWidget* parent)
    : Button(text, primary ? Kind::prominent : Kind::bordered, parent), isPrimary(primary), press(this) {
    connect(this, &QAbstractButton::pressed, this, [this] { press.to(1); });
    connect(this, &QAbstractButton::released, this, [this] { press.to(0); });
}

QSize LinearButton::sizeHint() const {
    const qreal width = QFontMetricsF(absoluteFont(points)).horizontalAdvance(text());
    return {static_cast<int>(std::ceil(width)) + 2 * paddingX, lineHeight + 2 * paddingY};
}

void LinearButton::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    const qreal rest = underMouse() ? hoverOpacity : 1;
    painter.setOpacity(rest + (pressedOpacity - rest) * press.value());
    const QPointF middle = QRectF(rect()).center();
    const qreal scale = 1 + (pressedScale - 1) * press.value();
    painter.translate(middle);
    painter.scale(scale, scale);
    painter.translate(-middle);
    if (isPrimary)
        fillRounded(painter, rect(), corner, theme.color(ColorRole::accentFill));
    else
        strokeRounded(painter, rect(), corner, theme.ink(edgeOpacity));
    painter.setPen(theme.color(isPrimary ? ColorRole::onAccent : ColorRole::text));
    painter.setFont(absoluteFont(points));
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace Quillstacks
