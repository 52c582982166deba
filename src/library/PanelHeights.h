#pragma once

namespace Quillstacks {

/// How the two panels beside the prompt editor stand.
struct PanelState {
    bool lexiwellEnabled = true; ///< whether the analysis panel is there at all
    bool isLexiwellCollapsed = false;
    bool isVariablesCollapsed = false;
};

/// Heights in logical pixels.
struct PanelHeights {
    int analysis = 0; ///< 0 while the panel is absent
    int variables = 0;

    bool operator==(const PanelHeights&) const = default;
};

/// How the panels share a column with a gap between two of them. A collapsed panel has its `own` height, an open one
/// all the rest; two open ones share at 70 to 30. Never negative.
[[nodiscard]] PanelHeights panelHeights(const PanelState& state, int column, int gap, PanelHeights own);

} // namespace Quillstacks
