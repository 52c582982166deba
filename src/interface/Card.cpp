#include "interface/Card.h"

#include "interface/Drawing.h"
#include "interface/Theme.h"

#include <QPainter>

namespace Quillstacks {

Card::Card(QWidget* parent) : Card(settings(), parent) {}

Card::Card(Look given, QWidget* parent) : QWidget(parent), look(std::move(given)) {
    connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void Card::setLook(Look newLook) {
    look = std::move(newLook);
    update();
}

Card::Look Card::box(ColorRole ground, ColorRole edge, qreal radius) {
    return {radius, [ground] { return Theme::shared().color(ground); }, [edge] { return Theme::shared().color(edge); }};
}

Card::Look Card::tinted(ColorRole color, qreal ground, qreal edge, qreal radius) {
    return {radius, [=] { return Theme::shared().tint(color, ground); },
            [=] { return edge > 0 ? Theme::shared().tint(color, edge) : QColor(); }};
}

Card::Look Card::settings() {
    return box(ColorRole::card, ColorRole::cardEdge, 12);
}

void Card::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor ground = look.ground ? look.ground() : QColor();
    const QColor edge = look.edge ? look.edge() : QColor();
    drawBox(painter, rect(), look.radius, ground, edge);
}

} // namespace Quillstacks
