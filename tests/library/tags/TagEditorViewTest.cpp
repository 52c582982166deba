#include "FlexibleColorGrid.h"
#include "interface/Divider.h"
#include "interface/Label.h"
#include "TagEditorFixture.h"
#include "TagPalette.h"

namespace Quillstacks {
namespace {

class TagEditorViewTest : public TagEditorFixture {};

QRect placeIn(const QWidget& within, const QWidget& widget) {
    return {widget.mapTo(&within, QPoint(0, 0)), widget.size()};
}

} // namespace

TEST_F(TagEditorViewTest, beginsEmptyInTheFirstColourWithTheNameUnderTheKeyboard) {
    open();
    EXPECT_EQ(view->name(), QString());
    EXPECT_EQ(view->colorHex(), QStringLiteral("7C5CFC"));
    EXPECT_FALSE(view->editingTag());
    EXPECT_EQ(ringed(), QStringList{QStringLiteral("7C5CFC")});
    EXPECT_EQ(QApplication::focusWidget(), &field());
    EXPECT_EQ(field().placeholderText(), QStringLiteral("Tag name"));
    EXPECT_TRUE(visibleButton(*view, QStringLiteral("Create")));
    EXPECT_FALSE(visibleButton(*view, QStringLiteral("Save")));
    EXPECT_TRUE(visibleButton(*view, QStringLiteral("Cancel")));
}

TEST_F(TagEditorViewTest, takesNameAndColourFromTheTagThatItEdits) {
    Tag* tag = library.addTag(QStringLiteral("Work"), QStringLiteral("FF8E3C"));
    open(tag);
    EXPECT_EQ(view->editingTag(), tag);
    EXPECT_EQ(view->name(), QStringLiteral("Work"));
    EXPECT_EQ(field().text(), QStringLiteral("Work"));
    EXPECT_EQ(ringed(), QStringList{QStringLiteral("FF8E3C")});
    EXPECT_EQ(view->findChild<ColorDot*>()->color().name(), QStringLiteral("#ff8e3c"));
    EXPECT_TRUE(visibleButton(*view, QStringLiteral("Save")));
    EXPECT_FALSE(visibleButton(*view, QStringLiteral("Create")));
    EXPECT_TRUE(button("Save").isEnabled());
}

TEST_F(TagEditorViewTest, aNameOfOnlySpacesKeepsCreateDisabled) {
    open();
    EXPECT_FALSE(button("Create").isEnabled());
    type("   ");
    EXPECT_FALSE(button("Create").isEnabled());
    press(Qt::Key_Return);
    EXPECT_FALSE(sheet->isDismissed());
    EXPECT_TRUE(tagNames().isEmpty());
    type("a");
    EXPECT_TRUE(button("Create").isEnabled());
    view->setName(QStringLiteral(" \n\t"));
    EXPECT_FALSE(button("Create").isEnabled());
    view->saveTag();
    EXPECT_FALSE(sheet->isDismissed());
    EXPECT_TRUE(tagNames().isEmpty());
}

TEST_F(TagEditorViewTest, aSwatchColoursTheDotBesideTheName) {
    open();
    QTest::mouseClick(&swatch("2EC4B6"), Qt::LeftButton);
    EXPECT_EQ(view->colorHex(), QStringLiteral("2EC4B6"));
    EXPECT_EQ(ringed(), QStringList{QStringLiteral("2EC4B6")});
    EXPECT_EQ(view->findChild<ColorDot*>()->color().name(), QStringLiteral("#2ec4b6"));
}

TEST_F(TagEditorViewTest, aColourOutsideThePaletteRingsNoSwatchUntilOneIsTapped) {
    open(library.addTag(QStringLiteral("Imported"), QStringLiteral("#123456")));
    EXPECT_TRUE(ringed().isEmpty());
    EXPECT_EQ(view->colorHex(), QStringLiteral("#123456"));
    EXPECT_EQ(view->findChild<ColorDot*>()->color().name(), QStringLiteral("#123456"));
    QTest::mouseClick(&swatch("E36414"), Qt::LeftButton);
    EXPECT_EQ(view->colorHex(), QStringLiteral("E36414"));
    EXPECT_EQ(ringed(), QStringList{QStringLiteral("E36414")});
}

TEST_F(TagEditorViewTest, escapeDoesNothing) {
    open();
    type("Work");
    press(Qt::Key_Escape);
    EXPECT_FALSE(sheet->isDismissed());
    EXPECT_EQ(view->name(), QStringLiteral("Work"));
}

TEST_F(TagEditorViewTest, cancelClosesAndWritesNothing) {
    Tag* tag = library.addTag(QStringLiteral("Work"), QStringLiteral("FF8E3C"));
    open(tag);
    type("x");
    QTest::mouseClick(&swatch("6D6D6D"), Qt::LeftButton);
    QTest::mouseClick(&button("Cancel"), Qt::LeftButton);
    EXPECT_TRUE(sheet->isDismissed());
    EXPECT_EQ(tag->name(), QStringLiteral("Work"));
    EXPECT_EQ(tag->colorHex(), QStringLiteral("FF8E3C"));
}

TEST_F(TagEditorViewTest, holdsUnsavedTypingWhileTheNameDiffersFromTheTags) {
    open();
    EXPECT_FALSE(view->holdsUnsavedTyping());
    type("a");
    EXPECT_TRUE(view->holdsUnsavedTyping());
    view->cancel();
    open(library.addTag(QStringLiteral("Work")));
    EXPECT_FALSE(view->holdsUnsavedTyping());
    type("s");
    EXPECT_TRUE(view->holdsUnsavedTyping());
    press(Qt::Key_Backspace);
    EXPECT_FALSE(view->holdsUnsavedTyping());
}

TEST_F(TagEditorViewTest, theTabKeyGoesFromTheNameOverTheColoursToTheButtons) {
    open();
    type("a");
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &swatch("7C5CFC"));
    press(Qt::Key_Right);
    EXPECT_EQ(view->colorHex(), QStringLiteral("F6C549"));
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &button("Cancel"));
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &button("Create"));
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &field());
}

TEST_F(TagEditorViewTest, standsInItsPaddingOfSixteenAtAWidthOfThreeHundredAndSixty) {
    open();
    EXPECT_EQ(sheet->cardGeometry().width(), 360);
    EXPECT_EQ(placeIn(*view, *view->findChild<ColorDot*>()).topLeft().x(), 16);
    EXPECT_EQ(view->findChild<ColorDot*>()->size(), QSize(20, 20));
    // 6 within the field, of which the toolkit's field keeps 2 itself.
    EXPECT_EQ(placeIn(*view, field()).left(), 16 + 20 + 10 + 6 - 2);
    EXPECT_EQ(placeIn(*view, field()).top(), 16 + 6);
    EXPECT_EQ(field().font().pixelSize(), textFont(TextStyle::title3).pixelSize());
    const QRect line = placeIn(*view, *view->findChild<Divider*>());
    EXPECT_EQ(line.left(), 0);
    EXPECT_EQ(line.width(), 360);
    EXPECT_EQ(placeIn(*view, button("Create")).right(), 360 - 16 - 1);
    EXPECT_EQ(placeIn(*view, button("Create")).bottom(), view->height() - 16 - 1);
    EXPECT_EQ(placeIn(*view, button("Create")).left() - placeIn(*view, button("Cancel")).right() - 1, 10);
    EXPECT_EQ(view->findChild<FlexibleColorGrid*>()->colors(), TagPalette::colors());
    EXPECT_EQ(view->findChild<Label*>()->text(), QStringLiteral("Color"));
}

} // namespace Quillstacks
