#pragma once

#include "foundation/Uuid.h"

#include <QWidget>

#include <functional>
#include <optional>

namespace Quillstacks {

class ModelContext;
class ScrollArea;
class SidebarTagsSection;
class Tag;
class TextField;

/// The left column of the main window: the search field, the filters and the tags. It shows the search text and the
/// selected tag of the content view, and tells what the user makes of them.
class SidebarView final : public QWidget {
    Q_OBJECT
public:
    explicit SidebarView(ModelContext& modelContext, QWidget* parent = nullptr);

    std::function<void()> onCreateTag;
    std::function<void(Tag*)> onEditTag;

    [[nodiscard]] QString searchText() const;
    [[nodiscard]] const std::optional<Uuid>& selectedTagId() const;
    void setSearchText(const QString& text);
    void setSelectedTagId(const std::optional<Uuid>& id);
    /// The rows, all prompts and the tags.
    [[nodiscard]] SidebarTagsSection& tagsSection() const { return *section; }

Q_SIGNALS:
    /// At each key press.
    void searchTextChanged(const QString& text);
    void selectedTagIdChanged(const std::optional<Quillstacks::Uuid>& id);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void build(ModelContext& modelContext);
    void connectParts();
    [[nodiscard]] QWidget* buildTitle();

    TextField* searchField = nullptr;
    ScrollArea* rows = nullptr;
    SidebarTagsSection* section = nullptr;
};

} // namespace Quillstacks
