#include "QuickAccessRow.h"

#include "interface/Accessible.h"
#include "interface/Chip.h"
#include "interface/ColorFromHex.h"
#include "interface/Drawing.h"
#include "interface/Symbol.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"
#include "library/model/Prompt.h"
#include "library/model/Tag.h"

#include <QPainter>

#include <algorithm>

namespace Quillstacks {

namespace {

constexpr int inset = 11; // an edge of 1 and a padding of 10
constexpr int columnGap = 4;
constexpr int symbolSize = 22;
constexpr int symbolGap = 12;
constexpr int mostBodyLines = 2;
constexpr int mostTags = 3;
constexpr int tagGap = 6;
constexpr qreal radius = 8;

int textWidth(int width) {
    return width - 2 * inset - symbolGap - symbolSize;
}

int bodyLines(const QString& body, int width) {
    return RowText::of(TextStyle::caption).lineCount(body, width, mostBodyLines);
}

QList<std::pair<QString, QColor>> shownTags(const Prompt& prompt) {
    QList<std::pair<QString, QColor>> tags;
    for (const Tag* tag : prompt.tags().first(std::min<qsizetype>(prompt.tags().size(), mostTags)))
        tags.emplaceBack(tag->name(), colorFromHex(tag->colorHex()));
    return tags;
}

} // namespace

QuickAccessRow::QuickAccessRow(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("QuickAccessRow"));
    connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

QString QuickAccessRow::titleText(const Prompt& prompt) {
    return prompt.title().isEmpty() ? QStringLiteral("Untitled") : prompt.title();
}

QuickAccessRow::Metrics QuickAccessRow::Metrics::current() {
    return {textLineHeight(TextStyle::headline), textLineHeight(TextStyle::caption), ChipStyle::quickAccess().height()};
}

int QuickAccessRow::heightFor(const Prompt& prompt, int width, const Metrics& metrics) {
    int column = metrics.title;
    if (!prompt.body().isEmpty())
        column += columnGap + bodyLines(prompt.body(), textWidth(width)) * metrics.bodyLine;
    if (!prompt.tags().isEmpty())
        column += columnGap + metrics.tags;
    return 2 * inset + std::max(column, symbolSize);
}

// Most rows stay what they are while a search goes on, and what stays need not be painted again.
void QuickAccessRow::setPrompt(const Prompt* prompt, bool isSelected) {
    const bool stateChanged = selected != isSelected;
    Content newContent;
    if (prompt)
        newContent = {titleText(*prompt), prompt->body(), shownTags(*prompt)};
    const bool showsAnother = (prompt == nullptr) != (shownPrompt == nullptr) || newContent != content;
    shownPrompt = prompt;
    content = std::move(newContent);
    selected = isSelected;
    if (content.title != accessibleName())
        setAccessibleName(content.title);
    if (stateChanged)
        announceState(this);
    if (stateChanged || showsAnother)
        update();
}

void QuickAccessRow::paintEvent(QPaintEvent*) {
    if (!shownPrompt)
        return;
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawBox(painter, rect(), radius, selected ? theme.color(ColorRole::quickSelect) : QColor(Qt::transparent),
            theme.color(selected ? ColorRole::quickSelectEdge : ColorRole::border));
    paintTexts(painter);
    Symbol::paint(painter, QRectF(width() - inset - symbolSize, inset, symbolSize, symbolSize),
                  QStringLiteral("arrow.right.circle.fill"),
                  theme.color(selected ? ColorRole::text : ColorRole::text2));
}

void QuickAccessRow::paintTexts(QPainter& painter) {
    const Theme& theme = Theme::shared();
    const int room = textWidth(width());
    int y = inset;
    const int titleHeight = textLineHeight(TextStyle::headline);
    title.draw(painter, QRectF(inset, y, room, titleHeight), content.title, TextStyle::headline,
               theme.color(ColorRole::text), 1, titleHeight);
    y += titleHeight;
    if (!content.body.isEmpty()) {
        const int line = textLineHeight(TextStyle::caption);
        const int lines = bodyLines(content.body, room);
        body.draw(painter, QRectF(inset, y + columnGap, room, lines * line), content.body, TextStyle::caption,
                  theme.color(ColorRole::text2), lines, line);
        y += columnGap + lines * line;
    }
    if (!content.tags.isEmpty())
        ChipStyle::quickAccess().paintRow(painter, QPointF(inset, y + columnGap), room, tagGap, content.tags, selected);
}

} // namespace Quillstacks
