#include "shell/BusyIndicator.h"

#include "interface/Accessible.h"
#include "interface/Theme.h"

#include <QPainter>

namespace Quillstacks {

namespace {

constexpr int diameter = 24;
constexpr qreal lineWidth = 2.5;
constexpr int turnMilliseconds = 1000;
constexpr int arcDegrees = 270;
constexpr int stepsPerDegree = 16; // of QPainter's angles

} // namespace

BusyIndicator::BusyIndicator(const QString& accessibleName, QWidget* parent) : QWidget(parent) {
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
    painter.setPen(QPen(Theme::shared().color(ColorRole::accent), lineWidth, Qt::SolidLine, Qt::RoundCap));
    const QRectF circle = QRectF(rect()).adjusted(lineWidth, lineWidth, -lineWidth, -lineWidth);
    const int start = qRound((90 - turn.currentValue().toReal()) * stepsPerDegree);
    painter.drawArc(circle, start, -arcDegrees * stepsPerDegree);
}

} // namespace Quillstacks
