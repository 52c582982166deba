#include "interface/LazyList.h"

#include "Fixture.h"

#include <QAccessible>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QSignalSpy>

namespace Quillstacks {
namespace {

/// Rows of 40 and, every tenth, of 100, which are of a kind of their own.
class LazyListOf : public InterfaceTest {
protected:
    LazyListOf() {
        list.setSource({[this] { return rows; },
                        [](int index, int) { return heightOf(index); },
                        [this](int kind, QWidget* parent) {
                            ++made;
                            auto* row = new QWidget(parent);
                            row->setProperty("kind", kind);
                            return row;
                        },
                        [this](QWidget* row, int index) {
                            ++bound;
                            row->setAccessibleName(QStringLiteral("Row %1").arg(index));
                        },
                        [](int index) { return index % 10 == 0 ? 1 : 0; },
                        [](QWidget* row, bool hovered) { row->setProperty("hovered", hovered); },
                        [](int index) { return index == 2; },
                        {}});
        list.resize(400, 300);
        showWindow({400, 300});
    }
    static int heightOf(int index) { return index % 10 == 0 ? 100 : 40; }
    void setRows(int count) {
        rows = count;
        list.reload();
    }

    int rows = 0;
    int made = 0;
    int bound = 0;
    LazyList list{QStringLiteral("Prompts"), &window};
};

TEST_F(LazyListOf, onlyRowsThatCanBeSeenExist) {
    setRows(100'000);
    EXPECT_LT(made, 12);
    list.scrollToCenter(50'000, false);
    list.scrollToCenter(99'999, false);
    EXPECT_LT(made, 24);
    EXPECT_EQ(list.row(0), nullptr);
    ASSERT_NE(list.row(99'999), nullptr);
    EXPECT_EQ(list.row(99'999)->accessibleName(), QStringLiteral("Row 99999"));
}

TEST_F(LazyListOf, placesAreExactWithGapAndPadding) {
    list.setGap(4);
    list.setPadding({16, 8, 16, 20});
    setRows(25);
    int top = 8;
    for (int i = 0; i < 25; ++i) {
        EXPECT_EQ(list.rowGeometry(i), QRect(16, top, 368, heightOf(i)));
        top += heightOf(i) + 4;
    }
    EXPECT_EQ(list.verticalScrollBar()->maximum(), top - 4 + 20 - 300);
}

TEST_F(LazyListOf, scrollToCenterPutsTheRowInTheMiddle) {
    setRows(1000);
    list.scrollToCenter(501, false);
    const QWidget* row = list.row(501);
    ASSERT_NE(row, nullptr);
    EXPECT_NEAR(row->geometry().center().y(), 150, 1);
    list.scrollToCenter(0, false);
    EXPECT_EQ(list.row(0)->y(), 0);
}

TEST_F(LazyListOf, theAnimatedWayEndsAtTheSamePlace) {
    setRows(1000);
    list.scrollToCenter(101, true);
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return list.row(101) && std::abs(list.row(101)->geometry().center().y() - 150) <= 1; }, 3000));
}

TEST_F(LazyListOf, ensureVisibleScrollsAsLittleAsNeeded) {
    setRows(100);
    list.ensureVisible(3);
    EXPECT_EQ(list.verticalScrollBar()->value(), 0);
    list.ensureVisible(20);
    EXPECT_EQ(list.row(20)->geometry().bottom() + 1, 300);
    list.ensureVisible(0);
    EXPECT_EQ(list.verticalScrollBar()->value(), 0);
}

TEST_F(LazyListOf, reloadKeepsThePlaceAndFollowsTheCount) {
    setRows(100);
    list.verticalScrollBar()->setValue(500);
    setRows(99);
    EXPECT_EQ(list.verticalScrollBar()->value(), 500);
    setRows(1);
    EXPECT_EQ(list.verticalScrollBar()->value(), 0);
    EXPECT_EQ(list.visibleRange(), std::pair(0, 0));
    setRows(0);
    EXPECT_EQ(list.visibleRange(), std::pair(0, -1));
    EXPECT_EQ(list.row(0), nullptr);
}

TEST_F(LazyListOf, rowsAreUsedAgainForTheirKindOnly) {
    setRows(100);
    for (int value = 0; value < 3000; value += 150)
        list.verticalScrollBar()->setValue(value);
    const auto [first, last] = list.visibleRange();
    for (int i = first; i <= last; ++i)
        EXPECT_EQ(list.row(i)->property("kind").toInt(), i % 10 == 0 ? 1 : 0);
}

TEST_F(LazyListOf, aClickTellsItsRow) {
    setRows(100);
    QSignalSpy clicks(&list, &LazyList::clicked);
    QSignalSpy doubles(&list, &LazyList::doubleClicked);
    QTest::mouseClick(list.row(2), Qt::LeftButton, Qt::ControlModifier);
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks.front()[0].toInt(), 2);
    EXPECT_EQ(clicks.front()[1].value<Qt::KeyboardModifiers>(), Qt::ControlModifier);
    QTest::mouseDClick(list.row(3), Qt::LeftButton);
    ASSERT_EQ(doubles.count(), 1);
    EXPECT_EQ(doubles.front()[0].toInt(), 3);
}

TEST_F(LazyListOf, aPressThatEndsOnAnotherRowIsNoClick) {
    setRows(100);
    QSignalSpy clicks(&list, &LazyList::clicked);
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, {10, 10});
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, {10, 150});
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(LazyListOf, theListTakesTheKeyboardAndPassesKeysOn) {
    setRows(100);
    list.setFocus();
    int asked = 0;
    list.setKeyHandler([&asked](QKeyEvent*) { return ++asked == 1; });
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(list.verticalScrollBar()->value(), 0); // the handler took it
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(list.verticalScrollBar()->value(), list.verticalScrollBar()->maximum());
}

TEST_F(LazyListOf, hoverFollowsScrollingUnderAStillPointer) {
    setRows(100);
    QCursor::setPos(list.viewport()->mapToGlobal(QPoint(50, 120)));
    ASSERT_TRUE(QTest::qWaitFor([this] { return list.hoveredIndex() == 1; }, 3000));
    EXPECT_TRUE(list.row(1)->property("hovered").toBool());
    list.verticalScrollBar()->setValue(40);
    EXPECT_EQ(list.hoveredIndex(), 2);
    EXPECT_FALSE(list.row(1)->property("hovered").toBool());
}

TEST_F(LazyListOf, rowsAreListItemsToAssistiveTools) {
    setRows(100);
    QAccessibleInterface* row = QAccessible::queryAccessibleInterface(list.row(2));
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_EQ(row->text(QAccessible::Name), QStringLiteral("Row 2"));
    EXPECT_TRUE(row->state().selected);
    QSignalSpy clicks(&list, &LazyList::clicked);
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks.front()[0].toInt(), 2);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&list)->role(), QAccessible::List);
}

TEST_F(LazyListOf, aNarrowerListMeasuresAnew) {
    setRows(100);
    list.verticalScrollBar()->setValue(1000);
    const int first = list.visibleRange().first;
    list.resize(300, 300);
    EXPECT_EQ(list.visibleRange().first, first);
    EXPECT_EQ(list.rowGeometry(0).width(), 300);
}

/// Rows of 40 without gaps, each with the text of its key.
class LazyListOfKeys : public InterfaceTest {
protected:
    explicit LazyListOfKeys(int rows = 20) {
        for (int i = 0; i < rows; ++i)
            keys.append(addKey());
        LazyList::Source source;
        source.count = [this] { return static_cast<int>(keys.size()); };
        source.height = [](int, int) { return 40; };
        source.make = [](int, QWidget* parent) { return new QWidget(parent); };
        source.bind = [this](QWidget* row, int index) { row->setAccessibleName(keys.at(index)->name); };
        source.key = [this](int index) { return keys.at(index); };
        list.setSource(std::move(source));
        list.resize(400, 300);
        showWindow({400, 300});
    }
    struct Key {
        QString name;
    };
    Key* addKey() {
        made.push_back(std::make_unique<Key>(Key{QString::number(made.size())}));
        return made.back().get();
    }
    int top(int index) const { return list.row(index) ? list.row(index)->y() : -1000; }
    /// Where the rows in sight are, by their names.
    QMap<QString, int> places() const {
        QMap<QString, int> result;
        for (int index = 0; index < keys.size(); ++index)
            if (const QWidget* row = list.row(index))
                result.insert(row->accessibleName(), row->y());
        return result;
    }
    bool hasSettled() const {
        for (int index = list.visibleRange().first; index <= list.visibleRange().second; ++index)
            if (top(index) != list.rowGeometry(index).top() - list.verticalScrollBar()->value())
                return false;
        return true;
    }

