#pragma once

#include "interface/RowText.h"
#include "interface/Transition.h"

#include <QWidget>

#include <functional>

namespace Quillstacks {

class IconButton;
class Prompt;

/// One entry of the prompt list. The list uses it again for other prompts while it scrolls.
class PromptRow final : public QWidget {
    Q_OBJECT
public:
    explicit PromptRow(QWidget* parent = nullptr);

    std::function<void()> onEdit;
    std::function<void()> onCopy;
    std::function<void()> onTogglePin;

    /// Fills the row. A prompt that the row did not show before starts with no state of its own.
    void setPrompt(Prompt* prompt, bool isSelected);
    void setHovered(bool isHovered);

    [[nodiscard]] Prompt* prompt() const { return shownPrompt; }
    [[nodiscard]] bool isSelected() const { return selected; }
    [[nodiscard]] bool isHovered() const { return hovered; }
    [[nodiscard]] bool didCopy() const { return copied; }
    [[nodiscard]] bool isStarHovered() const;

    /// The title, or what stands for an empty one.
    [[nodiscard]] static QString titleOf(const Prompt& prompt);
    /// The height that the prompt takes at a width, without making a row.
    [[nodiscard]] static int heightOf(const Prompt& prompt, int width);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void connectButtons();
    void copyBody();
    void setCopied(bool isCopied);
    void showButtons();
    void placeButtons();
    void paintTexts(QPainter& painter);

    Prompt* shownPrompt = nullptr;
    bool selected = false;
    bool hovered = false;
    bool copied = false;
    IconButton* star;
    IconButton* editButton;
    IconButton* copyButton;
    Transition hover;
    KeptRowText title;
    KeptRowText body;
};

} // namespace Quillstacks
