#include "SidebarRow.h"

#include "interface/Accessible.h"
#include "interface/Drawing.h"
#include "interface/FocusRing.h"
#include "interface/RowText.h"
#include "interface/Symbol.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace Quillstacks {
namespace {

constexpr int usualHeight = 34;
constexpr int smallestPadding = 12; ///< above and below the text together
constexpr int radius = 8;
constexpr int leadLeft = 8;
constexpr int leadWidth = 18;
constexpr qreal symbolSize = 17;
constexpr qreal actionSymbolSize = 15;
constexpr int textLeft = 36;

int rowHeight() {
    return std::max(usualHeight, textLineHeight(TextStyle::callout) + smallestPadding);
}

} // namespace

SidebarRow::SidebarRow(const QString& symbolName, const QString& title, Kind rowKind, QWidget* parent)
    : QAbstractButton(parent), hover(this), symbol(symbolName), kind(rowKind) {
    setObjectName(QStringLiteral("SidebarRow"));
    setTitle(title);
    setCheckable(kind == Kind::selectable);
    // A click leaves the keyboard to the list, whose keys go on working.
    setFocusPolicy(Qt::TabFocus);
    setFixedHeight(rowHeight());
    connect(&Theme::shared(), &Theme::changed, this, [this] { setFixedHeight(rowHeight()); });
    FocusRing::attach(this, radius);
    AccessibleTraits traits;
    traits.role = QAccessible::Button;
    traits.press = [this] { click(); };
    if (kind == Kind::selectable) {
        traits.role = QAccessible::ListItem;
        traits.isSelected = [this] { return isChecked(); };
        connect(this, &QAbstractButton::toggled, this, [this] { announceState(this); });
    }
    setAccessibleTraits(this, std::move(traits));
}

void SidebarRow::setTitle(const QString& title) {
    if (title == text() && title == accessibleName())
        return;
    setText(title);
    setShortcut({}); // the toolkit makes one of an "&" in the title
    setAccessibleName(title);
    updateGeometry();
}

void SidebarRow::setTabStop(bool stops) {
    setFocusPolicy(stops ? Qt::TabFocus : Qt::NoFocus);
}

QSize SidebarRow::sizeHint() const {
    return {textLeft + QFontMetrics(textFont(TextStyle::callout)).horizontalAdvance(startOfLine(text())) +
                trailingRoom(),
            rowHeight()};
}

void SidebarRow::enterEvent(QEnterEvent*) {
    hover.to(1);
}

void SidebarRow::leaveEvent(QEvent*) {
    hover.to(0);
}

void SidebarRow::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && !event->isAutoRepeat())
        click();
    else if ((key == Qt::Key_Up || key == Qt::Key_Down) && kind == Kind::selectable)
        Q_EMIT arrowPressed(key == Qt::Key_Up ? -1 : 1);
    else
        QAbstractButton::keyPressEvent(event);
}

void SidebarRow::paintLead(QPainter& painter, const QRectF& box) const {
    const qreal side = kind == Kind::action ? actionSymbolSize : symbolSize;
    QRectF place(0, 0, side, side);
    place.moveCenter(box.center());
    Symbol::paint(painter, place, symbol, Theme::shared().color(isChecked() ? ColorRole::accent : ColorRole::text2));
}

void SidebarRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Theme& theme = Theme::shared();
    const QColor hovered = theme.color(ColorRole::fillHover);
    fillRounded(painter, rect(), radius,
                isChecked() ? theme.color(ColorRole::selectSide)
                            : withOpacity(hovered, hovered.alphaF() * hover.value()));
    paintLead(painter, QRectF(leadLeft, 0, leadWidth, height()));
    const QFont font = textFont(TextStyle::callout);
    const QRect place = rect().adjusted(textLeft, 0, -trailingRoom(), 0);
    painter.setFont(font);
    painter.setPen(theme.color(ColorRole::text));
    painter.drawText(
        place, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
        QFontMetrics(font).elidedText(startOfLine(text()), Qt::ElideRight, place.width(), Qt::TextSingleLine));
}

} // namespace Quillstacks
