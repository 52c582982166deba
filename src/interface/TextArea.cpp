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
constexpr int paddingX = 12;
constexpr int paddingY = 8;
constexpr qreal hoveredEdgeOpacity = 0.3;

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

int TextArea::wantedHeight() const {
    // Nothing is laid out before the first show; until then each paragraph counts as a line.
    const bool laidOut = !document()->pageSize().isEmpty() || document()->textWidth() > 0;
    const int wanted =
        laidOut ? static_cast<int>(std::ceil(document()->size().height())) : document()->blockCount() * lineHeight();
    return std::clamp(wanted, minimumLines * lineHeight(), maximumLines * lineHeight()) + 2 * paddingY;
}

void TextArea::grow() {
    const int wanted = wantedHeight();
    if (std::exchange(toldHeight, wanted) != wanted)
        updateGeometry();
}

QSize TextArea::sizeHint() const {
    return {200, wantedHeight()};
}

QSize TextArea::minimumSizeHint() const {
    return {60, wantedHeight()};
}

bool TextArea::event(QEvent* event) {
    // paintEvent() is the viewport's; the ground is the widget's own.
    if (event->type() == QEvent::Paint) {
        const Theme& theme = Theme::shared();
        QPainter painter(this);
        if (!isEnabled())
            painter.setOpacity(0.5);
        // Clear at rest: a form of many fields stays calm.
        const QColor edge = theme.tint(ColorRole::text2, hoveredEdgeOpacity * hover.value());
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
