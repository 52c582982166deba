#include "TagRow.h"

#include "ColorDot.h"
#include "interface/ColorFromHex.h"
#include "interface/IconButton.h"
#include "library/model/Tag.h"

#include <QEvent>

namespace Quillstacks {
namespace {

constexpr qreal dotDiameter = 10;
constexpr qreal pencilSize = 14;
constexpr int pencilSide = 28;
constexpr int pencilRight = 1;

} // namespace

TagRow::TagRow(Tag* tag, QWidget* parent)
    : SidebarRow(QString(), QString(), Kind::selectable, parent), shown(tag),
      pencil(new IconButton(QStringLiteral("pencil"), QStringLiteral("Edit Tag"), IconButton::Size::row, this)) {
    setObjectName(QStringLiteral("TagRow"));
    pencil->setSymbolSize(pencilSize);
    pencil->installEventFilter(this);
    connect(pencil, &QAbstractButton::clicked, this, [this] {
        if (onEdit)
            onEdit();
    });
    connect(&hover, &Transition::valueChanged, this, &TagRow::showPencil);
    setTabStop(false);
    showPencil();
    refresh();
}

void TagRow::refresh() {
    setTitle(shown->name());
    update();
}

void TagRow::setTabStop(bool stops) {
    SidebarRow::setTabStop(stops);
    pencil->setFocusPolicy(stops ? Qt::TabFocus : Qt::NoFocus);
}

QWidget* TagRow::lastTabStop() const {
    return pencil;
}

void TagRow::paintLead(QPainter& painter, const QRectF& box) const {
    paintDot(painter, box, dotDiameter, colorFromHex(shown->colorHex()));
}

int TagRow::trailingRoom() const {
    return pencilSide + pencilRight + 4;
}

void TagRow::showPencil() {
    pencil->setRestOpacity(pencil->hasFocus() ? 1 : hover.value());
}

void TagRow::enterEvent(QEnterEvent* event) {
    hovered = true;
    SidebarRow::enterEvent(event);
}

void TagRow::leaveEvent(QEvent* event) {
    hovered = false;
    SidebarRow::leaveEvent(event);
}

void TagRow::resizeEvent(QResizeEvent*) {
    pencil->setGeometry(width() - pencilRight - pencilSide, (height() - pencilSide) / 2, pencilSide, pencilSide);
}

bool TagRow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        showPencil();
    return SidebarRow::eventFilter(watched, event);
}

} // namespace Quillstacks
