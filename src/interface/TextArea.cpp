#include "interface/TextArea.h"

#include "interface/Drawing.h"
#include "interface/FocusRing.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>

#include <cmath>

namespace Quillstacks {
namespace {

constexpr qreal radius = 6;
constexpr int paddingX = 13;
constexpr int paddingY = 9;

} // namespace

TextArea::TextArea(const QString& placeholder, int least, int most, QWidget* parent)
    : PlainTextEdit(parent), minimumLines(least), maximumLines(most), hover(this) {
    setTabChangesFocus(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setViewportMargins(paddingX, paddingY, paddingX, paddingY);
    setPlaceholder(placeholder);
    FocusRing::attach(this, radius, FocusRing::Manner::field);
    connect(document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, this, &TextArea::grow);
    TextArea::refresh();
}

void TextArea::refresh() {
    setLineFormat(textFont(TextStyle::body), textLineHeight(TextStyle::body));
    grow();
}

void TextArea::grow() {
    const int wanted = static_cast<int>(std::ceil(document()->size().height()));
    const int bounded = std::clamp(wanted, minimumLines * lineHeight(), maximumLines * lineHeight());
    if (bounded == contentHeight)
        return;
    contentHeight = bounded;
    updateGeometry();
}

QSize TextArea::sizeHint() const {
    return {200, contentHeight + 2 * paddingY};
}

QSize TextArea::minimumSizeHint() const {
    return {60, contentHeight + 2 * paddingY};
}

bool TextArea::event(QEvent* event) {
    // paintEvent() is the viewport's; the ground is the widget's own.
    if (event->type() == QEvent::Paint) {
        const Theme& theme = Theme::shared();
        QPainter painter(this);
        if (!isEnabled())
            painter.setOpacity(0.5);
        const QColor edge = mix(theme.color(ColorRole::border), theme.color(ColorRole::borderHover), hover.value());
        drawBox(painter, rect(), radius, theme.color(ColorRole::field), hasFocus() ? QColor() : edge);
    }
    return PlainTextEdit::event(event);
}

void TextArea::resizeEvent(QResizeEvent* event) {
    PlainTextEdit::resizeEvent(event);
    grow();
}

void TextArea::enterEvent(QEnterEvent* event) {
    PlainTextEdit::enterEvent(event);
    hover.to(isEnabled() ? 1 : 0);
}

void TextArea::leaveEvent(QEvent* event) {
    PlainTextEdit::leaveEvent(event);
    hover.to(0);
}

} // namespace Quillstacks
