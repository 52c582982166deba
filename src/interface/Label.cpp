#include "interface/Label.h"

#include "interface/TextBlock.h"
#include "interface/Theme.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace Quillstacks {
namespace {

constexpr qreal unbounded = 1e6;
/// What a wrapping text asks for when nothing says how wide it should be.
constexpr int comfortableWidth = 480;

} // namespace

Label::Label(const QString& text, TextStyle textStyle, ColorRole color, QWidget* parent)
    : QLabel(parent), style(textStyle), role(color) {
    setTextFormat(Qt::PlainText);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setSizePolicy(policy);
    setText(text);
    connect(&Theme::shared(), &Theme::changed, this, &Label::refresh);
}

Label::~Label() = default;

void Label::setText(const QString& text) {
    if (text == this->text())
        return;
    QLabel::setText(text);
    refresh();
}

void Label::setTextStyle(TextStyle newStyle, int newWeight) {
    style = newStyle;
    weight = newWeight;
    refresh();
}

void Label::setAbsoluteFont(qreal points, int newWeight, qreal lineHeight) {
    fixedFont = absoluteFont(points, newWeight);
    fixedLineHeight = lineHeight;
    refresh();
}

void Label::setColorRole(ColorRole newRole) {
    role = newRole;
    refresh();
}

void Label::setColor(std::optional<QColor> color) {
    fixedColor = color;
    refresh();
}

void Label::setMaximumLines(int lines) {
    maximumLines = lines;
    QSizePolicy policy = sizePolicy();
    policy.setHeightForWidth(hasHeightForWidth());
    policy.setVerticalPolicy(hasHeightForWidth() ? QSizePolicy::Minimum : QSizePolicy::Fixed);
    setSizePolicy(policy);
    refresh();
}

void Label::setTextAlignment(Qt::Alignment alignment) {
    QLabel::setAlignment(alignment | Qt::AlignTop);
    refresh();
}

void Label::setSelectable(bool selectable) {
    setTextInteractionFlags(selectable ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                       : Qt::NoTextInteraction);
    setWordWrap(selectable && maximumLines != 1);
    refresh();
}

bool Label::isSelectable() const {
    return textInteractionFlags() & Qt::TextSelectableByMouse;
}

int Label::lineHeight() const {
    return fixedFont ? static_cast<int>(fixedLineHeight) : textLineHeight(style);
}

QFont Label::currentFont() const {
    return fixedFont ? *fixedFont : textFont(style, weight);
}

QColor Label::currentColor() const {
    QColor color = fixedColor ? *fixedColor : Theme::shared().color(role);
    if (!isEnabled())
        color.setAlphaF(color.alphaF() * 0.5F);
    return color;
}

void Label::refresh() {
    laidOut.reset();
    if (isSelectable()) {
        setFont(currentFont());
        QPalette colors = Theme::shared().palette();
        colors.setColor(QPalette::WindowText, currentColor());
        setPalette(colors);
    }
    updateGeometry();
    update();
}

const TextBlock& Label::block(qreal width) const {
    // Text and format reset the layout when they change, so only the width is left to compare.
    if (!laidOut || laidOut->width() != std::max(width, 1.0)) {
        const auto horizontal = alignment() & Qt::AlignHorizontal_Mask;
        laidOut = std::make_unique<TextBlock>(
            text(), TextBlock::Format{currentFont(), lineHeight(), maximumLines, horizontal}, width);
    }
    return *laidOut;
}

bool Label::isTruncated() const {
    return block(contentsRect().width()).isTruncated();
}

QSize Label::sizeHint() const {
    const QMargins margins = contentsMargins();
    const TextBlock natural(text(), {currentFont(), lineHeight(), maximumLines, Qt::AlignLeft}, unbounded);
    int width = static_cast<int>(std::ceil(natural.naturalWidth())) + margins.left() + margins.right();
    if (hasHeightForWidth() && width > comfortableWidth)
        width = comfortableWidth;
    const int height = hasHeightForWidth() ? heightForWidth(width) : lineHeight() + margins.top() + margins.bottom();
    return {width, height};
}

QSize Label::minimumSizeHint() const {
    const int shortest = static_cast<int>(QFontMetricsF(currentFont()).averageCharWidth() * 4);
    return {std::min(shortest, sizeHint().width()),
            lineHeight() + contentsMargins().top() + contentsMargins().bottom()};
}

bool Label::hasHeightForWidth() const {
    return maximumLines != 1;
}

int Label::heightForWidth(int width) const {
    const QMargins margins = contentsMargins();
    if (!hasHeightForWidth())
        return lineHeight() + margins.top() + margins.bottom();
    const int lines = std::max(1, block(width - margins.left() - margins.right()).lineCount());
    return lines * lineHeight() + margins.top() + margins.bottom();
}

void Label::paintEvent(QPaintEvent* event) {
    if (isSelectable()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setPen(currentColor());
    const QRect box = contentsRect();
    const TextBlock& lines = block(box.width());
    qreal top = box.top();
    if (!(alignment() & Qt::AlignTop) || !hasHeightForWidth())
        top += std::max(0.0, std::floor((box.height() - lines.height()) / 2.0));
    lines.draw(painter, {static_cast<qreal>(box.left()), top});
}

} // namespace Quillstacks
