#include "QuickAccessRow.h"

#include "interface/Accessible.h"
#include "interface/Chip.h"
#include "interface/ColorFromHex.h"
#include "interface/Drawing.h"
#include "interface/RowText.h"
#include "interface/Symbol.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"
#include "library/model/Prompt.h"
#include "library/model/Tag.h"

#include <QPainter>

#include <algorithm>
#include <map>

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

/// Measuring goes through all rows of a library, so the tables of a font are made once.
const RowText& rowText(TextStyle style) {
    static std::map<TextStyle, RowText> texts;
    const QFont font = textFont(style);
    const auto found = texts.try_emplace(style, font).first;
    if (found->second.font() != font)
        found->second = RowText(font);
    return found->second;
}

const RowText& bodyText() {
    return rowText(TextStyle::caption);
}

int bodyLines(const QString& body, int width) {
    return bodyText().lineCount(body, width, mostBodyLines);
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

void QuickAccessRow::setPrompt(const Prompt* prompt, bool isSelected) {
    const bool stateChanged = selected != isSelected;
    shownPrompt = prompt;
    selected = isSelected;
    setAccessibleName(prompt ? titleText(*prompt) : QString());
    if (stateChanged)
        announceState(this);
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

void QuickAccessRow::paintTexts(QPainter& painter) const {
    const Theme& theme = Theme::shared();
    const int room = textWidth(width());
    int y = inset;
    const int titleHeight = textLineHeight(TextStyle::headline);
    rowText(TextStyle::headline)
        .draw(painter, QRectF(inset, y, room, titleHeight), titleText(*shownPrompt), theme.color(ColorRole::text), 1,
              titleHeight);
    y += titleHeight;
    if (const QString& body = shownPrompt->body(); !body.isEmpty()) {
        const int line = textLineHeight(TextStyle::caption);
        const int lines = bodyLines(body, room);
        bodyText().draw(painter, QRectF(inset, y + columnGap, room, lines * line), body, theme.color(ColorRole::text2),
                        lines, line);
        y += columnGap + lines * line;
    }
    if (!shownPrompt->tags().isEmpty())
        ChipStyle::quickAccess().paintRow(painter, QPointF(inset, y + columnGap), room, tagGap, shownTags(*shownPrompt),
                                          selected);
}

} // namespace Quillstacks
