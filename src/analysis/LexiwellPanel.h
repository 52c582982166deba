#pragma once

#include "analysis/answer/PromptAnalysis.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>

namespace Quillstacks {

class Button;
class IconButton;
class LexiwellHelpPopover;
class LexiwellTitleButton;
class ScrollArea;

/// The panel that starts the analysis of a prompt and shows what came of it. It holds no logic of its own. Its frame is
/// the editor's business. Page Up and Down, Home and End scroll the content from the header.
class LexiwellPanel final : public QWidget {
    Q_OBJECT
public:
    /// `onAnalyze` starts an analysis.
    explicit LexiwellPanel(std::function<void()> onAnalyze, QWidget* parent = nullptr);
    ~LexiwellPanel() override;

    // State
    [[nodiscard]] const std::optional<PromptAnalysis>& analysis() const { return lastAnalysis; }
    [[nodiscard]] bool isLoading() const { return loading; }
    [[nodiscard]] bool isPromptEmpty() const { return promptEmpty; }
    [[nodiscard]] const std::optional<QString>& errorMessage() const { return lastError; }
    [[nodiscard]] bool isCollapsed() const { return collapsed; }
    [[nodiscard]] bool showingHelpPopover() const;
    void setAnalysis(const std::optional<PromptAnalysis>& analysis);
    void setLoading(bool isLoading);
    void setPromptEmpty(bool isEmpty);
    void setErrorMessage(const std::optional<QString>& message);
    void setCollapsed(bool isCollapsed);

    // Actions
    void toggleHelpPopover();

    /// While collapsed, the header's.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The button was pressed; whoever lays the panel out gives it its room within 200 ms.
    void collapsedChanged(bool collapsed);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] QWidget* buildHeader();
    void refreshHeader();
    void refreshContent();
    void showMore();
    void showArea();

    std::function<void()> onAnalyze;
    std::optional<PromptAnalysis> lastAnalysis;
    std::optional<QString> lastError;
    bool loading = false;
    bool promptEmpty = true;
    bool collapsed = false;

    LexiwellTitleButton* titleButton = nullptr;
    Button* analyzeButton = nullptr;
    IconButton* collapseButton = nullptr;
    QWidget* area = nullptr; ///< divider and content
    ScrollArea* scroll = nullptr;
    QPointer<LexiwellHelpPopover> popover;
};

} // namespace Quillstacks
