#include "FlexibleColorGrid.h"

#include "ColorSwatch.h"
#include "interface/FocusRing.h"
#include "library/LibraryFixture.h"
#include "TagPalette.h"

namespace Quillstacks {
namespace {

class FlexibleColorGridTest : public LibraryFixture {
protected:
    FlexibleColorGridTest() {
        show(window, QSize(400, 200));
        grid.setGeometry(20, 20, 340, grid.sizeHint().height());
        grid.show();
        QObject::connect(&grid, &FlexibleColorGrid::selectionChanged, &window,
                         [this](const QString& color) { chosen += color; });
    }
    ColorSwatch& swatch(int index) { return *grid.findChildren<ColorSwatch*>().at(index); }
    /// The swatches that are ringed.
    QStringList ringed() {
        QStringList all;
        for (const ColorSwatch* each : grid.findChildren<ColorSwatch*>())
            if (each->isChecked())
                all += each->colorHex();
        return all;
    }
    /// The colour in the middle of a swatch's ring, at its top.
    QColor ringColor(int index) {
        QImage picture(26, 26, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        swatch(index).render(&picture, {}, {}, QWidget::DrawChildren);
        return picture.pixelColor(13, 0);
    }

    QWidget window;
    FlexibleColorGrid grid{TagPalette::colors(), &window};
    QStringList chosen;
};

} // namespace

TEST_F(FlexibleColorGridTest, sharesTheWidthAmongEightColumnsTenApart) {
    // (340 - 7 * 10) / 8 = 33.75 to a column; a swatch of 26 stands in its middle.
    for (int i = 0; i < 16; ++i) {
        const double center = (i % 8) * 43.75 + 16.875;
        EXPECT_NEAR(swatch(i).x() + 13, center, 0.5) << i;
        EXPECT_EQ(swatch(i).y(), i / 8 * 38);
    }
}

TEST_F(FlexibleColorGridTest, aSwatchIsACircleOfTwentyInItsColour) {
    const QImage picture = swatch(3).grab().toImage();
    EXPECT_EQ(picture.pixelColor(13, 13).name(), QStringLiteral("#ff6b6b"));
    EXPECT_EQ(picture.pixelColor(13, 4).name(), QStringLiteral("#ff6b6b"));
    EXPECT_NE(picture.pixelColor(13, 2).name(), QStringLiteral("#ff6b6b"));
    EXPECT_NE(picture.pixelColor(4, 4).name(), QStringLiteral("#ff6b6b"));
}

TEST_F(FlexibleColorGridTest, theChosenSwatchHasARingOfThePrimaryColour) {
    grid.setSelection(QStringLiteral("2BB673"));
    EXPECT_EQ(ringed(), QStringList{QStringLiteral("2BB673")});
    EXPECT_NEAR(ringColor(2).alphaF(), 0.6, 0.06);
    EXPECT_EQ(ringColor(1).alpha(), 0);
}

TEST_F(FlexibleColorGridTest, aClickChooses) {
    QTest::mouseClick(&swatch(9), Qt::LeftButton);
    EXPECT_EQ(chosen, QStringList{QStringLiteral("E71D36")});
    EXPECT_EQ(grid.selection(), QStringLiteral("E71D36"));
    EXPECT_EQ(ringed(), chosen);
    // A second one leaves it.
    QTest::mouseClick(&swatch(9), Qt::LeftButton);
    EXPECT_EQ(ringed(), QStringList{QStringLiteral("E71D36")});
}

TEST_F(FlexibleColorGridTest, aColourThatIsNotOfferedRingsNone) {
    grid.setSelection(QStringLiteral("123456"));
    EXPECT_EQ(grid.selection(), QStringLiteral("123456"));
    EXPECT_TRUE(ringed().isEmpty());
    EXPECT_TRUE(chosen.isEmpty());
}

TEST_F(FlexibleColorGridTest, theArrowKeysMoveWithinAndStopAtTheEnds) {
    grid.setSelection(QStringLiteral("7C5CFC"));
    swatch(0).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&window, Qt::Key_Left);
    QTest::keyClick(&window, Qt::Key_Up);
    EXPECT_TRUE(chosen.isEmpty());
    QTest::keyClick(&swatch(0), Qt::Key_Right);
    EXPECT_EQ(grid.selection(), QStringLiteral("F6C549"));
    EXPECT_TRUE(swatch(1).hasFocus());
    EXPECT_TRUE(FocusRing::isShownFor(&swatch(1)));
    QTest::keyClick(&swatch(1), Qt::Key_Down);
    EXPECT_EQ(grid.selection(), QStringLiteral("E71D36"));
    QTest::keyClick(&swatch(9), Qt::Key_Down);
    EXPECT_EQ(grid.selection(), QStringLiteral("E71D36"));
}

TEST_F(FlexibleColorGridTest, isOneStopOfTheTabKey) {
    const auto stops = [&] {
        QList<int> found;
        for (int i = 0; i < 16; ++i)
            if (swatch(i).focusPolicy() & Qt::TabFocus)
                found += i;
        return found;
    };
    EXPECT_EQ(stops(), QList<int>{0});
    grid.setSelection(QStringLiteral("00F5D4"));
    EXPECT_EQ(stops(), QList<int>{13});
}

} // namespace Quillstacks
