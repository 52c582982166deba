#include "variables/VariablesPreviewView.h"

#include "interface/IconButton.h"
#include "interface/Theme.h"
#include "platform/FakeDesktop.h"
#include "support/ShownSymbol.h"
#include "support/TestPreferences.h"
#include "variables/VariablesList.h"

#include <QAbstractButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

class VariablesPreview : public testing::Test {
protected:
    VariablesPreview() { FakeDesktop::fresh(); }

    TestPreferences preferences;
    VariablesPreviewView view;
    VariablesList* list = view.findChild<VariablesList*>();
    IconButton* button = view.findChild<IconButton*>();
};

TEST_F(VariablesPreview, anEmptyTextSaysThatNothingWasFoundYet) {
    EXPECT_EQ(list->lines(), QStringList{QStringLiteral("No variables detected yet.")});
    view.setText(QStringLiteral("{b} {a} {{b}}"));
    EXPECT_EQ(list->lines(), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    view.setText(QStringLiteral("nothing"));
    EXPECT_EQ(list->lines(), QStringList{QStringLiteral("No variables detected yet.")});
}

TEST_F(VariablesPreview, theButtonCollapsesAndExpands) {
    QSignalSpy told(&view, &VariablesPreviewView::collapsedChanged);
    EXPECT_EQ(button->toolTip(), QStringLiteral("Collapse Variables"));
    EXPECT_EQ(button->symbol(), QStringLiteral("chevron.up"));
    button->click();
    EXPECT_TRUE(view.isCollapsed());
    EXPECT_TRUE(list->isHidden() || !list->isVisibleTo(&view));
    EXPECT_EQ(button->toolTip(), QStringLiteral("Expand Variables"));
    EXPECT_EQ(button->symbol(), QStringLiteral("chevron.down"));
    button->click();
    EXPECT_FALSE(view.isCollapsed());
    EXPECT_EQ(told.count(), 2);
}

TEST_F(VariablesPreview, collapsedItAsksForItsHeadersHeightAndItsListStaysUntilNothingIsLeftOfItsRoom) {
    constexpr int header = 44;
    QWidget column; // a window of its own could not become as low
    auto* panel = new VariablesPreviewView(&column);
    const auto* names = panel->findChild<VariablesList*>();
    panel->setText(QStringLiteral("{a}"));
    panel->resize(300, 200);
    column.show();
    panel->setCollapsed(true);
    EXPECT_EQ(panel->sizeHint().height(), header);
    EXPECT_EQ(panel->minimumSizeHint().height(), header);
    EXPECT_TRUE(names->isVisible());
    panel->resize(300, 100);
    EXPECT_TRUE(names->isVisible());
    EXPECT_LT(panel->findChild<QAbstractButton*>()->geometry().bottom(), header);
    panel->resize(300, header);
    EXPECT_FALSE(names->isVisible());
    panel->setCollapsed(false);
    EXPECT_TRUE(names->isVisible());
    EXPECT_GT(panel->sizeHint().height(), header);
}

TEST_F(VariablesPreview, whatIsTypedWhileCollapsedShowsOnceItIsExpanded) {
    view.setCollapsed(true);
    view.setText(QStringLiteral("{late}"));
    view.setCollapsed(false);
    EXPECT_EQ(list->variables(), QStringList{QStringLiteral("late")});
}

TEST_F(VariablesPreview, everyRowHasTheSameHeight) {
    list->setVariables({QStringLiteral("a")});
    const int one = list->sizeHint().height();
    list->setVariables({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    EXPECT_EQ(list->sizeHint().height(), 3 * one);
}

TEST_F(VariablesPreview, eachNameStands8BehindADotOf6) {
    list->setVariables({QStringLiteral("H")});
    list->resize(100, list->sizeHint().height());
    EXPECT_TRUE(showsSymbol(*list, QStringLiteral("circle.fill"), 6, Theme::shared().color(ColorRole::accent)));
    QImage picture(list->size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    list->render(&picture, {}, {}, QWidget::DrawChildren);
    const auto isBare = [&picture](int column) {
        for (int y = 0; y < picture.height(); ++y)
            if (qAlpha(picture.pixel(column, y)) != 0)
                return false;
        return true;
    };
    EXPECT_FALSE(isBare(0));
    EXPECT_FALSE(isBare(5));
    for (int column = 6; column < 14; ++column)
        EXPECT_TRUE(isBare(column)) << column;
    EXPECT_FALSE(isBare(14) && isBare(15) && isBare(16)) << "the letter brings a little room of its own";
}

TEST_F(VariablesPreview, theListStandsAtTheTopLeftWith12AroundIt) {
    view.setText(QStringLiteral("{a}"));
    view.resize(300, 400);
    std::ignore = view.grab(); // lays it out
    constexpr int header = 44;
    EXPECT_EQ(list->mapTo(&view, QPoint()), QPoint(12, header + 12));
    EXPECT_EQ(list->width(), 300 - 2 * 12);
}

TEST_F(VariablesPreview, assistiveToolsHearTheNames) {
    view.setText(QStringLiteral("{x} {y}"));
    EXPECT_EQ(list->accessibleName(), QStringLiteral("x, y"));
}

} // namespace
} // namespace Quillstacks
