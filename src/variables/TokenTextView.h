#pragma once

#include "interface/PlainTextEdit.h"

#include <functional>

namespace Quillstacks {

/// The text view of the token editor: text with tokens, copied, cut and dragged as the plain text that it stands for.
/// The toolkit's own undo is off; the commands go to whoever edits (setUndoCommands).
class TokenTextView final : public PlainTextEdit {
    Q_OBJECT
public:
    struct UndoCommands {
        std::function<void()> undo;
        std::function<void()> redo;
        std::function<bool()> canUndo;
        std::function<bool()> canRedo;
    };

    explicit TokenTextView(QWidget* parent = nullptr);

    void setUndoCommands(UndoCommands given) { commands = std::move(given); }
    /// An input method shows text that is not yet in the document.
    [[nodiscard]] bool isComposing() const;
    /// The standard menu, with this view's undo. The caller owns it.
    [[nodiscard]] QMenu* createMenu(const QPoint& position);

Q_SIGNALS:
    /// Font, colours and line heights are taken anew between the two; the text stays.
    void refreshBegins();
    void refreshEnds();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void insertText(const QString& text) override;
    void refresh() override;

private:
    UndoCommands commands;
};

} // namespace Quillstacks
