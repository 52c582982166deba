#pragma once

#include <QWidget>

#include <functional>

namespace Quillstacks {

class Prompt;

/// One prompt of the list: title, up to two lines of its body, up to three tags. Painted, and used again for other
/// prompts while the list scrolls.
class QuickAccessRow final : public QWidget {
    Q_OBJECT
public:
    explicit QuickAccessRow(QWidget* parent = nullptr);

    void setPrompt(const Prompt* prompt, bool isSelected);
    [[nodiscard]] const Prompt* prompt() const { return shownPrompt; }
    [[nodiscard]] bool isSelected() const { return selected; }
    /// What a click does; the list calls it.
    std::function<void()> onCopy;

    /// The title as it is shown.
    [[nodiscard]] static QString titleText(const Prompt& prompt);
    /// How high the row of a prompt is at a width.
    [[nodiscard]] static int heightFor(const Prompt& prompt, int width);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintTexts(QPainter& painter) const;

    const Prompt* shownPrompt = nullptr;
    bool selected = false;
};

} // namespace Quillstacks
