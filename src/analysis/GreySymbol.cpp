#include "GreySymbol.h"

#include "interface/Symbol.h"

namespace Quillstacks {

GreySymbol::GreySymbol(QString name, int points, const QColor& color, qreal line, QWidget* parent)
    : QWidget(parent), symbol(std::move(name)), grey(color), lineWidth(line) {
    setFixedSize(points, points);
    setObjectName(symbol);
}

void GreySymbol::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Symbol::paint(painter, rect(), symbol, grey, lineWidth);
}

} // namespace Quillstacks
