#include "interface/Chip.h"

#include "interface/Drawing.h"
#include "interface/FocusRing.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace Quillstacks {
namespace {

TextStyle textStyle(const ChipStyle& style) {
    return style.small ? TextStyle::caption2 : TextStyle::caption;
}

} // namespace

int ChipStyle::height() const {
    return textLineHeight(textStyle(*this)) + 2 * paddingY;
}

int ChipStyle::width(const QString& name) const {
    const qreal text = QFontMetricsF(textFont(textStyle(*this))).horizontalAdvance(name);
    return static_cast<int>(std::ceil(text)) + dot + gap + 2 * paddingX;
}

void ChipStyle::paint(QPainter& painter, const QRectF& box, const QString& name, const QColor& dotColor, bool strong,
                      const QColor& ground) const {
    const Theme& theme = Theme::shared();
    fillRounded(painter, box, radius, ground);
    painter.setBrush(dotColor);
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(QRectF(box.left() + paddingX, box.center().y() - dot / 2.0, dot, dot));
    const QFont font = textFont(textStyle(*this));
    const QFontMetricsF metrics(font);
    const qreal left = box.left() + paddingX + dot + gap;
    const qreal room = box.right() - paddingX - left;
    painter.setFont(font);
    painter.setPen(theme.color(strong ? ColorRole::text : ColorRole::text2));
    const bool fits = metrics.horizontalAdvance(name) <= room + 1;
    painter.drawText(QPointF(left, std::round(box.center().y() + metrics.capHeight() / 2)),
                     fits ? name : metrics.elidedText(name, Qt::ElideRight, room));
}

int ChipStyle::paintRow(QPainter& painter, const QPointF& origin, qreal width, int spacing,
                        const QList<std::pair<QString, QColor>>& tags, bool strong) const {
    const QColor ground = Theme::shared().color(ColorRole::fillChip);
    qreal x = origin.x();
    int painted = 0;
    for (const auto& [name, color] : tags) {
        const qreal room = origin.x() + width - x;
        const qreal wanted = this->width(name);
        // The first is always shown, shortened if need be.
        if (painted > 0 && wanted > room)
            break;
        paint(painter, {x, origin.y(), std::min(wanted, room), static_cast<qreal>(height())}, name, color, strong,
              ground);
        x += wanted + spacing;
        ++painted;
    }
    return painted;
}

Chip::Chip(const QString& name, const QColor& color, QWidget* parent) : QAbstractButton(parent), hover(this) {
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setTag(name, color);
    FocusRing::attach(this, ChipStyle::selector().radius);
    connect(&Theme::shared(), &Theme::changed, this, [this] {
        updateGeometry();
        update();
    });
}

void Chip::setTag(const QString& name, const QColor& color) {
    setText(name);
    setShortcut({}); // the toolkit makes one of an "&" in the name
    setAccessibleName(name);
    dotColor = color;
    updateGeometry();
    update();
}

QSize Chip::sizeHint() const {
    const ChipStyle style = ChipStyle::selector();
    // The edge stands outside the padding.
    return {style.width(text()) + 2, style.height() + 2};
}

void Chip::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(0.5);
    const QColor off = mix(theme.color(ColorRole::fillChip), theme.ink(.09), hover.value());
    fillRounded(painter, rect(), ChipStyle::selector().radius, isChecked() ? theme.color(ColorRole::fillChipOn) : off);
    if (isChecked())
        strokeRounded(painter, rect(), ChipStyle::selector().radius, theme.color(ColorRole::chipOnEdge));
    ChipStyle::selector().paint(painter, QRectF(rect()).adjusted(1, 1, -1, -1), text(), dotColor, isChecked(), {});
}

void Chip::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    hover.to(isEnabled() ? 1 : 0);
}

void Chip::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    hover.to(0);
}

} // namespace Quillstacks
