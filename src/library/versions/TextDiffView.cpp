#include "TextDiffView.h"

#include "interface/Drawing.h"
#include "interface/PlainTextDocument.h"
#include "interface/Theme.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>

namespace Quillstacks {
namespace {

using Kind = DiffLine::Kind;

constexpr int edge = 1;
constexpr qreal radius = 8;
constexpr qreal tintOpacity = 0.2;
constexpr int kindProperty = QTextFormat::UserProperty + 100; ///< of a paragraph: the kind of its line

ReadOnlyText::Shape diffShape() {
    ReadOnlyText::Shape result;
    result.leading = 4;
    result.minimumLines = 5;
    result.radius = radius;
    const int drop = ReadOnlyText::drop(result);
    result.padding = {14 - edge, 12 - edge - drop, 14 - edge, 12 - edge + drop};
    return result;
}

ColorRole roleOf(Kind kind) {
    return kind == Kind::inserted ? ColorRole::green : kind == Kind::deleted ? ColorRole::red : ColorRole::text;
}

QTextCharFormat characters(Kind kind) {
    QTextCharFormat format;
    if (kind == Kind::plain)
        return format;
    format.setForeground(Theme::shared().color(roleOf(kind)));
    format.setFontStrikeOut(kind == Kind::deleted);
    return format;
}

QTextBlockFormat paragraph(Kind kind, int lineHeight) {
    QTextBlockFormat format;
    format.setLineHeight(lineHeight, QTextBlockFormat::FixedHeight);
    format.setProperty(kindProperty, static_cast<int>(kind));
    return format;
}

} // namespace

TextDiffView::TextDiffView(QWidget* parent) : ReadOnlyText(QStringLiteral("Body Changes"), diffShape(), parent) {
    setObjectName(QStringLiteral("TextDiffView"));
    setViewportMargins(edge, edge, edge, edge);
    TextDiffView::refresh();
}

void TextDiffView::setTexts(const QString& oldText, const QString& newText) {
    if (oldText == older && newText == newer)
        return;
    older = oldText;
    newer = newText;
    shown = textDiff(older, newer);
    render();
}

void TextDiffView::refresh() {
    ReadOnlyText::refresh();
    render(); // the colours are another scheme's
}

void TextDiffView::render() {
    if (shown.isEmpty()) {
        setContent(newer);
        return;
    }
    fill([this](QTextDocument& fresh) { writeLines(fresh); });
}

void TextDiffView::writeLines(QTextDocument& fresh) const {
    QTextCursor cursor(&fresh);
    cursor.beginEditBlock();
    bool isFirst = true;
    for (const DiffLine& line : std::as_const(shown)) {
        const QTextCharFormat format = characters(line.kind);
        if (std::exchange(isFirst, false)) {
            cursor.setBlockFormat(paragraph(line.kind, lineHeight()));
            cursor.setBlockCharFormat(format);
        } else {
            cursor.insertBlock(paragraph(line.kind, lineHeight()), format);
        }
        PlainTextDocument::insert(cursor, line.text, format);
    }
    // The last line's end begins a paragraph that nobody should see.
    cursor.insertBlock(paragraph(Kind::plain, 0), characters(Kind::plain));
    cursor.endEditBlock();
}

bool TextDiffView::event(QEvent* event) {
    // paintEvent() is the viewport's; the ground is the widget's own.
    if (event->type() == QEvent::Paint) {
        QPainter painter(this);
        drawBox(painter, rect(), radius, Theme::shared().color(ColorRole::field),
                Theme::shared().color(ColorRole::border));
    }
    return ReadOnlyText::event(event);
}

void TextDiffView::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(viewport());
        paintTints(painter);
    }
    ReadOnlyText::paintEvent(event);
}

// From edge to edge of the box, which a paragraph's own ground would not reach.
void TextDiffView::paintTints(QPainter& painter) const {
    const QRectF box = viewport()->rect();
    const qreal scrolled = verticalScrollBar()->value() - drop(diffShape());
    QPainterPath inside;
    inside.addRoundedRect(box, radius - edge, radius - edge);
    painter.setRenderHint(QPainter::Antialiasing);
    QTextBlock block = document()->findBlock(document()->documentLayout()->hitTest(QPointF(0, scrolled), Qt::FuzzyHit));
    for (; block.isValid(); block = block.next()) {
        const QRectF place = placeOf(block).translated(0, -scrolled);
        if (place.top() >= box.bottom())
            break;
        const auto kind = static_cast<Kind>(block.blockFormat().intProperty(kindProperty));
        if (kind == Kind::plain)
            continue;
        const QRectF line(0, place.top(), box.width(), place.height());
        const QColor tint = Theme::shared().tint(roleOf(kind), tintOpacity);
        if (line.top() >= radius && line.bottom() <= box.bottom() - radius) {
            painter.fillRect(line, tint);
        } else {
            QPainterPath path;
            path.addRect(line);
            painter.fillPath(path.intersected(inside), tint);
        }
    }
}

} // namespace Quillstacks
