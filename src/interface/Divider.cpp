#include "interface/Divider.h"

#include "interface/Theme.h"

#include <QPainter>

namespace Quillstacks {

Divider::Divider(Qt::Orientation orientation, ColorRole color, QWidget* parent) : QWidget(parent), role(color) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    if (orientation == Qt::Horizontal)
        setFixedHeight(1);
    else
        setFixedWidth(1);
    setSizePolicy(orientation == Qt::Horizontal ? QSizePolicy::Expanding : QSizePolicy::Fixed,
                  orientation == Qt::Horizontal ? QSizePolicy::Fixed : QSizePolicy::Expanding);
    connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void Divider::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), Theme::shared().color(role));
}

} // namespace Quillstacks
