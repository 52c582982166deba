#include "mainwindow/ContentView.h"

#include "interface/AppearanceMode.h"
#include "interface/LazyList.h"
#include "interface/TextField.h"
#include "interface/Theme.h"
#include "library/LibraryFixture.h"
#include "library/PromptListView.h"
#include "library/PromptSearch.h"
#include "mainwindow/SidebarView.h"

namespace Quillstacks {
namespace {

class PaintCount final : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

class ContentViewTest : public LibraryFixture {
protected:
    ContentView& open() {
        made = std::make_unique<ContentView>(library.context());
        show(*made, QSize(1280, 720));
        return *made;
    }
    TextField& searchField() { return *made->findChild<TextField*>(); }
    QAbstractButton& allPrompts() { return *named<QAbstractButton>(*made, QStringLiteral("All Prompts")); }
    [[nodiscard]] QStringList visibleTitles() const { return titlesOf(made->promptList().filteredPrompts()); }

    std::unique_ptr<ContentView> made;
};

} // namespace

TEST_F(ContentViewTest, everyKeyPressInTheSearchFieldReachesTheList) {
    addPrompt(QStringLiteral("beta"));
    addPrompt(QStringLiteral("alpha"));
    open();
    searchField().setFocus();
    QTest::keyClicks(&searchField(), QStringLiteral("al"));
    EXPECT_EQ(made->searchText(), QStringLiteral("al"));
    EXPECT_EQ(visibleTitles(), QStringList{QStringLiteral("alpha")});
    QTest::keyClick(&searchField(), Qt::Key_Backspace);
    EXPECT_EQ(visibleTitles().size(), 2);
}

TEST_F(ContentViewTest, pressingPWhileTypingInTheSearchFieldTypesTheLetter) {
    addPrompt(QStringLiteral("a"));
    open();
    searchField().setFocus();
    QTest::keyClick(&searchField(), Qt::Key_P);
    EXPECT_EQ(searchField().text(), QStringLiteral("p"));
    EXPECT_FALSE(made->promptList().isPresentingEditor());
}

TEST_F(ContentViewTest, eReturnAndArrowsInTheSearchFieldStayThere) {
    Prompt* prompt = addPrompt(QStringLiteral("e"));
    addPrompt(QStringLiteral("ee"));
    open().promptList().select(prompt);
    searchField().setFocus();
    for (const Qt::Key key : {Qt::Key_E, Qt::Key_Return, Qt::Key_Up, Qt::Key_Down})
        QTest::keyClick(&searchField(), key);
    EXPECT_EQ(searchField().text(), QStringLiteral("e"));
    EXPECT_EQ(made->promptList().selection(), prompt);
    EXPECT_FALSE(made->promptList().isPresentingEditor());
}

TEST_F(ContentViewTest, selectingATagAndSearchingCombine) {
    Tag* tag = addTag(QStringLiteral("Work"));
    addPrompt(QStringLiteral("tagged and matching"), QStringLiteral("needle"), {tag});
    addPrompt(QStringLiteral("tagged"), QStringLiteral("x"), {tag});
    addPrompt(QStringLiteral("matching"), QStringLiteral("needle"));
    open().setSelectedTagId(tag->id());
    made->setSearchText(QStringLiteral("needle"));
    EXPECT_EQ(visibleTitles(), QStringList{QStringLiteral("tagged and matching")});
    EXPECT_EQ(searchField().text(), QStringLiteral("needle"));
    EXPECT_FALSE(allPrompts().isChecked());
}

TEST_F(ContentViewTest, opensWithAllPromptsSelectedAndAnEmptySearch) {
    open();
    EXPECT_EQ(made->searchText(), QString());
    EXPECT_EQ(made->selectedTagId(), allPromptsId);
    EXPECT_TRUE(allPrompts().isChecked());
}

TEST_F(ContentViewTest, aClickOnAllPromptsTakesTheTagBackAndKeepsTheRowSelected) {
    Tag* tag = addTag(QStringLiteral("Work"));
    addPrompt(QStringLiteral("a"));
    open().setSelectedTagId(tag->id());
    EXPECT_TRUE(visibleTitles().isEmpty());
    QTest::mouseClick(&allPrompts(), Qt::LeftButton);
    EXPECT_EQ(made->selectedTagId(), allPromptsId);
    EXPECT_EQ(visibleTitles().size(), 1);
    QTest::mouseClick(&allPrompts(), Qt::LeftButton);
    EXPECT_TRUE(allPrompts().isChecked());
}

TEST_F(ContentViewTest, theListHasTheKeyboardFirstAndKeepsItAfterAClickInTheSidebar) {
    addPrompt(QStringLiteral("a"));
    open();
    EXPECT_TRUE(qobject_cast<LazyList*>(QApplication::focusWidget()));
    QTest::mouseClick(&allPrompts(), Qt::LeftButton);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_TRUE(made->promptList().selection());
}

TEST_F(ContentViewTest, theSidebarKeepsItsWidth) {
    open();
    const auto* sidebar = made->findChild<SidebarView*>();
    EXPECT_EQ(sidebar->width(), 320);
    made->resize(1900, 900);
    EXPECT_EQ(sidebar->width(), 320);
    EXPECT_EQ(made->promptList().width(), 1900 - 320);
}

TEST_F(ContentViewTest, aChangeOfTheAppearanceRecoloursTheOpenWindow) {
    open();
    const auto ground = [&] { return made->grab().toImage().pixelColor(700, 700); };
    appearanceModePreference().set(AppearanceMode::dark);
    EXPECT_LT(ground().lightness(), 80);
    appearanceModePreference().set(AppearanceMode::light);
    EXPECT_GT(ground().lightness(), 200);
}

TEST_F(ContentViewTest, aChangeOfTheAppearanceRepaintsTheShownWindowByItself) {
    appearanceModePreference().set(AppearanceMode::dark);
    open();
    QTest::qWait(0);
    auto* sidebar = made->findChild<SidebarView*>();
    PaintCount window;
    PaintCount column;
    made->installEventFilter(&window);
    sidebar->installEventFilter(&column);
    QTest::qWait(0);
    window.count = column.count = 0;
    appearanceModePreference().set(AppearanceMode::light);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.count > 0 && column.count > 0; }, 2000));
}

} // namespace Quillstacks
