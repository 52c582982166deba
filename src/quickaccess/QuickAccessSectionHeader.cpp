#include "QuickAccessSectionHeader.h"

#include "interface/Symbol.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QPainter>

namespace Quillstacks {

namespace {

constexpr int left = 10;
constexpr int bottom = 4;
constexpr int symbolSize = 12;
constexpr int symbolGap = 6;
constexpr qreal tracking = 0.03; // of the font's size

int topOf(QuickAccessSectionHeader::Section section) {
    return section == QuickAccessSectionHeader::Section::pinned ? 6 : 10;
}

} // namespace

QuickAccessSectionHeader::QuickAccessSectionHeader(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("QuickAccessSectionHeader"));
}

QString QuickAccessSectionHeader::title(Section section) {
    return section == Section::pinned ? QStringLiteral("PINNED") : QStringLiteral("ALL PROMPTS");
}

int QuickAccessSectionHeader::heightFor(Section section) {
    return topOf(section) + textLineHeight(TextStyle::caption) + bottom;
}

void QuickAccessSectionHeader::setSection(Section section) {
    shownSection = section;
    setAccessibleName(title(section));
    update();
}

void QuickAccessSectionHeader::paintEvent(QPaintEvent*) {
    const QColor color = Theme::shared().color(ColorRole::text2);
    QPainter painter(this);
    QRectF line(left, topOf(shownSection), width() - left, textLineHeight(TextStyle::caption));
    if (shownSection == Section::pinned) {
        Symbol::paint(painter, QRectF(line.left(), line.center().y() - symbolSize / 2.0, symbolSize, symbolSize),
                      QStringLiteral("star.fill"), color);
        line.setLeft(line.left() + symbolSize + symbolGap);
    }
    QFont font = textFont(TextStyle::caption, QFont::DemiBold);
    font.setLetterSpacing(QFont::AbsoluteSpacing, pixelSize(font) * tracking);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, title(shownSection));
}

} // namespace Quillstacks
