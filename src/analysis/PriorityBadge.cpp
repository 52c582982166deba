#include "PriorityBadge.h"

#include "Greys.h"
#include "interface/Accessible.h"
#include "interface/Drawing.h"
#include "interface/TextStyle.h"

#include <QFontMetricsF>

#include <cmath>

namespace Quillstacks {
namespace {

constexpr qreal fontSize = 9;
constexpr int lineHeight = 11;
constexpr int sidePadding = 6;
constexpr int endPadding = 2;
constexpr qreal radius = 4;
constexpr int longest = 200;     ///< logical pixels; a model may say anything
constexpr int longestText = 200; ///< in UTF-16 units, more than can be shown

QFont badgeFont() {
    return absoluteFont(fontSize, QFont::DemiBold);
}

QString capitalized(const QString& text) {
    QString result;
    bool begins = true;
    for (const char32_t character : text.toUcs4()) {
        const QString one = QString::fromUcs4(&character, 1);
        result += begins ? one.toUpper() : one;
        begins = QChar::isSpace(character);
    }
    return result;
}

} // namespace

PriorityBadge::PriorityBadge(const QString& priority, QWidget* parent)
    : QWidget(parent), shown(capitalized(priority.left(longestText))), ground(priorityColor(priority)) {
    setObjectName(QStringLiteral("PriorityBadge"));
    setAccessibleName(shown);
    setAccessibleTraits(this, {.role = QAccessible::StaticText, .press = {}, .isChecked = {}, .isSelected = {}});
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize PriorityBadge::sizeHint() const {
    const int width = static_cast<int>(std::ceil(QFontMetricsF(badgeFont()).horizontalAdvance(shown)));
    return {std::min(width, longest) + 2 * sidePadding, lineHeight + 2 * endPadding};
}

QSize PriorityBadge::minimumSizeHint() const {
    return {std::min(sizeHint().width(), 40), sizeHint().height()};
}

void PriorityBadge::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    fillRounded(painter, rect(), radius, ground);
    const QFontMetricsF metrics(badgeFont());
    painter.setFont(badgeFont());
    painter.setPen(Qt::white);
    const qreal baseline = std::round((height() + metrics.capHeight()) / 2);
    painter.drawText(QPointF(sidePadding, baseline),
                     metrics.elidedText(shown.simplified(), Qt::ElideRight, width() - 2 * sidePadding + 1));
}

} // namespace Quillstacks
