#include "interface/BusyIndicator.h"

#include "interface/Accessible.h"
#include "interface/Theme.h"

#include <QPainter>

#include <algorithm>

namespace Quillstacks {

namespace {

constexpr qreal lineWidth = 2.5; ///< at the usual diameter
constexpr qreal thinnestLine = 2;
constexpr int turnMilliseconds = 1000;
constexpr qreal arc = 0.88; ///< of the circle, from its head to where its tail has faded away
constexpr int topDegrees = 90;
constexpr qreal disabledOpacity = 0.5;

} // namespace

BusyIndicator::BusyIndicator(const QString& accessibleName, QWidget* parent, int points)
    : QWidget(parent), diameter(points) {
    setAccessibleTraits(this, {QAccessible::ProgressBar, {}, {}, {}});
    setAccessibleName(accessibleName);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    turn.setStartValue(0.0);
    turn.setEndValue(360.0);
    turn.setDuration(turnMilliseconds);
    turn.setLoopCount(-1);
    connect(&turn, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(&Theme::shared(), &Theme::changed, this, &BusyIndicator::follow);
}

QSize BusyIndicator::sizeHint() const {
    return {diameter, diameter};
}

void BusyIndicator::follow() {
    if (isVisible() && !Theme::shared().reducedMotion())
        turn.start();
    else
        turn.stop();
    update();
}

void BusyIndicator::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    follow();
}

void BusyIndicator::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    follow();
}

void BusyIndicator::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal line = std::max(lineWidth * diameter / usualDiameter, thinnestLine);
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    const QRectF circle = QRectF(rect()).adjusted(line, line, -line, -line);
    const QColor color = Theme::shared().color(ColorRole::text2);
    QColor faded = color;
    faded.setAlpha(0);
    // The head goes ahead clockwise, the gradient counts the other way round.
    QConicalGradient tail(circle.center(), topDegrees - turn.currentValue().toReal());
    tail.setColorAt(0, color);
    tail.setColorAt(arc, faded);
    painter.setPen(QPen(tail, line));
    painter.drawEllipse(circle);
}

} // namespace Quillstacks
