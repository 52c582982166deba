#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace Quillstacks {

/// What can be undone in the token editor, as changes of the plain text: so it holds good however the tokens are shown.
class TokenHistory final {
public:
    /// One change: `length` units at `location` give way to `text`, and the caret goes to a position of the document.
    struct Change {
        qsizetype location = 0;
        qsizetype length = 0;
        QString text;
        int caret = 0;
    };

    /// An edit from one text to another. Typing, and deleting, one character after the other makes one step for each
    /// word, unless tokens came or went.
    void record(const QString& before, const QString& after, int caretBefore, int caretAfter, bool tokensChanged);
    [[nodiscard]] bool canUndo() const { return done > 0; }
    [[nodiscard]] bool canRedo() const { return done < steps.size(); }
    std::optional<Change> undo();
    std::optional<Change> redo();
    void clear();

private:
    struct Step {
        qsizetype location = 0;
        QString removed;
        QString inserted;
        int caretBefore = 0;
        int caretAfter = 0;
    };
    [[nodiscard]] bool joins(const Step& next) const;
    void join(const Step& next);

    std::vector<Step> steps;
    std::size_t done = 0; ///< the steps that can be undone; the others can be redone
    bool isOpen = false;  ///< the last step may take another character
};

} // namespace Quillstacks
