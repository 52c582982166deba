#pragma once

#include "foundation/Uuid.h"
#include "library/model/LiveQuery.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QVBoxLayout;

namespace Quillstacks {

class Menu;
class Sheet;
class SidebarRow;
class TagRow;

/// The sidebar's rows: all prompts, each tag, and a way to make a tag. Holds which of them is selected, and deletes
/// tags. It is as high as its rows; its host scrolls it.
class SidebarTagsSection final : public QWidget {
    Q_OBJECT
public:
    /// `idOfAllPrompts` stands for the row "All Prompts"; it is no tag's id.
    SidebarTagsSection(ModelContext& modelContext, const Uuid& idOfAllPrompts, QWidget* parent = nullptr);

    std::function<void()> onCreate;
    std::function<void(Tag*)> onEdit;

    // State
    [[nodiscard]] const std::optional<Uuid>& selectedTagId() const { return tagId; }
    [[nodiscard]] Tag* pendingDeletion() const { return deletionCandidate; }
    [[nodiscard]] bool isShowingDeleteAlert() const { return showingDeleteAlert; }
    /// Tells nobody; the user's choice is told by selectedTagIdChanged().
    void setSelectedTagId(const std::optional<Uuid>& id);

    // Actions
    void select(const Uuid& id);
    /// By `offset` rows, held at both ends; the row takes the keyboard.
    void moveSelection(int offset);
    void askToDelete(Tag* tag);
    /// Deletes after 0.1 s, when the alert is gone; also when this section is gone by then.
    void confirmDeletion();
    void cancelDeletion();
    /// The context menu of a tag's row, not shown yet.
    [[nodiscard]] Menu* makeContextMenu(Tag* tag);

Q_SIGNALS:
    void selectedTagIdChanged(const std::optional<Quillstacks::Uuid>& id);
    /// A row was chosen by key, and may be out of sight.
    void revealed(QWidget* row);

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void build();
    void refresh();
    TagRow* takeRow(Tag* tag);
    TagRow* makeRow(Tag* tag);
    void orderRows();
    void orderTabs();
    [[nodiscard]] SidebarRow* selectedRow() const;
    [[nodiscard]] TagRow* rowAround(const QWidget* widget) const;
    void showMenu(const TagRow& row, const QPoint& global);

    ModelContext& modelContext;
    TagQuery tags;
    std::optional<Uuid> tagId;
    Tag* deletionCandidate = nullptr;
    bool showingDeleteAlert = false;
    const Uuid allPromptsId;

    QVBoxLayout* layoutOfTags = nullptr;
    SidebarRow* allPrompts = nullptr;
    std::vector<TagRow*> rows; ///< in the order of the query
    SidebarRow* newTag = nullptr;
    QPointer<Sheet> deleteAlert;
};

} // namespace Quillstacks
