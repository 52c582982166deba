#include "interface/EdgeFade.h"

#include "interface/Drawing.h"
#include "interface/Theme.h"

#include <QPainter>

namespace Quillstacks {

EdgeFade::EdgeFade(ColorRole role, QWidget* parent, Edge fadedEdge) : QWidget(parent), ground(role), edge(fadedEdge) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void EdgeFade::setColor(const QColor& color) {
    fixedColor = color;
    update();
}

void EdgeFade::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (edge == Edge::top) {
        painter.translate(0, height());
        painter.scale(1, -1);
    }
    paintFade(painter, rect(), fixedColor.isValid() ? fixedColor : Theme::shared().color(ground));
}

} // namespace Quillstacks
