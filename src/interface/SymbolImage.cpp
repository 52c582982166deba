#include "interface/SymbolImage.h"

#include "interface/Symbol.h"
#include "interface/Theme.h"

#include <QPainter>

namespace Quillstacks {

SymbolImage::SymbolImage(QString symbolName, int points, ColorRole colorRole, QWidget* parent)
    : QWidget(parent), symbol(std::move(symbolName)), role(colorRole) {
    setFixedSize(points, points);
    setObjectName(symbol);
    connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void SymbolImage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Symbol::paint(painter, rect(), symbol, Theme::shared().color(role));
}

} // namespace Quillstacks
