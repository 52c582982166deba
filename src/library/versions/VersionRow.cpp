#include "VersionRow.h"

#include "foundation/Clock.h"
#include "interface/Drawing.h"
#include "interface/Symbol.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"
#include "RelativeDate.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Quillstacks {
namespace {

constexpr int smallestHeight = 50;
constexpr int padding = 8;
constexpr int dotSide = 9;
constexpr int dotGap = 9;
constexpr int lineGap = 1;
constexpr int checkmarkSide = 18;
constexpr qreal radius = 8;

int textHeight() {
    return textLineHeight(TextStyle::subheadline) + lineGap + textLineHeight(TextStyle::caption2);
}

void drawLine(QPainter& painter, const QRectF& box, const QFont& font, const QColor& color, const QString& text) {
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetricsF(font).elidedText(text, Qt::ElideRight, box.width()));
}

} // namespace

VersionRow::VersionRow(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("VersionRow"));
}

int VersionRow::rowHeight() {
    return std::max(smallestHeight, textHeight() + 2 * padding);
}

void VersionRow::setFields(const Fields& fields) {
    shown = fields;
    const Date now = Clock::now();
    dateLine = relativeDate(shown.date, now, RelativeDateUnits::abbreviated);
    // Spoken, "hr." would be a riddle.
    setAccessibleName(shown.title + QStringLiteral(", ") + relativeDate(shown.date, now, RelativeDateUnits::full));
    update();
}

void VersionRow::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    const QRectF box = rect();
    if (shown.isSelected)
        fillRounded(painter, box, radius, theme.color(ColorRole::versionSelect));
    if (shown.isCurrent)
        Symbol::paint(painter, {padding, (box.height() - dotSide) / 2, dotSide, dotSide}, QStringLiteral("circle.fill"),
                      theme.color(ColorRole::green));
    qreal right = box.right() - padding;
    if (shown.isSelected) {
        right -= checkmarkSide;
        Symbol::paint(painter, {right, (box.height() - checkmarkSide) / 2, checkmarkSide, checkmarkSide},
                      QStringLiteral("checkmark.circle.fill"), theme.color(ColorRole::blue));
        right -= padding;
    }
    const qreal left = padding + dotSide + dotGap;
    qreal top = std::round((box.height() - textHeight()) / 2);
    const QSizeF titleSize(right - left, textLineHeight(TextStyle::subheadline));
    drawLine(painter, {{left, top}, titleSize}, textFont(TextStyle::subheadline, QFont::Medium),
             theme.color(ColorRole::text), shown.title);
    top += titleSize.height() + lineGap;
    drawLine(painter, {left, top, right - left, static_cast<qreal>(textLineHeight(TextStyle::caption2))},
             textFont(TextStyle::caption2), theme.color(ColorRole::text2), dateLine);
}

} // namespace Quillstacks
