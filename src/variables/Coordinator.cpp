#include "variables/Coordinator.h"

#include "interface/PlainTextDocument.h"
#include "variables/TokenDocument.h"
#include "variables/TokenizingTextView.h"
#include "variables/TokenTextView.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QScopedValueRollback>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace Quillstacks {

Coordinator::Coordinator(TokenizingTextView* owner, TokenTextView* view) : parent(owner), textView(view) {
    connectView();
    view->setUndoCommands(
        {[this] { undo(); }, [this] { redo(); }, [this] { return canUndo(); }, [this] { return canRedo(); }});
    applyTypingAttributes();
}

void Coordinator::connectView() {
    const QTextDocument* document = textView->document();
    QObject::connect(document, &QTextDocument::contentsChange, &context,
                     [this](int from, int removed, int added) { noteChange(from, removed, added); });
    QObject::connect(document, &QTextDocument::contentsChanged, &context, [this] { textDidChange(); });
    QObject::connect(textView, &QTextEdit::cursorPositionChanged, &context, [this] { noteSelection(); });
    QObject::connect(textView, &QTextEdit::selectionChanged, &context, [this] { noteSelection(); });
    QObject::connect(textView, &TokenTextView::refreshBegins, &context, [this] { isProgrammaticChange = true; });
    QObject::connect(textView, &TokenTextView::refreshEnds, &context, [this] { isProgrammaticChange = false; });
}

void Coordinator::noteChange(int from, int removed, int added) {
    if (isProgrammaticChange)
        return;
    // Several changes can come before the tokens are made, while an input method composes.
    editedTo = isEditing ? std::max(editedTo, from + removed) + added - removed : from + added;
    editedFrom = isEditing ? std::min(editedFrom, from) : from;
    isEditing = true;
}

void Coordinator::noteSelection() {
    if (isProgrammaticChange || isEditing || !textView)
        return;
    settledSelection = selection();
    applyTypingAttributes();
}

Coordinator::Selection Coordinator::selection() const {
    const QTextCursor cursor = textView->textCursor();
    return {cursor.anchor(), cursor.position()};
}

void Coordinator::textDidChange() {
    if (isProgrammaticChange || !textView)
        return;
    const QString text = PlainTextDocument::text(*textView->document());
    parent->takeText(text);
    if (parent->text() != text || !textView)
        return; // whoever heard of it has set another
    if (textView->isComposing())
        return; // the text under way would be torn apart; its end comes here again
    if (text == settledText && selection() == settledSelection) {
        isEditing = false; // another look, or a composition that came to nothing
        return;
    }
    settle(text);
}

void Coordinator::settle(const QString& text) {
    QTextDocument& document = *textView->document();
    // The caret keeps its number, also where the text before it becomes shorter by the making of a token.
    const qsizetype units = TokenDocument::unitsAt(document, textView->textCursor().selectionEnd());
    bool tokensChanged = false;
    {
        const QScopedValueRollback guard(isProgrammaticChange, true);
        tokensChanged = TokenDocument::rebuild(document, editedFrom, editedTo);
        applyTypingAttributes();
    }
    const int caretBefore = std::max(settledSelection.anchor, settledSelection.position);
    placeCaret(TokenDocument::positionAt(document, units));
    history.record(settledText, text, caretBefore, settledSelection.position, tokensChanged);
    settledText = text;
}

void Coordinator::placeCaret(int position) {
    isEditing = false;
    QTextCursor cursor = textView->textCursor();
    cursor.setPosition(std::clamp(position, 0, textView->document()->characterCount() - 1));
    textView->setTextCursor(cursor);
    skipTokenAtCaret(textView);
    applyTypingAttributes();
    settledSelection = selection();
}

void Coordinator::skipTokenAtCaret(TokenTextView* view) {
    QTextCursor cursor = view->textCursor();
    const int location = cursor.selectionStart();
    if (!TokenDocument::isToken(*view->document(), location))
        return;
    cursor.setPosition(location + 1);
    view->setTextCursor(cursor);
}

void Coordinator::applyTypingAttributes() {
    // What is typed behind a token would take its attributes. With a selection this would change the selected text.
    if (textView && !textView->textCursor().hasSelection())
        textView->setCurrentCharFormat({});
}

void Coordinator::updateTextView() {
    if (!textView || PlainTextDocument::text(*textView->document()) == parent->text())
        return;
    if (textView->isComposing())
        QGuiApplication::inputMethod()->reset();
    {
        const QScopedValueRollback guard(isProgrammaticChange, true);
        TokenDocument::build(*textView->document(), attributedText(parent->text()));
        applyTypingAttributes();
    }
    isEditing = false;
    history.clear();
    settledText = parent->text();
    settledSelection = selection();
}

void Coordinator::undo() {
    if (textView && !textView->isComposing())
        if (const auto change = history.undo())
            apply(*change);
}

void Coordinator::redo() {
    if (textView && !textView->isComposing())
        if (const auto change = history.redo())
            apply(*change);
}

void Coordinator::apply(const TokenHistory::Change& change) {
    QString text = settledText;
    text.replace(change.location, change.length, change.text);
    {
        const QScopedValueRollback guard(isProgrammaticChange, true);
        TokenDocument::replacePlain(*textView->document(), change.location, change.length, change.text);
    }
    settledText = text;
    placeCaret(change.caret);
    textView->ensureCursorVisible();
    parent->takeText(text);
}

} // namespace Quillstacks
