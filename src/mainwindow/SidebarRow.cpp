#include "SidebarRow.h"

#include "interface/Accessible.h"
#include "interface/Drawing.h"
#include "interface/FocusRing.h"
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
constexpr int textLeft = 36;

int rowHeight() {
    return std::max(usualHeight, textLineHeight(TextStyle::callout) + smallestPadding);
}

} // namespace

SidebarRow::SidebarRow(const QString& symbolName, const QString& title, QWidget* parent)
    : QAbstractButton(parent), symbol(symbolName), hover(this) {
    setObjectName(QStringLiteral("SidebarRow"));
    setText(title);
    setAccessibleName(title);
    setCheckable(true);
    // A click leaves the keyboard to the list, whose keys go on working.
    setFocusPolicy(Qt::TabFocus);
    setFixedHeight(rowHeight());
    connect(&Theme::shared(), &Theme::changed, this, [this] { setFixedHeight(rowHeight()); });
    FocusRing::attach(this, radius);
    AccessibleTraits traits;
    traits.role = QAccessible::ListItem;
    traits.press = [this] { click(); };
    traits.isSelected = [this] { return isChecked(); };
    setAccessibleTraits(this, std::move(traits));
    connect(this, &QAbstractButton::toggled, this, [this] { announceState(this); });
}

QSize SidebarRow::sizeHint() const {
    return {textLeft + QFontMetrics(textFont(TextStyle::callout)).horizontalAdvance(text()) + 8, rowHeight()};
}

void SidebarRow::enterEvent(QEnterEvent*) {
    hover.to(1);
}

void SidebarRow::leaveEvent(QEvent*) {
    hover.to(0);
}

void SidebarRow::keyPressEvent(QKeyEvent* event) {
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && !event->isAutoRepeat())
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void SidebarRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Theme& theme = Theme::shared();
    const QColor hovered = theme.color(ColorRole::fillHover);
    fillRounded(painter, rect(), radius,
                isChecked() ? theme.color(ColorRole::selectSide)
                            : withOpacity(hovered, hovered.alphaF() * hover.value()));
    QRectF box(0, 0, symbolSize, symbolSize);
    box.moveCenter(QRectF(leadLeft, 0, leadWidth, height()).center());
    Symbol::paint(painter, box, symbol, theme.color(isChecked() ? ColorRole::accent : ColorRole::text2));
    painter.setFont(textFont(TextStyle::callout));
    painter.setPen(theme.color(ColorRole::text));
    painter.drawText(rect().adjusted(textLeft, 0, -8, 0), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     text());
}

} // namespace Quillstacks
