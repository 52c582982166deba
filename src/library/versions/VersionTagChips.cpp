#include "VersionTagChips.h"

#include "interface/Accessible.h"
#include "interface/Drawing.h"
#include "interface/RowText.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QStringList>

#include <cmath>
#include <utility>

namespace Quillstacks {
namespace {

constexpr int paddingX = 8;
constexpr int paddingY = 3;
constexpr int gap = 6;
constexpr qreal radius = 6;
constexpr qreal groundOpacity = 0.18;
constexpr qreal edgeOpacity = 0.45;

QString noTags() {
    return QStringLiteral("No tags");
}

int lineHeight() {
    return textLineHeight(TextStyle::caption);
}

} // namespace

VersionTagChips::VersionTagChips(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("VersionTagChips"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAccessibleTraits(this, {QAccessible::StaticText, {}, {}, {}});
    connect(&Theme::shared(), &Theme::changed, this, &VersionTagChips::refresh);
    refresh();
}

void VersionTagChips::setTags(const QList<Tag>& tags) {
    shown = tags;
    refresh();
}

void VersionTagChips::refresh() {
    QStringList names;
    for (const Tag& tag : std::as_const(shown))
        names += tag.name;
    setAccessibleName(names.isEmpty() ? noTags() : names.join(QStringLiteral(", ")));
    toldHeight = sizeHint().height();
    updateGeometry();
    update();
}

QList<QRect> VersionTagChips::boxes(int available) const {
    const QFontMetricsF metrics(textFont(TextStyle::caption));
    const int height = lineHeight() + 2 * paddingY;
    QList<QRect> result;
    int x = 0;
    int y = 0;
    for (const Tag& tag : shown) {
        const int wanted = static_cast<int>(std::ceil(metrics.horizontalAdvance(startOfLine(tag.name)))) + 2 * paddingX;
        const int width = std::min(wanted, available);
        if (x > 0 && x + width > available) {
            x = 0;
            y += height + gap;
        }
        result += QRect(x, y, width, height);
        x += width + gap;
    }
    return result;
}

QSize VersionTagChips::sizeHint() const {
    const QList<QRect> all = boxes(std::max(width(), 2 * paddingX));
    return {2 * paddingX, all.isEmpty() ? lineHeight() : all.last().bottom() + 1};
}

QSize VersionTagChips::minimumSizeHint() const {
    return sizeHint();
}

void VersionTagChips::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int wanted = sizeHint().height();
    if (std::exchange(toldHeight, wanted) != wanted)
        updateGeometry();
}

void VersionTagChips::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    painter.setFont(textFont(TextStyle::caption));
    if (shown.isEmpty()) {
        painter.setPen(theme.color(ColorRole::text2));
        painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, noTags());
        return;
    }
    const QFontMetricsF metrics(painter.font());
    const QList<QRect> places = boxes(width());
    for (qsizetype i = 0; i < shown.size(); ++i) {
        const QRect& box = places[i];
        drawBox(painter, box, radius, withOpacity(shown[i].color, groundOpacity),
                withOpacity(shown[i].color, edgeOpacity));
        const QRect text = box.adjusted(paddingX, 0, -paddingX, 0);
        painter.setPen(theme.color(ColorRole::text));
        painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         metrics.elidedText(startOfLine(shown[i].name), Qt::ElideRight, text.width() + 1));
    }
}

} // namespace Quillstacks
