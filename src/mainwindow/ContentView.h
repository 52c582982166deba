#pragma once

#include "foundation/Uuid.h"

#include <QWidget>

#include <optional>

namespace Quillstacks {

class ModelContext;
class PromptListView;
class SidebarView;
class Tag;

/// What the main window shows while a store is open: the sidebar and the prompt list, which share a search text and a
/// selected tag. Neither is kept when the view goes.
class ContentView final : public QWidget {
    Q_OBJECT
public:
    explicit ContentView(ModelContext& modelContext, QWidget* parent = nullptr);

    [[nodiscard]] const QString& searchText() const { return search; }
    [[nodiscard]] const std::optional<Uuid>& selectedTagId() const { return tagId; }
    /// What the tag editor was last opened for; none for a new tag.
    [[nodiscard]] Tag* editingTag() const { return editedTag; }
    [[nodiscard]] bool isPresentingTagEditor() const { return presentingTagEditor; }
    [[nodiscard]] bool isPresentingHelp() const { return presentingHelp; }
    [[nodiscard]] bool isPresentingSettings() const { return presentingSettings; }
    void setSearchText(const QString& text);
    void setSelectedTagId(const std::optional<Uuid>& id);

    /// Opens the tag editor for a new tag.
    void onCreateTag();
    void onEditTag(Tag* tag);
    void presentSettings();
    void presentHelp();

    /// For what reaches in from outside the window, such as a new prompt asked for by the desktop.
    [[nodiscard]] PromptListView& promptList() const { return *list; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void connectSidebar();
    void buildToolbar();
    void addToolbarItem(const QString& symbol, const QString& title, const QKeySequence& key,
                        void (ContentView::*action)());
    void presentTagEditor(Tag* tag);

    ModelContext& modelContext;
    QString search;
    std::optional<Uuid> tagId;
    Tag* editedTag = nullptr;
    bool presentingTagEditor = false;
    bool presentingHelp = false;
    bool presentingSettings = false;
    SidebarView* sidebar;
    PromptListView* list;
};

} // namespace Quillstacks
