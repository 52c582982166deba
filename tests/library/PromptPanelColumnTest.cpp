#include "PromptPanelColumn.h"

#include "interface/Card.h"
#include "interface/Theme.h"
#include "LibraryFixture.h"

namespace Quillstacks {
namespace {

/// A panel with a height of its own.
class Panel final : public QWidget {
public:
    explicit Panel(int height) : own(height) {}
    [[nodiscard]] QSize sizeHint() const override { return {100, own}; }
    void setOwnHeight(int height) {
        own = height;
        updateGeometry();
    }

private:
    int own;
};

constexpr int frameEdges = 2;

class PanelColumn : public LibraryFixture {
protected:
    PanelColumn() {
        column.resize(450, 770);
        column.setVariablesPanel(variables);
    }
    void addAnalysis() {
        analysis = new Panel(50);
        column.setAnalysisPanel(analysis);
    }
    /// The frame's place in the column.
    [[nodiscard]] static QRect place(const Panel* panel) { return panel->parentWidget()->geometry(); }

    PromptPanelColumn column;
    Panel* variables = new Panel(44);
    Panel* analysis = nullptr;
};

} // namespace

TEST_F(PanelColumn, withoutAnAnalysisTheVariablesTakeAllOrTheirOwnHeight) {
    EXPECT_EQ(place(variables), QRect(0, 0, 450, 770));
    column.setVariablesCollapsed(true);
    EXPECT_EQ(place(variables), QRect(0, 0, 450, 44 + frameEdges));
    column.setVariablesCollapsed(false);
    EXPECT_EQ(place(variables), QRect(0, 0, 450, 770));
}

TEST_F(PanelColumn, anAnalysisStands16BeneathTheVariablesAndGoesAgain) {
    addAnalysis();
    EXPECT_EQ(place(variables), QRect(0, 0, 450, 226));
    EXPECT_EQ(place(analysis), QRect(0, 242, 450, 528));
    column.setAnalysisPanel(nullptr);
    EXPECT_EQ(place(variables).height(), 770);
    EXPECT_EQ(column.findChildren<Card*>().size(), 1);
}

TEST_F(PanelColumn, aCollapsedPanelLeavesItsRoomToTheOther) {
    addAnalysis();
    column.setLexiwellCollapsed(true);
    EXPECT_EQ(place(analysis).height(), 50 + frameEdges);
    EXPECT_EQ(place(analysis).bottom(), 769);
    EXPECT_EQ(place(variables).height(), 770 - 16 - 52);
    column.setVariablesCollapsed(true);
    EXPECT_EQ(place(variables).height(), 46);
    EXPECT_EQ(place(analysis), QRect(0, 46 + 16, 450, 52));
    column.setLexiwellCollapsed(false);
    EXPECT_EQ(place(analysis).bottom(), 769);
}

TEST_F(PanelColumn, followsItsSizeAndItsPanelsOwnHeights) {
    show(column, QSize(500, 600));
    EXPECT_EQ(place(variables), QRect(0, 0, 500, 600));
    column.resize(400, 500);
    EXPECT_EQ(place(variables), QRect(0, 0, 400, 500));
    column.setVariablesCollapsed(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return place(variables).height() == 46; }, 2000));
    variables->setOwnHeight(70);
    EXPECT_TRUE(QTest::qWaitFor([&] { return place(variables).height() == 72; }, 2000));
}

TEST_F(PanelColumn, aFoldThatIsSeenTakesItsTimeAndCanBeTurnedRound) {
    show(column, QSize(450, 770));
    column.setVariablesCollapsed(true);
    EXPECT_EQ(place(variables).height(), 770);
    EXPECT_TRUE(QTest::qWaitFor([&] { return place(variables).height() < 700; }, 2000));
    const int midway = place(variables).height();
    column.setVariablesCollapsed(false);
    EXPECT_EQ(place(variables).height(), midway);
    EXPECT_TRUE(QTest::qWaitFor([&] { return place(variables).height() == 770; }, 2000));
}

TEST_F(PanelColumn, withReducedMotionAFoldIsDoneAtOnce) {
    FakeDesktop::shared().setReducedMotion(true);
    show(column, QSize(450, 770));
    column.setVariablesCollapsed(true);
    EXPECT_EQ(place(variables).height(), 46);
}

TEST_F(PanelColumn, isAtLeast300WideAndIdeally450) {
    EXPECT_EQ(column.minimumSizeHint().width(), 300);
    EXPECT_EQ(column.sizeHint().width(), 450);
    EXPECT_EQ(column.maximumWidth(), QWIDGETSIZE_MAX);
}

} // namespace Quillstacks
