#include "interface/IconButton.h"

#include "interface/Drawing.h"
#include "interface/FocusRing.h"
#include "interface/Symbol.h"
#include "interface/Theme.h"

#include <QKeyEvent>
#include <QPainter>

namespace Quillstacks {

IconButton::IconButton(const QString& symbol, const QString& help, Size side, QWidget* parent)
    : QAbstractButton(parent), symbolName(symbol), size(side), symbolSize(side == Size::regular ? 18 : 16), hover(this),
      newSymbol(this) {
    newSymbol.jump(1);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setHelp(help);
    FocusRing::attach(this, size == Size::regular ? 7 : 6);
    connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void IconButton::setSymbol(const QString& name) {
    if (symbolName == name)
        return;
    symbolName = name;
    newSymbol.jump(1);
    update();
}

void IconButton::changeSymbol(const QString& name) {
    if (symbolName == name)
        return;
    oldSymbol = symbolName;
    symbolName = name;
    newSymbol.jump(0);
    newSymbol.to(1);
}

QColor IconButton::symbolColor() const {
    const Theme& theme = Theme::shared();
    const qreal over = hover.value();
    const QColor rest = theme.color(colorRole.value_or(ColorRole::text2));
    const QColor color = colorRole ? rest : mix(rest, theme.color(ColorRole::text), over);
    return withOpacity(color, color.alphaF() * (restOpacity + (1 - restOpacity) * over));
}

void IconButton::setSymbolSize(qreal points) {
    symbolSize = points;
    update();
}

void IconButton::setHelp(const QString& help) {
    if (help == toolTip() && help == accessibleName())
        return;
    setToolTip(help);
    setAccessibleName(help);
}

void IconButton::setColor(std::optional<ColorRole> role) {
    colorRole = role;
    update();
}

void IconButton::setRestOpacity(qreal opacity) {
    restOpacity = opacity;
    update();
}

void IconButton::setPlain(bool isPlain) {
    plain = isPlain;
    update();
}

QSize IconButton::sizeHint() const {
    return {static_cast<int>(size), static_cast<int>(size)};
}

void IconButton::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    if (!plain) {
        const QColor ground = isDown() ? theme.ink(.12) : theme.ink(.09 * hover.value());
        fillRounded(painter, rect(), size == Size::regular ? 7 : 6, ground);
    }
    if (!isEnabled())
        painter.setOpacity(0.5);
    const QRectF place((width() - symbolSize) / 2, (height() - symbolSize) / 2, symbolSize, symbolSize);
    const QColor color = symbolColor();
    const qreal shown = newSymbol.value();
    if (shown < 1)
        Symbol::paint(painter, place, oldSymbol, withOpacity(color, color.alphaF() * (1 - shown)));
    Symbol::paint(painter, place, symbolName, withOpacity(color, color.alphaF() * shown));
}

void IconButton::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    if (isEnabled())
        hover.to(1);
}

void IconButton::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    hover.to(0);
}

void IconButton::keyPressEvent(QKeyEvent* event) {
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && !event->isAutoRepeat())
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace Quillstacks
