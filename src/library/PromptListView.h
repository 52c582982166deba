#pragma once

#include "foundation/Uuid.h"
#include "interface/Transition.h"
#include "library/model/LiveQuery.h"

#include <QPointer>
#include <QWidget>

#include <optional>

namespace Quillstacks {

class LazyList;
class Menu;
class PromptEmptyStateView;
class PromptListHeader;
class Sheet;

/// All prompts that pass the tag and the search text, pinned ones first, with selection, keys, copying, pinning and
/// deletion. The one place where toasts are shown.
class PromptListView final : public QWidget {
    Q_OBJECT
public:
    explicit PromptListView(ModelContext& modelContext, QWidget* parent = nullptr);

    // State
    /// Outlives a change of filter, so it may be out of sight.
    [[nodiscard]] Prompt* selection() const { return selected; }
    [[nodiscard]] bool isPresentingEditor() const { return presentingEditor; }
    [[nodiscard]] Prompt* pendingDeletion() const { return deletionCandidate; }
    [[nodiscard]] bool isShowingDeleteAlert() const { return showingDeleteAlert; }
    /// Flipped each time the editor closes.
    [[nodiscard]] bool refreshTrigger() const { return refreshes; }
    [[nodiscard]] const QString& searchText() const { return search; }
    [[nodiscard]] const std::optional<Uuid>& selectedTagId() const { return tagId; }
    void setSearchText(const QString& text);
    void setSelectedTagId(const std::optional<Uuid>& id);

    // Derived
    [[nodiscard]] QList<Prompt*> filteredPrompts() const;
    /// "1 prompt", "5 prompts"; empty while no filter is active or nothing passes.
    [[nodiscard]] QString countText() const;

    // Actions
    void select(Prompt* prompt);
    void newPrompt();
    void edit(Prompt* prompt);
    /// By `offset` rows, held at both ends; without a selection in sight the first row, whatever the direction.
    void moveSelection(int offset);
    void askToDelete(Prompt* prompt);
    /// Asks about the selection; does nothing without one.
    void askToDeleteSelection();
    void confirmDeletion();
    void cancelDeletion();
    void copy(Prompt* prompt);
    void togglePin(Prompt* prompt);
    /// Puts a control of the whole window at the end of the list's header.
    void addWindowItem(QWidget* item);
    /// The list's context menu for a prompt, not shown yet.
    [[nodiscard]] Menu* makeContextMenu(Prompt* prompt);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void build();
    void connectParts();
    void bindRow(QWidget* row, int index);
    void presentEditor();
    void editorClosed();
    /// Shows what passes now. After a change of the prompts the rows may be followed to their places; after one of the
    /// filter it is another list.
    void refresh(bool followsRows = false);
    void showSelection();
    void showEmptyState(bool shown);
    void showMenuOfSelection();
    [[nodiscard]] QString countTextFor(const QList<Prompt*>& visible) const;
    [[nodiscard]] bool isSelected(const Prompt& prompt) const;
    /// The selection, unless it was deleted elsewhere.
    [[nodiscard]] Prompt* livingSelection() const;
    bool handlePlainKey(const QKeyEvent& event);

    ModelContext& modelContext;
    PromptQuery prompts;
    Prompt* selected = nullptr;
    bool presentingEditor = false;
    Prompt* deletionCandidate = nullptr;
    bool showingDeleteAlert = false;
    bool refreshes = false;
    QString search;
    std::optional<Uuid> tagId;

    QList<Prompt*> shown; ///< what the rows stand for since the last refresh
    PromptListHeader* header = nullptr;
    LazyList* list = nullptr;
    PromptEmptyStateView* emptyState = nullptr;
    Transition emptyOpacity;
    QPointer<Sheet> deleteAlert;
};

} // namespace Quillstacks
