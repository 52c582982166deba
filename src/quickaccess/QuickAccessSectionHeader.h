#pragma once

#include <QWidget>

namespace Quillstacks {

/// The heading of a section of the list, "PINNED" with a star or "ALL PROMPTS".
class QuickAccessSectionHeader final : public QWidget {
    Q_OBJECT
public:
    enum class Section { pinned, all };
    explicit QuickAccessSectionHeader(QWidget* parent = nullptr);

    void setSection(Section section);
    [[nodiscard]] Section section() const { return shownSection; }
    [[nodiscard]] static QString title(Section section);
    [[nodiscard]] static int heightFor(Section section);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Section shownSection = Section::pinned;
};

} // namespace Quillstacks
