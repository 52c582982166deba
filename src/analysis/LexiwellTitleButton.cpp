#include "LexiwellTitleButton.h"

#include "interface/Drawing.h"
#include "interface/FocusRing.h"
#include "interface/Symbol.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QFontMetricsF>
#include <QKeyEvent>

#include <cmath>

namespace Quillstacks {
namespace {

constexpr int leadSize = 17;
constexpr int infoSize = 14;
constexpr int gap = 8;
constexpr int padding = 4;
constexpr int leastHeight = 28;

int titleWidth(const QString& title) {
    return static_cast<int>(std::ceil(QFontMetricsF(textFont(TextStyle::headline)).horizontalAdvance(title)));
}

} // namespace

LexiwellTitleButton::LexiwellTitleButton(QWidget* parent) : QAbstractButton(parent), hover(this) {
    setObjectName(QStringLiteral("LexiwellTitleButton"));
    setText(QStringLiteral("Lexiwell"));
    setAccessibleName(text());
    setToolTip(QStringLiteral("Click for more information about Lexiwell"));
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    FocusRing::attach(this, padding);
    connect(&Theme::shared(), &Theme::changed, this, [this] {
        updateGeometry();
        update();
    });
}

QSize LexiwellTitleButton::sizeHint() const {
    return {2 * padding + leadSize + gap + titleWidth(text()) + gap + infoSize,
            std::max(leastHeight, textLineHeight(TextStyle::headline))};
}

QSize LexiwellTitleButton::minimumSizeHint() const {
    return sizeHint();
}

void LexiwellTitleButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Theme& theme = Theme::shared();
    const QRectF lead(padding, (height() - leadSize) / 2.0, leadSize, leadSize);
    Symbol::paint(painter, lead, QStringLiteral("stethoscope"), theme.color(ColorRole::text2));
    const QFont font = textFont(TextStyle::headline);
    painter.setFont(font);
    painter.setPen(theme.color(ColorRole::text));
    const qreal baseline = std::round((height() + QFontMetricsF(font).capHeight()) / 2);
    painter.drawText(QPointF(lead.right() + gap, baseline), text());
    const QRectF info(lead.right() + gap + titleWidth(text()) + gap, (height() - infoSize) / 2.0, infoSize, infoSize);
    Symbol::paint(painter, info, QStringLiteral("info.circle"),
                  mix(theme.color(ColorRole::text3), theme.color(ColorRole::text), hover.value()));
}

void LexiwellTitleButton::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    hover.to(1);
}

void LexiwellTitleButton::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    hover.to(0);
}

void LexiwellTitleButton::keyPressEvent(QKeyEvent* event) {
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && !event->isAutoRepeat())
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace Quillstacks