    std::vector<std::unique_ptr<Key>> made;
    QList<Key*> keys;
    LazyList list{QStringLiteral("Prompts"), &window};
};

TEST_F(LazyListOfKeys, aRowThatMovesAndThoseItPassesSlideToTheirPlaces) {
    const QMap<QString, int> before = places();
    keys.move(5, 0);
    list.followChanges();
    EXPECT_EQ(list.rowGeometry(0).top(), 0);
    EXPECT_EQ(places(), before); // they set out from where they were
    EXPECT_TRUE(QTest::qWaitFor([this] { return hasSettled(); }, 3000));
    EXPECT_EQ(list.row(0)->accessibleName(), QStringLiteral("5"));
}

TEST_F(LazyListOfKeys, whereARowGoesThoseBelowCloseTheGapAndOthersSlideIntoSight) {
    keys.removeFirst();
    list.followChanges();
    EXPECT_EQ(top(0), 40);
    EXPECT_EQ(top(6), 280);
    EXPECT_EQ(list.row(7), nullptr); // still below
    EXPECT_TRUE(QTest::qWaitFor([this] { return list.row(7) != nullptr; }, 3000));
    EXPECT_TRUE(QTest::qWaitFor([this] { return hasSettled(); }, 3000));
}

TEST_F(LazyListOfKeys, whereARowComesThoseBelowMakeRoomAndOthersSlideOutOfSight) {
    keys.insert(1, addKey());
    list.followChanges();
    EXPECT_EQ(top(0), 0);
    EXPECT_EQ(top(1), 40); // the new one stands at its place
    EXPECT_EQ(top(2), 40);
    EXPECT_EQ(top(8), 280); // seen until it has gone below
    EXPECT_TRUE(QTest::qWaitFor([this] { return list.row(8) == nullptr; }, 3000));
    EXPECT_TRUE(QTest::qWaitFor([this] { return hasSettled(); }, 3000));
}

TEST_F(LazyListOfKeys, aRowFromFarAwaySetsOutJustOutOfSight) {
    for (int i = 0; i < 1000; ++i)
        keys.append(addKey());
    list.reload();
    keys.move(1000, 2);
    list.followChanges();
    EXPECT_EQ(list.row(2), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([this] { return hasSettled(); }, 3000));
}

TEST_F(LazyListOfKeys, rowsSlideFromWhereTheyAreSeenWhereverTheListIsScrolled) {
    list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum());
    const QMap<QString, int> before = places();
    keys.removeLast();
    list.followChanges(); // scrolled up by the height of the row
    QMap<QString, int> after = places();
    for (auto row = after.begin(); row != after.end(); ++row)
        EXPECT_EQ(row.value(), before.value(row.key(), -40)) << row.key().toStdString();
    EXPECT_TRUE(QTest::qWaitFor([this] { return hasSettled(); }, 3000));
}

