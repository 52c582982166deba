#include "interface/PlainTextEdit.h"

#include "FieldStyle.h"
#include "interface/OverlayScrollBar.h"
#include "interface/PlainTextDocument.h"
#include "interface/TextStyle.h"
#include "interface/Theme.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QTextBlock>
#include <QTextLayout>
#include <QTimerEvent>

namespace Quillstacks {
namespace {

constexpr qreal caretWidth = 1.5;

} // namespace

PlainTextEdit::PlainTextEdit(QWidget* parent) : QTextEdit(parent), lineFont(textFont(TextStyle::body)) {
    setFrameShape(QFrame::NoFrame);
    setAcceptRichText(false);
    setCursorWidth(0); // drawn here, in the accent colour
    viewport()->setAutoFillBackground(false);
    setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    OverlayScrollBar::install(this);
    connect(this, &QTextEdit::cursorPositionChanged, this, &PlainTextEdit::restartCaret);
    connect(this, &QTextEdit::textChanged, this, &PlainTextEdit::restartCaret);
    connect(&Theme::shared(), &Theme::changed, this, [this] { refresh(); });
    PlainTextEdit::refresh();
}

void PlainTextEdit::setText(const QString& text) {
    PlainTextDocument::setText(*document(), text);
    applyLineHeight();
    moveCursor(QTextCursor::Start);
}

QString PlainTextEdit::text() const {
    return PlainTextDocument::text(*document());
}

void PlainTextEdit::setPlaceholder(const QString& text) {
    placeholderText = text;
    viewport()->update();
}

void PlainTextEdit::setLineFormat(const QFont& font, int lineHeight) {
    lineFont = font;
    heightOfLine = lineHeight;
    PlainTextEdit::refresh();
}

void PlainTextEdit::refresh() {
    refreshing = true;
    QPalette colors = Theme::shared().palette();
    colors.setColor(QPalette::Base, Qt::transparent);
    QColor faint = colors.color(QPalette::Active, QPalette::Text);
    faint.setAlphaF(0.5F);
    colors.setColor(QPalette::Disabled, QPalette::Text, faint);
    setPalette(colors);
    setFont(lineFont);
    document()->setDefaultFont(lineFont);
    applyLineHeight();
    refreshing = false;
    viewport()->update();
}

void PlainTextEdit::applyLineHeight() {
    QTextBlockFormat format;
    format.setLineHeight(heightOfLine, QTextBlockFormat::FixedHeight);
    if (document()->begin().blockFormat().lineHeight() == heightOfLine)
        return;
    // A change of looks is nothing that could be undone.
    const bool undo = document()->isUndoRedoEnabled();
    document()->setUndoRedoEnabled(false);
    QTextCursor cursor(document());
    cursor.select(QTextCursor::Document);
    cursor.mergeBlockFormat(format);
    document()->setUndoRedoEnabled(undo);
}

void PlainTextEdit::insertText(const QString& text) {
    QTextCursor cursor = textCursor();
    PlainTextDocument::insert(cursor, text);
    setTextCursor(cursor);
}

void PlainTextEdit::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const auto modifiers = event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    if (!isReturn || modifiers != Qt::NoModifier || isReadOnly()) {
        QTextEdit::keyPressEvent(event);
        return;
    }
    // The toolkit's own would copy the separator of the paragraph, or put in a U+2028.
    insertText(QStringLiteral("\n"));
    ensureCursorVisible();
    event->accept();
}

void PlainTextEdit::inputMethodEvent(QInputMethodEvent* event) {
    const QString committed = event->commitString();
    const bool special = std::any_of(committed.begin(), committed.end(), [](QChar unit) {
        return unit == u'\r' || unit == u'\n' || unit == QChar::ParagraphSeparator || unit.unicode() == 0xFDD0 ||
               unit.unicode() == 0xFDD1;
    });
    if (!special || isReadOnly()) {
        QTextEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent withoutCommit(event->preeditString(), event->attributes());
    withoutCommit.setCommitString({}, event->replacementStart(), event->replacementLength());
    QTextEdit::inputMethodEvent(&withoutCommit);
    insertText(committed);
    event->accept();
}

void PlainTextEdit::paintEvent(QPaintEvent* event) {
    QTextEdit::paintEvent(event);
    QPainter painter(viewport());
    const bool composing = !textCursor().block().layout()->preeditAreaText().isEmpty();
    if (document()->isEmpty() && !composing && !placeholderText.isEmpty()) {
        painter.setPen(Theme::shared().color(ColorRole::text3));
        painter.setFont(lineFont);
        if (!isEnabled())
            painter.setOpacity(0.5);
        const QRectF line(cursorRect().left(), cursorRect().top(), viewport()->width(), heightOfLine);
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, placeholderText);
        painter.setOpacity(1);
    }
    if (!caretShown || !hasFocus() || isReadOnly())
        return;
    const QRect place = cursorRect();
    painter.fillRect(QRectF(place.left() - caretWidth / 2 + 0.5, place.top(), caretWidth, place.height()),
                     Theme::shared().color(ColorRole::accent));
}

void PlainTextEdit::restartCaret() {
    if (!hasFocus())
        return;
    caretShown = true;
    if (const int interval = caretInterval(); interval > 0)
        caretTimer.start(interval, this);
    viewport()->update();
}

void PlainTextEdit::timerEvent(QTimerEvent* event) {
    if (event->timerId() != caretTimer.timerId()) {
        QTextEdit::timerEvent(event);
        return;
    }
    caretShown = !caretShown;
    viewport()->update(cursorRect().adjusted(-3, -2, 3, 2));
}

void PlainTextEdit::focusInEvent(QFocusEvent* event) {
    QTextEdit::focusInEvent(event);
    restartCaret();
    Q_EMIT focused();
}

void PlainTextEdit::focusOutEvent(QFocusEvent* event) {
    QTextEdit::focusOutEvent(event);
    caretTimer.stop();
    caretShown = false;
    viewport()->update();
    Q_EMIT unfocused();
}

void PlainTextEdit::changeEvent(QEvent* event) {
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !refreshing)
        viewport()->update();
}

QMimeData* PlainTextEdit::createMimeDataFromSelection() const {
    auto* copied = new QMimeData;
    copied->setText(PlainTextDocument::selectedText(textCursor()));
    return copied;
}

bool PlainTextEdit::canInsertFromMimeData(const QMimeData* source) const {
    return source->hasText() && !isReadOnly();
}

void PlainTextEdit::insertFromMimeData(const QMimeData* source) {
    if (!canInsertFromMimeData(source))
        return;
    insertText(source->text());
    ensureCursorVisible();
}

} // namespace Quillstacks
