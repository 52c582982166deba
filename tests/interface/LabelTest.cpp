#include "interface/Label.h"

#include "Fixture.h"

#include <QAccessible>

namespace Quillstacks {
namespace {

class LabelOf : public InterfaceTest {};

TEST_F(LabelOf, itsTextIsWhatAssistiveToolsRead) {
    Label label(QStringLiteral("Prompts & tags"));
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&label);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::StaticText);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Prompts & tags"));
}

TEST_F(LabelOf, aWrappingLabelIsHigherWhereItIsNarrower) {
    Label label(QStringLiteral("Quite a few words that need some room to be shown in"));
    label.setMaximumLines(0);
    EXPECT_TRUE(label.hasHeightForWidth());
    EXPECT_GT(label.heightForWidth(80), label.heightForWidth(400));
    EXPECT_EQ(label.heightForWidth(80) % label.lineHeight(), 0);
}

TEST_F(LabelOf, whatDoesNotFitIsCut) {
    Label label(QStringLiteral("Quite a few words that need some room to be shown in"));
    label.resize(60, label.lineHeight());
    EXPECT_TRUE(label.isTruncated());
    label.resize(label.sizeHint());
    EXPECT_FALSE(label.isTruncated());
}

TEST_F(LabelOf, itPaintsInTheColorOfItsRole) {
    Label label(QStringLiteral("████"), TextStyle::body, ColorRole::red);
    label.resize(label.sizeHint());
    const QImage image = label.grab().toImage();
    EXPECT_EQ(image.pixelColor(image.width() / 2, image.height() / 2), Theme::shared().color(ColorRole::red));
}

TEST_F(LabelOf, selectableTextCanBeSelected) {
    Label label(QStringLiteral("selectable"));
    label.setSelectable(true);
    label.setSelection(0, 6);
    EXPECT_EQ(label.selectedText(), QStringLiteral("select"));
}

} // namespace
} // namespace Quillstacks
