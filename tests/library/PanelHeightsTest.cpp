#include "PanelHeights.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

constexpr int gap = 16;
constexpr int column = 770;
constexpr PanelHeights own{50, 46};

PanelHeights heights(bool lexiwellEnabled, bool isLexiwellCollapsed, bool isVariablesCollapsed) {
    return panelHeights({lexiwellEnabled, isLexiwellCollapsed, isVariablesCollapsed}, column, gap, own);
}

} // namespace

TEST(PanelHeights, twoOpenPanelsShareTheColumnAt70To30) {
    EXPECT_EQ(heights(true, false, false), (PanelHeights{528, 226}));
    EXPECT_EQ(panelHeights({true, false, false}, 1016, gap, own), (PanelHeights{700, 300}));
}

TEST(PanelHeights, beneathACollapsedAnalysisTheVariablesHaveAllTheRest) {
    EXPECT_EQ(heights(true, true, false), (PanelHeights{50, column - gap - 50}));
}

TEST(PanelHeights, besideCollapsedVariablesTheAnalysisHasAllTheRest) {
    EXPECT_EQ(heights(true, false, true), (PanelHeights{column - gap - 46, 46}));
}

TEST(PanelHeights, twoCollapsedPanelsHaveTheirOwnHeights) {
    EXPECT_EQ(heights(true, true, true), own);
}

TEST(PanelHeights, withoutAnAnalysisTheVariablesHaveAllTheColumnWhateverItsFold) {
    EXPECT_EQ(heights(false, false, false), (PanelHeights{0, column}));
    EXPECT_EQ(heights(false, true, false), (PanelHeights{0, column}));
}

TEST(PanelHeights, withoutAnAnalysisCollapsedVariablesHaveTheirOwnHeightWhateverItsFold) {
    EXPECT_EQ(heights(false, false, true), (PanelHeights{0, 46}));
    EXPECT_EQ(heights(false, true, true), (PanelHeights{0, 46}));
}

TEST(PanelHeights, theSharesAndTheGapFillAnyColumn) {
    for (int height = gap; height < 400; ++height) {
        const PanelHeights shared = panelHeights({true, false, false}, height, gap, own);
        EXPECT_EQ(shared.analysis + gap + shared.variables, height);
    }
}

TEST(PanelHeights, aColumnThatIsTooLowGivesNoNegativeHeights) {
    for (const PanelState& state : {PanelState{true, false, false}, PanelState{true, true, false},
                                    PanelState{true, false, true}, PanelState{false, false, false}}) {
        for (const int height : {0, 10}) {
            const PanelHeights low = panelHeights(state, height, gap, own);
            EXPECT_GE(low.analysis, 0);
            EXPECT_GE(low.variables, 0);
        }
    }
}

} // namespace Quillstacks