TEST_F(LazyListOfKeys, aSecondChangeOnTheWayGoesOnFromThere) {
    keys.move(5, 0);
    list.followChanges();
    ASSERT_TRUE(QTest::qWaitFor([this] { return top(0) < 200; }, 3000));
    const QMap<QString, int> before = places();
    keys.move(0, 5);
    list.followChanges();
    EXPECT_EQ(places(), before);
    EXPECT_TRUE(QTest::qWaitFor([this] { return hasSettled(); }, 3000));
    EXPECT_EQ(list.row(5)->accessibleName(), QStringLiteral("5"));
}

TEST_F(LazyListOfKeys, aPressOnTheWayIsForTheRowThatIsSeen) {
    QSignalSpy clicks(&list, &LazyList::clicked);
    keys.move(5, 0);
    list.followChanges();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, {10, 220}); // where the row sets out
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks.front()[0].toInt(), 0);
}

TEST_F(LazyListOfKeys, manyChangesAtOnceAreShownAtOnce) {
    std::reverse(keys.begin(), keys.end());
    list.followChanges();
    EXPECT_TRUE(hasSettled());
    keys.remove(0, 15);
    list.followChanges();
    EXPECT_TRUE(hasSettled());
    keys.clear();
    list.followChanges();
    EXPECT_EQ(list.row(0), nullptr);
}

TEST_F(LazyListOfKeys, aReloadShowsChangesAtOnceAndLeavesASlideOfTheSameRowsAlone) {
    keys.move(5, 0);
    list.reload();
    EXPECT_TRUE(hasSettled());
    keys.move(5, 0);
    list.followChanges();
    list.reload();
    list.followChanges();
    EXPECT_FALSE(hasSettled());
    keys.move(5, 0);
    list.reload();
    EXPECT_TRUE(hasSettled());
}

TEST_F(LazyListOfKeys, withLessMotionAndOutOfSightRowsStandAtTheirPlacesAtOnce) {
    FakeDesktop::shared().setReducedMotion(true);
    keys.move(5, 0);
    list.followChanges();
    EXPECT_TRUE(hasSettled());
    FakeDesktop::shared().setReducedMotion(false);
    keys.move(5, 0);
    list.followChanges();
    ASSERT_FALSE(hasSettled());
    list.hide();
    keys.move(5, 0);
    list.followChanges();
    list.show();
    EXPECT_TRUE(hasSettled());
}

TEST_F(LazyListOfKeys, aSlideGoesOnWhileTheListIsScrolled) {
    keys.move(5, 0);
    list.followChanges();
    list.verticalScrollBar()->setValue(20);
    EXPECT_EQ(top(0), 180);
    EXPECT_EQ(top(1), -20);
    EXPECT_TRUE(QTest::qWaitFor([this] { return hasSettled(); }, 3000));
}

} // namespace
} // namespace Quillstacks
