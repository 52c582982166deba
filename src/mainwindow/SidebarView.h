#pragma once

#include "foundation/Uuid.h"

#include <QWidget>

#include <optional>

namespace Quillstacks {

class SidebarRow;
class TextField;

/// The left column of the main window: the search field and the filters. It shows the search text and the selected tag
/// of the content view, and tells what the user makes of them.
class SidebarView final : public QWidget {
    Q_OBJECT
public:
    explicit SidebarView(QWidget* parent = nullptr);

    [[nodiscard]] QString searchText() const;
    [[nodiscard]] const std::optional<Uuid>& selectedTagId() const { return tagId; }
    void setSearchText(const QString& text);
    void setSelectedTagId(const std::optional<Uuid>& id);

Q_SIGNALS:
    /// At each key press.
    void searchTextChanged(const QString& text);
    void selectedTagIdChanged(const std::optional<Quillstacks::Uuid>& id);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void build();
    [[nodiscard]] QWidget* buildTitle();

    std::optional<Uuid> tagId;
    TextField* searchField = nullptr;
    SidebarRow* allPrompts = nullptr;
};

} // namespace Quillstacks
