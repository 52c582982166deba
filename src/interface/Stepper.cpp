#include "interface/Stepper.h"

#include "interface/Accessible.h"
#include "interface/Drawing.h"
#include "interface/FocusRing.h"
#include "interface/Symbol.h"
#include "interface/Theme.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTimerEvent>

namespace Quillstacks {
namespace {

constexpr int firstRepeat = 400; ///< milliseconds
constexpr int nextRepeat = 80;
constexpr qreal symbolSize = 11;

} // namespace

Stepper::Stepper(const QString& accessibleName, qint64 least, qint64 most, qint64 by, QWidget* parent)
    : QWidget(parent), minimum(least), maximum(most), step(by), current(least) {
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setMouseTracking(true);
    setAccessibleName(accessibleName);
    setAccessibleTraits(this, {QAccessible::SpinBox, {}, {}, {}});
    FocusRing::attach(this, 7);
    connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void Stepper::setValue(qint64 value) {
    current = value;
    setAccessibleDescription(QString::number(value));
    update();
}

Stepper::Half Stepper::halfAt(const QPoint& position) const {
    if (!rect().contains(position))
        return Half::none;
    return position.y() < height() / 2 ? Half::up : Half::down;
}

bool Stepper::canStep(Half half) const {
    return half == Half::up ? current < maximum : half == Half::down && current > minimum;
}

void Stepper::stepBy(Half half) {
    if (!canStep(half))
        return;
    const qint64 next = half == Half::up ? current + step : current - step;
    setValue(std::clamp(next, minimum, maximum));
    Q_EMIT valueChanged(current);
}

void Stepper::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(0.5);
    const QRectF box = rect();
    fillRounded(painter, box, 7, theme.color(ColorRole::control));
    const qreal middle = box.height() / 2;
    QPainterPath shape;
    shape.addRoundedRect(box, 7, 7);
    for (const Half half : {Half::up, Half::down}) {
        const QRectF part(0, half == Half::up ? 0 : middle, box.width(), middle);
        const bool active = canStep(half);
        const QColor wash = pressed == half ? theme.ink(.09) : hovered == half ? theme.ink(.05) : QColor();
        if (active && wash.isValid()) {
            QPainterPath area;
            area.addRect(part);
            painter.fillPath(shape.intersected(area), wash);
        }
        QColor color = theme.color(ColorRole::text2);
        if (!active)
            color.setAlphaF(color.alphaF() * 0.5F);
        Symbol::paint(painter,
                      QRectF(part.center() - QPointF(symbolSize / 2, symbolSize / 2), QSizeF(symbolSize, symbolSize)),
                      half == Half::up ? QStringLiteral("chevron.up") : QStringLiteral("chevron.down"), color, 2.4);
    }
    painter.fillRect(QRectF(1, middle - 0.5, box.width() - 2, 1), theme.color(ColorRole::controlEdge));
    strokeRounded(painter, box, 7, theme.color(ColorRole::controlEdge));
}

void Stepper::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    pressed = halfAt(event->position().toPoint());
    stepBy(pressed);
    repeat.start(firstRepeat, this);
    update();
}

void Stepper::mouseReleaseEvent(QMouseEvent*) {
    pressed = Half::none;
    repeat.stop();
    update();
}

void Stepper::mouseMoveEvent(QMouseEvent* event) {
    hovered = halfAt(event->position().toPoint());
    update();
}

void Stepper::leaveEvent(QEvent*) {
    hovered = Half::none;
    update();
}

void Stepper::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Right)
        stepBy(Half::up);
    else if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Left)
        stepBy(Half::down);
    else
        QWidget::keyPressEvent(event);
}

void Stepper::timerEvent(QTimerEvent* event) {
    if (event->timerId() != repeat.timerId())
        return;
    repeat.start(nextRepeat, this);
    if (hovered == pressed)
        stepBy(pressed);
}

} // namespace Quillstacks
