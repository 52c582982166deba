#include "FilledTextPreview.h"

#include "interface/Drawing.h"
#include "interface/PlainTextEdit.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>
#include <tuple>

namespace Quillstacks {

namespace {

constexpr int padding = 20;
constexpr int titleGap = 8;
constexpr int textPadding = 12;
constexpr int smallestTextHeight = 64;
constexpr int lineHeight = 19;
constexpr qreal radius = 8;
constexpr int foldMilliseconds = 200;

} // namespace

FilledTextPreview::FilledTextPreview(QWidget* parent) : QWidget(parent), unfolding(this, foldMilliseconds) {
    setObjectName(QStringLiteral("FilledTextPreview"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    edit = new PlainTextEdit(this);
    edit->setReadOnly(true);
    edit->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    edit->setAccessibleName(QStringLiteral("Preview"));
    edit->setTabChangesFocus(true);
    refresh();
    connect(&unfolding, &Transition::valueChanged, this, &FilledTextPreview::fold);
    connect(&Theme::shared(), &Theme::changed, this, &FilledTextPreview::refresh);
    hide();
}

void FilledTextPreview::refresh() {
    edit->setLineFormat(textFont(TextStyle::subheadline), lineHeight);
    QPalette palette = edit->palette();
    palette.setColor(QPalette::Text, Theme::shared().color(ColorRole::text2));
    edit->setPalette(palette);
    updateGeometry();
}

void FilledTextPreview::setText(const QString& text) {
    if (text == shownText)
        return;
    shownText = text;
    const int scrolled = edit->verticalScrollBar()->value();
    edit->setText(text);
    if (scrolled > 0) {
        std::ignore = laidOutHeight(scrolled + edit->viewport()->height());
        edit->verticalScrollBar()->setValue(scrolled);
    }
    updateGeometry();
}

void FilledTextPreview::setOpen(bool open) {
    if (open)
        show();
    unfolding.to(open ? 1 : 0);
    fold();
}

void FilledTextPreview::fold() {
    if (unfolding.target() <= 0 && unfolding.value() <= 0)
        hide();
    updateGeometry();
}

int FilledTextPreview::textTop() const {
    return padding + textLineHeight(TextStyle::subheadline) + titleGap;
}

// Paragraph by paragraph, and no further than asked: the whole of a long text takes long.
qreal FilledTextPreview::laidOutHeight(qreal enough) const {
    const QAbstractTextDocumentLayout* layout = edit->document()->documentLayout();
    qreal bottom = 0;
    for (QTextBlock block = edit->document()->begin(); block.isValid() && bottom < enough; block = block.next())
        bottom = layout->blockBoundingRect(block).bottom();
    return bottom;
}

int FilledTextPreview::wantedTextHeight() const {
    const int text = static_cast<int>(laidOutHeight(greatestTextHeight)) + 2 * textPadding;
    return std::min(text, greatestTextHeight);
}

int FilledTextPreview::folded(int height) const {
    return static_cast<int>(height * std::clamp(unfolding.value(), 0.0, 1.0));
}

QSize FilledTextPreview::sizeHint() const {
    return {2 * padding, folded(textTop() + wantedTextHeight() + padding)};
}

QSize FilledTextPreview::minimumSizeHint() const {
    return {2 * padding, folded(textTop() + std::min(wantedTextHeight(), smallestTextHeight) + padding)};
}

QRect FilledTextPreview::textBox() const {
    // Folding covers the text from below and doesn't lay it out anew with every step.
    const int height = unfolding.value() < 1 ? wantedTextHeight() : this->height() - textTop() - padding;
    return {padding, textTop(), width() - 2 * padding, std::max(height, 0)};
}

void FilledTextPreview::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    edit->setGeometry(textBox().adjusted(textPadding, textPadding, -textPadding, -textPadding));
    if (event->oldSize().width() != width())
        updateGeometry();
}

void FilledTextPreview::paintEvent(QPaintEvent*) {
    const Theme& theme = Theme::shared();
    QPainter painter(this);
    painter.setFont(textFont(TextStyle::subheadline, QFont::Medium));
    painter.setPen(theme.color(ColorRole::text));
    painter.drawText(QRect(padding, padding, width() - 2 * padding, textLineHeight(TextStyle::subheadline)),
                     Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Preview"));
    drawBox(painter, textBox(), radius, theme.color(ColorRole::field), theme.color(ColorRole::border));
}

} // namespace Quillstacks
