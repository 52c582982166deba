#include "analysis/AnalysisPreferences.h"
#include "interface/IconButton.h"
#include "PromptEditorFixture.h"
#include "PromptPanelColumn.h"
#include "PromptTextEditor.h"
#include "variables/VariablePreferences.h"
#include "variables/VariablesPreviewView.h"

namespace Quillstacks {
namespace {

VariablesPreviewView& preview(const PromptEditorView& view) {
    return *view.findChild<VariablesPreviewView*>();
}

QRect within(const PromptEditorView& view, const QWidget& part) {
    return {part.mapTo(&view, QPoint()), part.size()};
}

} // namespace

TEST_F(PromptEditor, theVariablesOfTheBodyAreListedWhileItIsTyped) {
    PromptEditorView& view = present(addPrompt(QStringLiteral("t"), QStringLiteral("{tone}")));
    EXPECT_EQ(preview(view).text(), QStringLiteral("{tone}"));
    bodyField(view).setFocus();
    bodyField(view).moveCursor(QTextCursor::End);
    QTest::keyClicks(&bodyField(view), QStringLiteral(" {a}"));
    EXPECT_EQ(preview(view).text(), view.editorBody());
    EXPECT_EQ(view.editorBody(), QStringLiteral("{tone} {a}"));
    view.setEditorBody(QString());
    EXPECT_EQ(preview(view).text(), QString());
}

TEST_F(PromptEditor, theVariablesPanelIsThereWhateverSubstitutionSays) {
    enableVariableSubstitutionPreference().set(false);
    EXPECT_TRUE(preview(present()).isVisible());
}

TEST_F(PromptEditor, withoutTheAnalysisTheVariablesPanelFillsTheColumnAndFoldsToItsHeader) {
    lexiwellEnabledPreference().set(false);
    PromptEditorView& view = present();
    const auto* column = view.findChild<PromptPanelColumn*>();
    const QWidget* frame = preview(view).parentWidget();
    EXPECT_EQ(frame->size(), column->size());
    EXPECT_FALSE(view.isVariablesCollapsed());
    auto* button = named<IconButton>(view, QStringLiteral("Collapse Variables"));
    ASSERT_TRUE(button);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(view.isVariablesCollapsed());
    EXPECT_TRUE(QTest::qWaitFor([&] { return frame->height() == 46; }, 2000));
    button = named<IconButton>(view, QStringLiteral("Expand Variables"));
    ASSERT_TRUE(button);
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_FALSE(view.isVariablesCollapsed());
    EXPECT_TRUE(QTest::qWaitFor([&] { return frame->size() == column->size(); }, 2000));
    view.setVariablesCollapsed(true);
    EXPECT_TRUE(preview(view).isCollapsed());
    EXPECT_TRUE(QTest::qWaitFor([&] { return frame->height() == 46; }, 2000));
}

TEST_F(PromptEditor, thePanelsStandRightOfTheBodyAndKeepTheirIdealWidth) {
    const PromptEditorView& view = present();
    window.resize(1440, 900);
    QCoreApplication::processEvents();
    const QRect body = within(view, *view.findChild<PromptTextEditor*>());
    const QRect panels = within(view, *view.findChild<PromptPanelColumn*>());
    EXPECT_EQ(panels.width(), 450);
    EXPECT_EQ(panels.right(), view.width() - 24 - 1);
    EXPECT_EQ(panels.left(), body.right() + 1 + 20);
    EXPECT_EQ(panels.bottom(), body.bottom());
    EXPECT_GE(body.width(), 600);
}

TEST_F(PromptEditor, inANarrowWindowTheColumnsGiveWayToTheirSmallestWidthsAndThenTheSheetScrolls) {
    const PromptEditorView& view = present();
    for (const int width : {1000, 768, 500}) {
        window.resize(width, 400);
        QCoreApplication::processEvents();
        EXPECT_GE(view.findChild<PromptTextEditor*>()->width(), 400);
        EXPECT_GE(view.findChild<PromptTextEditor*>()->height(), 360);
        EXPECT_GE(view.findChild<PromptPanelColumn*>()->width(), 300);
        EXPECT_GE(view.width(), 768);
        EXPECT_LE(Sheet::of(&view)->cardGeometry().width(), width);
    }
}

} // namespace Quillstacks
