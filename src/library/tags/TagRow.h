#pragma once

#include "SidebarRow.h"

#include <functional>

namespace Quillstacks {

class IconButton;
class Tag;

/// A tag in the sidebar: its colour, its name and, while the pointer is there, a pencil. The pencil shows also while it
/// has the keyboard.
class TagRow final : public SidebarRow {
    Q_OBJECT
public:
    TagRow(Tag* tag, QWidget* parent);

    std::function<void()> onEdit;

    [[nodiscard]] Tag* tag() const { return shown; }
    [[nodiscard]] bool isHovered() const { return hovered; }
    /// Takes name and colour anew.
    void refresh();
    void setTabStop(bool stops) override;
    [[nodiscard]] QWidget* lastTabStop() const;

protected:
    void paintLead(QPainter& painter, const QRectF& box) const override;
    int trailingRoom() const override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showPencil();

    Tag* shown;
    bool hovered = false;
    IconButton* pencil;
};

} // namespace Quillstacks
