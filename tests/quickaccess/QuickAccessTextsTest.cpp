// The texts, symbols and sizes of the screen.
#include "QuickAccessFixture.h"

#include "interface/IconButton.h"
#include "interface/KeyCap.h"
#include "interface/Label.h"
#include "quickaccess/FillVariablesToggle.h"
#include "support/ShownSymbol.h"

#include <QAccessible>
#include <QLayout>

#include <algorithm>

namespace Quillstacks {
namespace {

class QuickAccessTexts : public QuickAccessFixture {
protected:
    [[nodiscard]] QWidget* footer() const { return view->toggle()->parentWidget(); }
    [[nodiscard]] int left(const QWidget* widget) const { return widget->mapTo(view, QPoint()).x(); }
    QColor color(ColorRole role) { return Theme::shared().color(role); }
};

TEST_F(QuickAccessTexts, theFootersHintsStandInTheirOrderWithTheToggleBeforeTheLast) {
    show();
    QList<QWidget*> parts;
    for (auto* cap : footer()->findChildren<KeyCap*>())
        parts << cap;
    for (auto* label : footer()->findChildren<Label*>())
        parts << label;
    parts << view->toggle();
    std::sort(parts.begin(), parts.end(), [&](QWidget* a, QWidget* b) { return left(a) < left(b); });
    QStringList texts;
    for (const QWidget* part : parts) {
        const auto* label = qobject_cast<const Label*>(part);
        texts << (label ? label->text() : part->accessibleName());
    }
    EXPECT_EQ(texts, (QStringList{QStringLiteral("Return"), QStringLiteral("to copy"), QStringLiteral("Up Down"),
                                  QStringLiteral("to navigate"), QStringLiteral("Fill variables"),
                                  QStringLiteral("esc"), QStringLiteral("to close")}));
}

TEST_F(QuickAccessTexts, theFooterIsPadded16AcrossAnd10DownWith16Between) {
    show();
    EXPECT_EQ(footer()->layout()->contentsMargins(), QMargins(16, 10, 16, 10));
    EXPECT_EQ(footer()->layout()->spacing(), 16);
}

TEST_F(QuickAccessTexts, theToggleIsPadded8AcrossAnd4DownAndFollowsTheFonts) {
    show();
    const QFont font = textFont(TextStyle::caption);
    const int label =
        static_cast<int>(std::ceil(QFontMetricsF(font).horizontalAdvance(QStringLiteral("Fill variables"))));
    EXPECT_EQ(view->toggle()->sizeHint(), QSize(8 + 15 + 6 + label + 8, 4 + textLineHeight(TextStyle::caption) + 4));
    EXPECT_EQ(view->toggle()->objectName(), QStringLiteral("FillVariablesToggle"));
}

TEST_F(QuickAccessTexts, theSearchRowHasItsSymbolItsFieldAndItsButton12Apart) {
    show();
    QuickAccessSearchRow* row = view->searchRow();
    EXPECT_EQ(field()->placeholderText(), QStringLiteral("Search prompts..."));
    EXPECT_EQ(row->clearButton()->symbol(), QStringLiteral("xmark.circle.fill"));
    EXPECT_EQ(row->height(), 16 + textLineHeight(TextStyle::title) + 16);
    EXPECT_TRUE(showsSymbol(*row, QStringLiteral("magnifyingglass"), 22, color(ColorRole::text2)));
    EXPECT_EQ(field()->x() + 2, 16 + 22 + 12); // the field has a margin of 2 itself
    EXPECT_EQ(field()->geometry().right() + 1, row->width() - 16 - 20 - 12);
}

TEST_F(QuickAccessTexts, theEmptyStateHasAMagnifyingGlassOf48) {
    show();
    EXPECT_TRUE(showsSymbol(*view->emptyState(), QStringLiteral("magnifyingglass"), 48, color(ColorRole::text3), 1.5));
}

TEST_F(QuickAccessTexts, aRowHasItsArrowAndTheSelectedOneInThePrimaryColour) {
    add(QStringLiteral("a"));
    add(QStringLiteral("b"));
    show();
    const QString arrow = QStringLiteral("arrow.right.circle.fill");
    auto* plain = view->resultList()->row(1);
    EXPECT_TRUE(showsSymbol(*plain, arrow, 22, color(ColorRole::text2)));
    EXPECT_FALSE(showsSymbol(*plain, arrow, 22, color(ColorRole::text)));
}

TEST_F(QuickAccessTexts, theHeadingOfThePinnedHasAStar) {
    addPinned(QStringLiteral("pin"));
    show();
    auto* heading = view->findChild<QWidget*>(QStringLiteral("QuickAccessSectionHeader"));
    ASSERT_TRUE(heading);
    EXPECT_EQ(heading->accessibleName(), QStringLiteral("PINNED"));
    EXPECT_TRUE(showsSymbol(*heading, QStringLiteral("star.fill"), 12, color(ColorRole::text2)));
}

TEST_F(QuickAccessTexts, assistiveToolsHearAHeadingThatCannotBePressed) {
    addPinned(QStringLiteral("pin"));
    show();
    auto* heading = view->findChild<QWidget*>(QStringLiteral("QuickAccessSectionHeader"));
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(heading);
    ASSERT_TRUE(spoken);
    EXPECT_EQ(spoken->role(), QAccessible::Heading);
    EXPECT_FALSE(spoken->state().selectable);
    EXPECT_FALSE(spoken->actionInterface() &&
                 spoken->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
}

} // namespace
} // namespace Quillstacks
