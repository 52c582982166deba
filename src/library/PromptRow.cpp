#include "PromptRow.h"

#include "foundation/MainQueue.h"
#include "interface/Accessible.h"
#include "interface/Chip.h"
#include "interface/ColorFromHex.h"
#include "interface/Drawing.h"
#include "interface/IconButton.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"
#include "library/model/Prompt.h"
#include "library/model/Tag.h"

#include <QPainter>

#include <algorithm>

namespace Quillstacks {
namespace {

constexpr int smallestHeight = 80;
constexpr int padding = 12;
constexpr int starLeft = 8;
constexpr int buttonSide = 28;
constexpr int buttonGap = 2;
constexpr int textLeft = starLeft + buttonSide + 6;
constexpr int textRight = padding + 2 * buttonSide + buttonGap + 6 + 24;
constexpr int maximumTextWidth = 720;
constexpr int bodyGap = 2;
constexpr int maximumBodyLines = 2;
constexpr int tagsGap = 8;
constexpr int tagSpacing = 6;
constexpr int maximumTags = 4;
constexpr int cornerRadius = 10;
constexpr double copiedSeconds = 1.2;

// The room of the two buttons is kept free while they are hidden, so that no text moves when the pointer comes.
int textWidth(int rowWidth) {
    return std::clamp(rowWidth - textLeft - textRight, 0, maximumTextWidth);
}

int bodyLines(const Prompt& prompt, int width) {
    return prompt.body().isEmpty()
               ? 0
               : RowText::of(TextStyle::subheadline).lineCount(prompt.body(), width, maximumBodyLines);
}

QList<std::pair<QString, QColor>> shownTags(const Prompt& prompt) {
    QList<std::pair<QString, QColor>> result;
    for (const Tag* tag : prompt.tags().first(std::min<qsizetype>(prompt.tags().size(), maximumTags)))
        result.emplaceBack(tag->name(), colorFromHex(tag->colorHex()));
    return result;
}

QStringList shownTagNames(const Prompt& prompt) {
    QStringList names;
    for (const auto& [name, color] : shownTags(prompt))
        names += name;
    return names;
}

// Of a copy: the call may fill the row anew, callbacks included.
void call(std::function<void()> callback) {
    if (callback)
        callback();
}

} // namespace

PromptRow::PromptRow(QWidget* parent)
    : QWidget(parent), star(new IconButton(QStringLiteral("star"), QString(), IconButton::Size::row, this)),
      editButton(new IconButton(QStringLiteral("pencil"), QStringLiteral("Edit"), IconButton::Size::row, this)),
      copyButton(new IconButton(QStringLiteral("doc.on.doc"), QString(), IconButton::Size::row, this)), hover(this) {
    setObjectName(QStringLiteral("PromptRow"));
    star->setPlain(true);
    star->setSymbolSize(13);
    star->setColor(ColorRole::text2);
    connectButtons();
    setCopied(false);
    showButtons();
}

void PromptRow::connectButtons() {
    connect(star, &QAbstractButton::clicked, this, [this] { call(onTogglePin); });
    connect(editButton, &QAbstractButton::clicked, this, [this] { call(onEdit); });
    connect(copyButton, &QAbstractButton::clicked, this, &PromptRow::copyBody);
}

void PromptRow::setPrompt(Prompt* prompt, bool isSelected) {
    if (prompt != shownPrompt) {
        // A key is meant for the prompt that its user sees, not for the one that comes into its place.
        if (shownPrompt && isAncestorOf(window()->focusWidget()))
            parentWidget()->setFocus(Qt::OtherFocusReason);
        shownPrompt = prompt;
        setCopied(false);
        hover.jump(hovered ? 1 : 0);
    }
    const bool announces = selected != isSelected;
    selected = isSelected;
    star->setSymbol(prompt->isPinned() ? QStringLiteral("star.fill") : QStringLiteral("star"));
    star->setHelp(prompt->isPinned() ? QStringLiteral("Unpin prompt") : QStringLiteral("Pin prompt to top"));
    star->setRestOpacity(prompt->isPinned() ? 1 : 0.5);
    // Each is told to assistive tools, even when it is what it was.
    if (const QString name = titleOf(*prompt); name != accessibleName())
        setAccessibleName(name);
    if (const QString tags = shownTagNames(*prompt).join(QStringLiteral(", ")); tags != accessibleDescription())
        setAccessibleDescription(tags);
    // Of all rows, only the selected one's buttons are stops of the Tab key; a click leaves the keyboard to the list.
    for (QWidget* button : {star, editButton, copyButton})
        button->setFocusPolicy(selected ? Qt::TabFocus : Qt::NoFocus);
    showButtons();
    update();
    if (announces)
        announceState(this);
}

void PromptRow::setHovered(bool isHovered) {
    hovered = isHovered;
    hover.to(isHovered ? 1 : 0);
    showButtons();
}

bool PromptRow::isStarHovered() const {
    return star->underMouse();
}

QString PromptRow::titleOf(const Prompt& prompt) {
    return prompt.title().isEmpty() ? QStringLiteral("Untitled") : prompt.title();
}

int PromptRow::heightOf(const Prompt& prompt, int width) {
    int height = 2 * padding + textLineHeight(TextStyle::headline);
    if (const int lines = bodyLines(prompt, textWidth(width)); lines > 0)
        height += bodyGap + lines * textLineHeight(TextStyle::subheadline);
    if (!prompt.tags().isEmpty())
        height += tagsGap + ChipStyle::row().height();
    return std::max(height, smallestHeight);
}

void PromptRow::copyBody() {
    call(onCopy);
    setCopied(true);
    // A second copy within the time starts no new one: the first end of it counts.
    MainQueue::after(copiedSeconds, this, [this, copiedPrompt = shownPrompt] {
        if (shownPrompt == copiedPrompt)
            setCopied(false);
    });
}

void PromptRow::setCopied(bool isCopied) {
    copied = isCopied;
    copyButton->setSymbol(copied ? QStringLiteral("checkmark.circle.fill") : QStringLiteral("doc.on.doc"));
    copyButton->setHelp(copied ? QStringLiteral("Copied") : QStringLiteral("Copy prompt body"));
    copyButton->setColor(copied ? std::optional(ColorRole::green) : std::nullopt);
}

void PromptRow::showButtons() {
    editButton->setVisible(hovered || selected);
    copyButton->setVisible(hovered || selected);
}

void PromptRow::placeButtons() {
    star->setGeometry(starLeft, padding + textLineHeight(TextStyle::headline) / 2 - buttonSide / 2, buttonSide,
                      buttonSide);
    const int y = (height() - buttonSide) / 2;
    copyButton->setGeometry(width() - padding - buttonSide, y, buttonSide, buttonSide);
    editButton->setGeometry(width() - padding - 2 * buttonSide - buttonGap, y, buttonSide, buttonSide);
}

void PromptRow::resizeEvent(QResizeEvent*) {
    placeButtons();
}

void PromptRow::paintEvent(QPaintEvent*) {
    if (!shownPrompt)
        return;
    QPainter painter(this);
    const Theme& theme = Theme::shared();
    const QColor hoverColor =
        withOpacity(theme.color(ColorRole::fillHover), theme.color(ColorRole::fillHover).alphaF() * hover.value());
    fillRounded(painter, rect(), cornerRadius, selected ? theme.color(ColorRole::fillSelect) : hoverColor);
    paintTexts(painter);
}

void PromptRow::paintTexts(QPainter& painter) {
    const Theme& theme = Theme::shared();
    const int room = textWidth(width());
    const int titleHeight = textLineHeight(TextStyle::headline);
    int y = padding;
    title.draw(painter, QRectF(textLeft, y, room, titleHeight), titleOf(*shownPrompt), TextStyle::headline,
               theme.color(ColorRole::text), 1, titleHeight);
    y += titleHeight;
    if (const int lines = bodyLines(*shownPrompt, room); lines > 0) {
        y += bodyGap;
        const int lineHeight = textLineHeight(TextStyle::subheadline);
        body.draw(painter, QRectF(textLeft, y, room, lines * lineHeight), shownPrompt->body(), TextStyle::subheadline,
                  theme.color(ColorRole::text2), lines, lineHeight);
        y += lines * lineHeight;
    }
    if (!shownPrompt->tags().isEmpty())
        ChipStyle::row().paintRow(painter, QPointF(textLeft, y + tagsGap), room, tagSpacing, shownTags(*shownPrompt));
}

} // namespace Quillstacks
