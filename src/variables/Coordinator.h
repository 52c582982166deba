#pragma once

#include "variables/TokenHistory.h"

#include <QObject>
#include <QPointer>
#include <QString>

namespace Quillstacks {

class TokenizingTextView;
class TokenTextView;

/// The delegate of the token editor: turns placeholders into tokens after every edit, and keeps the plain text.
class Coordinator final {
    Q_DISABLE_COPY_MOVE(Coordinator)
public:
    Coordinator(TokenizingTextView* parent, TokenTextView* textView);

    TokenizingTextView* parent;
    QPointer<TokenTextView> textView;
    /// True only while the contents are replaced, which raises the same signals as typing.
    bool isProgrammaticChange = false;

    /// After a user's edit.
    void textDidChange();
    /// After a change of the parent's text from outside. The caret is not set, and the undo history ends.
    void updateTextView();
    void applyTypingAttributes();
    /// Moves a caret that stands just before an object to behind it.
    void skipTokenAtCaret(TokenTextView* view);

    void undo();
    void redo();
    [[nodiscard]] bool canUndo() const { return history.canUndo(); }
    [[nodiscard]] bool canRedo() const { return history.canRedo(); }

private:
    /// Positions of the document.
    struct Selection {
        int anchor = 0;
        int position = 0;
        friend bool operator==(const Selection&, const Selection&) = default;
    };
    void connectView();
    void noteChange(int from, int removed, int added);
    void noteSelection();
    void settle(const QString& text);
    void apply(const TokenHistory::Change& change);
    void placeCaret(int position);
    [[nodiscard]] Selection selection() const;

    QObject context; ///< connections end with it
    TokenHistory history;
    QString settledText;        ///< what the tokens on screen were made of
    Selection settledSelection; ///< before the edit that is under way
    bool isEditing = false;
    int editedFrom = 0; ///< where the document has new text
    int editedTo = 0;
};

} // namespace Quillstacks
