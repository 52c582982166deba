#include "PanelHeights.h"

#include <algorithm>

namespace Quillstacks {

PanelHeights panelHeights(const PanelState& state, int column, int gap, PanelHeights own) {
    if (!state.lexiwellEnabled)
        return {0, state.isVariablesCollapsed ? own.variables : std::max(0, column)};
    if (state.isLexiwellCollapsed && state.isVariablesCollapsed)
        return own;
    const int room = std::max(0, column - gap);
    if (state.isLexiwellCollapsed)
        return {own.analysis, std::max(0, room - own.analysis)};
    if (state.isVariablesCollapsed)
        return {std::max(0, room - own.variables), own.variables};
    const int analysis = (room * 7 + 5) / 10;
    return {analysis, room - analysis};
}

} // namespace Quillstacks
