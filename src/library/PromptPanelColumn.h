#pragma once

#include "interface/Transition.h"
#include "PanelHeights.h"

#include <QWidget>

namespace Quillstacks {

class Card;

/// The column beside the prompt editor's body: the variables above, the analysis below where there is one, each in a
/// frame. A panel that is folded or unfolded gets its new height within 200 ms.
class PromptPanelColumn final : public QWidget {
    Q_OBJECT
public:
    explicit PromptPanelColumn(QWidget* parent = nullptr);

    /// Takes ownership. The own height of a collapsed panel is that of its size hint.
    void setVariablesPanel(QWidget* panel);
    /// The same; nullptr takes the panel away.
    void setAnalysisPanel(QWidget* panel);
    void setVariablesCollapsed(bool collapsed);
    void setLexiwellCollapsed(bool collapsed);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void setPanel(Card*& frame, QWidget* panel);
    void foldTo(const PanelState& wanted);
    void place();
    [[nodiscard]] PanelHeights goal() const;

    PanelState state{false, false, false};
    Card* variables = nullptr;
    Card* analysis = nullptr;
    PanelHeights current; ///< as the frames stand now
    PanelHeights start;   ///< as they stood when the fold began
    Transition fold;
};

} // namespace Quillstacks
