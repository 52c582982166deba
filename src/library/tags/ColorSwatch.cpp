#include "ColorSwatch.h"

#include "ColorDot.h"
#include "interface/Accessible.h"
#include "interface/ColorFromHex.h"
#include "interface/FocusRing.h"
#include "interface/Theme.h"
#include "TagPalette.h"

#include <QKeyEvent>
#include <QPainter>

namespace Quillstacks {
namespace {

constexpr qreal dotDiameter = 20;
constexpr qreal ringWidth = 2;
constexpr qreal ringOpacity = 0.6;

} // namespace

ColorSwatch::ColorSwatch(const QString& colorHex, QWidget* parent) : QAbstractButton(parent), hex(colorHex) {
    setObjectName(QStringLiteral("ColorSwatch"));
    setAccessibleName(TagPalette::nameOf(hex));
    setCheckable(true);
    setFixedSize(side, side);
    FocusRing::attach(this, side / 2.0);
    setAccessibleTraits(this, {QAccessible::RadioButton, [this] { click(); }, [this] { return isChecked(); }, {}});
    connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void ColorSwatch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintDot(painter, rect(), dotDiameter, colorFromHex(hex));
    if (!isChecked())
        return;
    painter.setPen(QPen(Theme::shared().ink(ringOpacity), ringWidth));
    painter.setBrush(Qt::NoBrush);
    constexpr qreal inset = ringWidth / 2;
    painter.drawEllipse(QRectF(rect()).adjusted(inset, inset, -inset, -inset));
}

void ColorSwatch::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
        Q_EMIT arrowPressed(-1, 0);
        break;
    case Qt::Key_Right:
        Q_EMIT arrowPressed(1, 0);
        break;
    case Qt::Key_Up:
        Q_EMIT arrowPressed(0, -1);
        break;
    case Qt::Key_Down:
        Q_EMIT arrowPressed(0, 1);
        break;
    default:
        QAbstractButton::keyPressEvent(event);
    }
}

} // namespace Quillstacks
