#include "QuickAccessEmptyState.h"

#include "interface/Accessible.h"
#include "interface/Symbol.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QPainter>

namespace Quillstacks {

namespace {

constexpr int symbolSize = 48;
constexpr qreal symbolLine = 1.5;
constexpr int gap = 14;
constexpr int rise = 4; // optical: the column stands a little above the middle

} // namespace

QuickAccessEmptyState::QuickAccessEmptyState(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("QuickAccessEmptyState"));
    AccessibleTraits traits;
    traits.role = QAccessible::StaticText;
    setAccessibleTraits(this, traits);
}

void QuickAccessEmptyState::setText(const QString& text) {
    if (text == line)
        return;
    line = text;
    setAccessibleName(text);
    update();
}

void QuickAccessEmptyState::paintEvent(QPaintEvent*) {
    const int lineHeight = textLineHeight(TextStyle::body);
    const qreal top = (height() - symbolSize - gap - lineHeight) / 2.0 - rise;
    QPainter painter(this);
    Symbol::paint(painter, QRectF((width() - symbolSize) / 2.0, top, symbolSize, symbolSize),
                  QStringLiteral("magnifyingglass"), Theme::shared().color(ColorRole::text3), symbolLine);
    painter.setFont(textFont(TextStyle::body));
    painter.setPen(Theme::shared().color(ColorRole::text2));
    painter.drawText(QRectF(0, top + symbolSize + gap, width(), lineHeight), Qt::AlignCenter, line);
}

} // namespace Quillstacks
