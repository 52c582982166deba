#include "ReadOnlyText.h"

#include "interface/FocusRing.h"
#include "interface/PlainTextDocument.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPointer>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Quillstacks {
namespace {

/// Higher than the room that there ever is; to know more of a long text would take long.
constexpr int greatestHeight = 1200;
constexpr int smallestWidth = 60;

} // namespace

ReadOnlyText::ReadOnlyText(const QString& accessibleName, const Shape& textShape, QWidget* parent)
    : PlainTextEdit(parent), shape(textShape) {
    setAccessibleName(accessibleName);
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
    FocusRing::attach(this, shape.radius);
    ReadOnlyText::refresh();
    fill([](QTextDocument&) {});
}

void ReadOnlyText::setContent(const QString& text) {
    if (text == shownText)
        return;
    shownText = text;
    fill([&text](QTextDocument& fresh) { PlainTextDocument::setText(fresh, text); });
}

std::unique_ptr<QTextDocument> ReadOnlyText::emptyDocument() const {
    auto made = std::make_unique<QTextDocument>();
    made->setUndoRedoEnabled(false);
    made->setDefaultFont(textFont(shape.style));
    QTextFrameFormat frame = made->rootFrame()->frameFormat();
    frame.setLeftMargin(shape.padding.left());
    frame.setTopMargin(shape.padding.top());
    frame.setRightMargin(shape.padding.right());
    frame.setBottomMargin(shape.padding.bottom());
    made->rootFrame()->setFrameFormat(frame);
    QTextBlockFormat paragraph;
    paragraph.setLineHeight(lineHeight(), QTextBlockFormat::FixedHeight);
    QTextCursor(made.get()).setBlockFormat(paragraph);
    return made;
}

void ReadOnlyText::fill(const std::function<void(QTextDocument&)>& write) {
    // A document that is already shown is laid out to its end by every change; one that comes filled only as far as it
    // is seen.
    std::unique_ptr<QTextDocument> fresh = emptyDocument();
    write(*fresh);
    const QPointer<QTextDocument> before = document();
    fresh->setParent(this);
    setDocument(fresh.release());
    setCursorWidth(0); // a property of the document's layout
    verticalScrollBar()->setValue(0);
    delete before; // unless it went already: the toolkit keeps the first one for itself
    contentChanged();
}

void ReadOnlyText::contentChanged() {
    toldHeight = wantedHeight();
    updateGeometry();
}

void ReadOnlyText::refresh() {
    setLineFormat(textFont(shape.style), textLineHeight(shape.style) + shape.leading);
    contentChanged();
}

int ReadOnlyText::drop(const Shape& shape) {
    // Lines of a fixed height have their base line at four fifths of it.
    const QFontMetricsF metrics(textFont(shape.style));
    const qreal height = textLineHeight(shape.style) + shape.leading;
    const qreal middle = (height - metrics.ascent() - metrics.descent()) / 2 + metrics.ascent();
    return std::max(0, static_cast<int>(std::round(0.8 * height - middle)));
}

QRectF ReadOnlyText::placeOf(const QTextBlock& block) const {
    // The layout's own answer ends with the last line's glyphs. It has to be asked first, as it is what lays out.
    QRectF place = document()->documentLayout()->blockBoundingRect(block);
    place.setHeight(block.layout()->lineCount() * block.blockFormat().lineHeight());
    return place;
}

int ReadOnlyText::aroundViewport() const {
    return viewportMargins().top() + viewportMargins().bottom();
}

int ReadOnlyText::heightOfLines(int lines) const {
    return lines * lineHeight() + shape.padding.top() + shape.padding.bottom() + aroundViewport();
}

// Paragraph by paragraph, and no further than asked.
int ReadOnlyText::laidOutHeight(int enough) const {
    qreal bottom = 0;
    for (QTextBlock block = document()->begin(); block.isValid() && bottom < enough; block = block.next())
        bottom = placeOf(block).bottom();
    return static_cast<int>(std::ceil(bottom)) + shape.padding.bottom() + aroundViewport();
}

int ReadOnlyText::wantedHeight() const {
    const int most = shape.maximumLines > 0 ? heightOfLines(shape.maximumLines) : greatestHeight;
    return std::clamp(laidOutHeight(most), heightOfLines(1), most);
}

QSize ReadOnlyText::sizeHint() const {
    return {4 * smallestWidth, toldHeight};
}

QSize ReadOnlyText::minimumSizeHint() const {
    return {smallestWidth, std::min(toldHeight, heightOfLines(shape.minimumLines))};
}

void ReadOnlyText::grow() {
    const int wanted = wantedHeight();
    if (std::exchange(toldHeight, wanted) != wanted)
        updateGeometry();
}

void ReadOnlyText::resizeEvent(QResizeEvent* event) {
    PlainTextEdit::resizeEvent(event);
    if (event->oldSize().width() != event->size().width())
        grow();
}

} // namespace Quillstacks
