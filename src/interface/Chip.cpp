#include "interface/Chip.h"

#include "interface/Drawing.h"
#include "interface/FocusRing.h"
#include "interface/RowText.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
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
    const qreal text = QFontMetricsF(textFont(textStyle(*this))).horizontalAdvance(startOfLine(name));
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
    const QString start = startOfLine(name);
    const bool fits = metrics.horizontalAdvance(start) <= room + 1;
    painter.drawText(QPointF(left, std::round(box.center().y() + metrics.capHeight() / 2)),
                     fits ? start : metrics.elidedText(start, Qt::ElideRight, room));
}

QList<qreal> ChipStyle::widths(const QStringList& names, qreal width, int spacing) const {
    QList<qreal> wanted;
    for (const QString& name : names)
        wanted << this->width(name);
    QList<qreal> ascending = wanted;
    std::sort(ascending.begin(), ascending.end());
    // The narrow ones leave what they don't need of an even share to the wider ones.
    qreal room = width - spacing * std::max<qreal>(static_cast<qreal>(names.size()) - 1, 0);
    qreal share = room;
    for (qsizetype i = 0; i < ascending.size(); ++i) {
        share = std::floor(room / static_cast<qreal>(ascending.size() - i));
        if (ascending[i] > share)
            break;
        room -= ascending[i];
    }
    const qreal narrowest = 2 * paddingX + dot; // the colour shows in any case
    for (qreal& each : wanted)
        each = std::min(each, std::max(share, narrowest));
    return wanted;
}

void ChipStyle::paintRow(QPainter& painter, const QPointF& origin, qreal width, int spacing,
                         const QList<std::pair<QString, QColor>>& tags, bool strong) const {
    const QColor ground = Theme::shared().color(ColorRole::fillChip);
    QStringList names;
    for (const auto& [name, color] : tags)
        names << name;
    const QList<qreal> places = widths(names, width, spacing);
    qreal x = origin.x();
    for (qsizetype i = 0; i < tags.size(); ++i) {
        paint(painter, {x, origin.y(), places[i], static_cast<qreal>(height())}, tags[i].first, tags[i].second, strong,
              ground);
        x += places[i] + spacing;
    }
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
