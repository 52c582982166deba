#include "SegmentButton.h"

#include "interface/Accessible.h"
#include "interface/Drawing.h"
#include "interface/FocusRing.h"
#include "interface/Symbol.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>

#include <cmath>

namespace Quillstacks {
namespace {

constexpr qreal symbolSize = 15;
constexpr qreal symbolGap = 6;
constexpr int padding = 8;

QFont labelFont() {
    return textFont(TextStyle::subheadline, QFont::Medium);
}

} // namespace

SegmentButton::SegmentButton(const SegmentedPicker::Segment& segment, SegmentedPicker* owner)
    : QAbstractButton(owner), picker(owner), symbol(segment.symbol), hover(this) {
    setText(segment.title);
    setShortcut({});
    setAccessibleName(segment.title);
    setCheckable(true);
    setAutoExclusive(true);
    setFocusPolicy(Qt::TabFocus);
    FocusRing::attach(this, 6);
    setAccessibleTraits(this, {QAccessible::RadioButton, [this] { click(); }, [this] { return isChecked(); }, {}});
}

QSize SegmentButton::sizeHint() const {
    const qreal text = QFontMetricsF(labelFont()).horizontalAdvance(this->text());
    const qreal leading = symbol.isEmpty() ? 0 : symbolSize + symbolGap;
    return {static_cast<int>(std::ceil(text + leading)) + 2 * padding, 26};
}

void SegmentButton::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(0.5);
    if (isChecked()) {
        fillRounded(painter, QRectF(rect()).adjusted(0, 1, 0, 1), 6, withOpacity(Qt::black, .14));
        fillRounded(painter, rect(), 6, theme.color(ColorRole::segmentOn));
    }
    const QColor color = isChecked() ? theme.color(ColorRole::text)
                                     : mix(theme.color(ColorRole::text2), theme.color(ColorRole::text), hover.value());
    const QFont font = labelFont();
    const QFontMetricsF metrics(font);
    const qreal leading = symbol.isEmpty() ? 0 : symbolSize + symbolGap;
    const qreal room = width() - 2.0 * padding - leading;
    const QString shown = metrics.elidedText(text(), Qt::ElideRight, room + 1);
    qreal x = std::round((width() - leading - metrics.horizontalAdvance(shown)) / 2);
    if (!symbol.isEmpty())
        Symbol::paint(painter, {x, (height() - symbolSize) / 2, symbolSize, symbolSize}, symbol, color);
    x += leading;
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(QPointF(x, std::round((height() + metrics.capHeight()) / 2)), shown);
}

void SegmentButton::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    hover.to(isEnabled() ? 1 : 0);
}

void SegmentButton::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    hover.to(0);
}

void SegmentButton::keyPressEvent(QKeyEvent* event) {
    const bool leftToRight = layoutDirection() == Qt::LeftToRight;
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        picker->move(event->key() == Qt::Key_Left && !leftToRight ? 1 : -1);
        break;
    case Qt::Key_Right:
    case Qt::Key_Down:
        picker->move(event->key() == Qt::Key_Right && !leftToRight ? -1 : 1);
        break;
    default:
        QAbstractButton::keyPressEvent(event);
    }
}

} // namespace Quillstacks
