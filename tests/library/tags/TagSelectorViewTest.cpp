#include "library/tags/TagSelectorView.h"

#include "interface/Chip.h"
#include "interface/Label.h"
#include "interface/Sheet.h"
#include "interface/TextField.h"
#include "library/LibraryFixture.h"

namespace Quillstacks {
namespace {

class TagSelectorViewTest : public LibraryFixture {
protected:
    TagSelectorView& open() {
        view = new TagSelectorView(library.context(), allTags, &window);
        view->setGeometry(20, 20, 500, view->sizeHint().height());
        QObject::connect(view, &TagSelectorView::selectionChanged, &window, [this] { ++told; });
        show(window, QSize(800, 600));
        return *view;
    }
    QStringList chipNames() {
        QStringList names;
        for (const Chip* chip : view->findChildren<Chip*>())
            names += chip->isVisible() ? chip->text() : QString();
        return names;
    }
    Chip* chip(const char* name) { return named<Chip>(*view, QLatin1String(name)); }
    Button* create() { return visibleButton(*view, QStringLiteral("Create Tag")); }

    TagQuery allTags{library.context()};
    QWidget window;
    TagSelectorView* view = nullptr;
    int told = 0;
};

} // namespace

TEST_F(TagSelectorViewTest, withNoTagsItOffersCreateTagInFullWidth) {
    open();
    ASSERT_TRUE(create());
    EXPECT_EQ(create()->size(), QSize(500, 44));
    EXPECT_EQ(view->findChild<Label*>()->text(), QStringLiteral("Tags"));
    EXPECT_TRUE(chipNames().isEmpty());
}

TEST_F(TagSelectorViewTest, withTagsItShowsThemByNameInPlaceOfTheButton) {
    addTag(QStringLiteral("Writing"));
    addTag(QStringLiteral("Code"));
    addTag(QStringLiteral("code 10"));
    addTag(QStringLiteral("code 9"));
    open();
    EXPECT_FALSE(create());
    for (const char* name : {"Writing", "Code", "code 9", "code 10"})
        ASSERT_TRUE(chip(name)) << name;
    EXPECT_LT(chip("Code")->x(), chip("code 9")->x());
    EXPECT_LT(chip("code 9")->x(), chip("code 10")->x());
    EXPECT_LT(chip("code 10")->x(), chip("Writing")->x());
}

TEST_F(TagSelectorViewTest, withNoTagsATagMadeHereArrivesTicked) {
    open();
    create()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(window.windowHandle(), Qt::Key_Space);
    EXPECT_TRUE(view->isPresentingTagEditor());
    EXPECT_FALSE(view->editingTag());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("First"));
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    EXPECT_FALSE(view->isPresentingTagEditor());
    Tag* made = library.tag(QStringLiteral("First"));
    ASSERT_TRUE(made);
    EXPECT_EQ(view->selection(), QSet<Tag*>{made});
    EXPECT_EQ(told, 1);
    ASSERT_TRUE(chip("First"));
    EXPECT_TRUE(chip("First")->isChecked());
    EXPECT_FALSE(create());
    // The button that had the keyboard is gone; it goes on in its place.
    EXPECT_EQ(QApplication::focusWidget(), chip("First"));
}

TEST_F(TagSelectorViewTest, theFirstTagTakesThePlaceOfTheButtonAmongTheStopsOfTheTabKey) {
    Button before(QStringLiteral("Before"), Button::Kind::bordered, &window);
    open();
    Button after(QStringLiteral("After"), Button::Kind::bordered, &window);
    after.move(0, 200);
    after.show();
    addTag(QStringLiteral("Code"));
    library.context().processPendingChanges();
    before.setFocus(Qt::TabFocusReason);
    QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
    EXPECT_TRUE(chip("Code")->hasFocus());
    QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
    EXPECT_TRUE(after.hasFocus());
}

TEST_F(TagSelectorViewTest, aTagThatIsNotMadeLeavesEverythingAsItWas) {
    QTest::mouseClick(visibleButton(open(), QStringLiteral("Create Tag")), Qt::LeftButton);
    EXPECT_TRUE(view->isPresentingTagEditor());
    QTest::mouseClick(visibleButton(window, QStringLiteral("Cancel")), Qt::LeftButton);
    EXPECT_FALSE(view->isPresentingTagEditor());
    EXPECT_TRUE(view->selection().isEmpty());
    EXPECT_EQ(told, 0);
    EXPECT_TRUE(create());
}

TEST_F(TagSelectorViewTest, aSecondSheetIsNotOpened) {
    open().createTag();
    Sheet* first = Sheet::top(view);
    view->createTag();
    EXPECT_EQ(Sheet::top(view), first);
}

TEST_F(TagSelectorViewTest, aClickTogglesTheMembership) {
    Tag* code = addTag(QStringLiteral("Code"));
    Tag* email = addTag(QStringLiteral("Email"));
    open().setSelection({email});
    EXPECT_EQ(told, 0);
    EXPECT_TRUE(chip("Email")->isChecked());
    EXPECT_FALSE(chip("Code")->isChecked());
    QTest::mouseClick(chip("Code"), Qt::LeftButton);
    EXPECT_EQ(view->selection(), (QSet<Tag*>{code, email}));
    EXPECT_TRUE(chip("Code")->isChecked());
    QTest::mouseClick(chip("Email"), Qt::LeftButton);
    EXPECT_EQ(view->selection(), QSet<Tag*>{code});
    EXPECT_FALSE(chip("Email")->isChecked());
    EXPECT_EQ(told, 2);
}

TEST_F(TagSelectorViewTest, tagsOfTheSameNameAreToldApart) {
    Tag* first = library.addTag(QStringLiteral("Work"), QStringLiteral("FF0000"));
    Tag* second = library.addTag(QStringLiteral("Work"), QStringLiteral("FF0000"));
    open();
    const QList<Chip*> chips = view->findChildren<Chip*>();
    ASSERT_EQ(chips.size(), 2);
    QTest::mouseClick(chips.at(1), Qt::LeftButton);
    EXPECT_EQ(view->selection(), QSet<Tag*>{second});
    EXPECT_FALSE(view->selection().contains(first));
    EXPECT_FALSE(chips.at(0)->isChecked());
}

TEST_F(TagSelectorViewTest, followsTheLibrary) {
    Tag* code = addTag(QStringLiteral("Code"));
    open().setSelection({code});
    addTag(QStringLiteral("Alpha"));
    code->setName(QStringLiteral("Zeta"));
    library.context().processPendingChanges();
    ASSERT_TRUE(chip("Zeta"));
    EXPECT_TRUE(chip("Zeta")->isChecked());
    EXPECT_LT(chip("Alpha")->x(), chip("Zeta")->x());
    library.context().remove(code);
    library.context().processPendingChanges();
    EXPECT_FALSE(chip("Zeta"));
    EXPECT_EQ(chipNames(), QStringList{QStringLiteral("Alpha")});
}

TEST_F(TagSelectorViewTest, headingRowAndGapAreAsHighAsTheLook) {
    addTag(QStringLiteral("Code"));
    open();
    EXPECT_EQ(chip("Code")->mapTo(view, QPoint(0, 0)), QPoint(0, textLineHeight(TextStyle::headline) + 8));
    EXPECT_EQ(view->sizeHint().height(), textLineHeight(TextStyle::headline) + 8 + chip("Code")->height());
    // 5 above and below a line, and its border.
    EXPECT_EQ(chip("Code")->height(), textLineHeight(TextStyle::caption) + 2 * 5 + 2);
}

} // namespace Quillstacks
