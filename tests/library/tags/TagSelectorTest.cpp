#include "TagSelector.h"

#include "interface/Chip.h"
#include "interface/ColorFromHex.h"
#include "interface/FocusRing.h"
#include "library/LibraryFixture.h"

#include <QScrollBar>
#include <QWheelEvent>

namespace Quillstacks {
namespace {

class TagSelectorTest : public LibraryFixture {
protected:
    void open(int count) {
        for (int i = 0; i < count; ++i)
            tags += library.addTag(QStringLiteral("Tag number ") + QString::number(i));
        selector.setTags(tags);
        selector.setGeometry(50, 50, 300, selector.sizeHint().height());
        show(window, QSize(400, 200));
    }
    Chip& chip(int index) { return *named<Chip>(selector, tags[index]->name()); }
    bool isInSight(int index) { return selector.rect().contains(chip(index).geometry()); }
    void wheel(QPoint angle) {
        const QPointF at(10, 10);
        QWheelEvent event(at, selector.mapToGlobal(at), {}, angle, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&selector, &event);
    }

    QWidget window;
    QList<Tag*> tags;
    TagSelector selector{&window};
};

} // namespace

TEST_F(TagSelectorTest, chipsStandSixApartInTheGivenOrder) {
    open(4);
    EXPECT_EQ(chip(0).pos(), QPoint(0, 0));
    for (int i = 1; i < 4; ++i)
        EXPECT_EQ(chip(i).x(), chip(i - 1).geometry().right() + 1 + 6);
}

TEST_F(TagSelectorTest, aTickedChipHasADarkerGroundAndABorder) {
    open(1);
    const auto pictured = [this] {
        QImage picture(chip(0).size(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        chip(0).render(&picture, {}, {}, QWidget::DrawChildren);
        return picture;
    };
    const int middle = chip(0).height() / 2;
    const int across = chip(0).width() / 2;
    const QImage plain = pictured();
    EXPECT_NEAR(plain.pixelColor(5, middle).alphaF(), 0.06, 0.01);
    EXPECT_NEAR(plain.pixelColor(across, 0).alphaF(), 0.06, 0.01);
    EXPECT_EQ(plain.pixelColor(0, 0).alpha(), 0) << "the corner is round";
    // 10 of padding within the border, then the dot of 6.
    EXPECT_EQ(plain.pixelColor(1 + 10 + 3, middle), colorFromHex(tags[0]->colorHex()));
    selector.setSelection({tags[0]});
    const QImage ticked = pictured();
    EXPECT_NEAR(ticked.pixelColor(5, middle).alphaF(), 0.12, 0.01);
    EXPECT_NEAR(ticked.pixelColor(across, 0).alphaF(), 1 - (1 - 0.12) * (1 - 0.18), 0.02);
}

TEST_F(TagSelectorTest, theWheelScrollsSidewaysAndStopsAtTheEnds) {
    open(12);
    wheel({0, -120});
    EXPECT_EQ(selector.offset(), 60);
    EXPECT_EQ(chip(0).x(), -60);
    wheel({0, -12000});
    EXPECT_EQ(chip(11).geometry().right() + 1, selector.width());
    wheel({12000, 0});
    EXPECT_EQ(selector.offset(), 0);
}

TEST_F(TagSelectorTest, aRowThatFitsLeavesTheWheelToItsSurroundings) {
    open(1);
    const QPointF at(10, 10);
    QWheelEvent event(at, selector.mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    event.accept();
    static_cast<QObject&>(selector).event(&event);
    EXPECT_FALSE(event.isAccepted());
    EXPECT_EQ(selector.offset(), 0);
}

TEST_F(TagSelectorTest, showsNoScrollIndicators) {
    open(12);
    EXPECT_TRUE(selector.findChildren<QScrollBar*>().isEmpty());
}

TEST_F(TagSelectorTest, theArrowKeysMoveTheKeyboardAndBringTheChipIntoSight) {
    open(12);
    chip(0).setFocus(Qt::TabFocusReason);
    for (int i = 1; i < 12; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        EXPECT_TRUE(chip(i).hasFocus());
        EXPECT_TRUE(isInSight(i)) << i;
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_TRUE(chip(11).hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
    EXPECT_TRUE(chip(0).hasFocus());
    EXPECT_TRUE(isInSight(0));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
    EXPECT_TRUE(chip(11).hasFocus());
    EXPECT_TRUE(isInSight(11));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    EXPECT_TRUE(chip(10).hasFocus());
}

TEST_F(TagSelectorTest, theSpaceBarTicks) {
    open(3);
    QList<Tag*> clicked;
    QObject::connect(&selector, &TagSelector::tagClicked, &window, [&](Tag* tag) { clicked += tag; });
    chip(1).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&chip(1), Qt::Key_Space);
    EXPECT_EQ(clicked, QList<Tag*>{tags[1]});
}

TEST_F(TagSelectorTest, isOneStopOfTheTabKeyWhereTheKeyboardLastWas) {
    open(5);
    const auto stops = [&] {
        QList<int> found;
        for (int i = 0; i < 5; ++i)
            if (chip(i).focusPolicy() & Qt::TabFocus)
                found += i;
        return found;
    };
    EXPECT_EQ(stops(), QList<int>{0});
    chip(0).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&chip(0), Qt::Key_Right);
    QTest::keyClick(&chip(1), Qt::Key_Right);
    EXPECT_EQ(stops(), QList<int>{2});
}

TEST_F(TagSelectorTest, aRingDoesNotLeaveTheRowWhenItsChipIsScrolledAway) {
    open(12);
    chip(0).clearFocus(); // the window gave it the keyboard
    chip(0).setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(FocusRing::isShownFor(&chip(0)));
    wheel({0, -1200});
    EXPECT_FALSE(isInSight(0));
    EXPECT_TRUE(chip(0).hasFocus());
    EXPECT_FALSE(FocusRing::isShownFor(&chip(0)));
}

TEST_F(TagSelectorTest, aTagThatGoesHandsTheKeyboardOn) {
    open(3);
    chip(1).setFocus(Qt::TabFocusReason);
    Tag* gone = tags.takeAt(1);
    Q_UNUSED(gone)
    selector.setTags(tags);
    EXPECT_TRUE(chip(0).hasFocus());
}

TEST_F(TagSelectorTest, anAmpersandInANameIsNoShortcut) {
    tags += library.addTag(QStringLiteral("R&D"));
    open(0);
    EXPECT_EQ(chip(0).text(), QStringLiteral("R&D"));
    EXPECT_TRUE(chip(0).shortcut().isEmpty());
}

} // namespace Quillstacks
