#include "interface/Transition.h"

#include "interface/Spring.h"

namespace Quillstacks {

Transition::Transition(QWidget* repainted, int duration) : widget(repainted), milliseconds(duration) {}

void Transition::to(qreal value) {
    if (goal == value)
        return;
    goal = value;
    if (!widget->isVisible() || milliseconds <= 0) {
        jump(value);
        return;
    }
    if (!animation) {
        animation = new QVariantAnimation(this);
        animation->setEasingCurve(easeInOut());
        connect(animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& now) { set(now.toReal()); });
    }
    animation->stop();
    animation->setDuration(milliseconds);
    animation->setStartValue(current);
    animation->setEndValue(goal);
    animation->start();
}

void Transition::jump(qreal value) {
    if (animation)
        animation->stop();
    goal = value;
    set(value);
}

void Transition::set(qreal value) {
    if (current == value)
        return;
    current = value;
    widget->update();
    Q_EMIT valueChanged(value);
}

} // namespace Quillstacks
