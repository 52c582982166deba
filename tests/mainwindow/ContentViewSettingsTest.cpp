#include "interface/AppearanceMode.h"
#include "interface/IconButton.h"
#include "interface/Sheet.h"
#include "interface/TextField.h"
#include "interface/Theme.h"
#include "library/LibraryFixture.h"
#include "library/PromptListView.h"
#include "mainwindow/ContentView.h"
#include "mainwindow/settings/SettingsView.h"
#include "quickaccess/QuickAccessPanel.h"
#include "quickaccess/QuickAccessView.h"

#include <QImage>

namespace Quillstacks {
namespace {

class ContentViewSettings : public LibraryFixture {
protected:
    ContentView& open() {
        made = std::make_unique<ContentView>(library.context());
        show(*made, QSize(1280, 720));
        return *made;
    }
    /// A key as the window system delivers it: to whatever has the keyboard.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(made->windowHandle(), key, modifiers);
    }
    [[nodiscard]] IconButton* gear() const { return named<IconButton>(*made, QStringLiteral("Settings")); }
    [[nodiscard]] SettingsView* settings() const {
        const Sheet* sheet = Sheet::top(made.get());
        return sheet ? qobject_cast<SettingsView*>(sheet->content()) : nullptr;
    }
    static int lightnessAt(QWidget& widget, const QPoint& place) {
        return widget.grab().toImage().pixelColor(place).lightness();
    }

    std::unique_ptr<ContentView> made;
};

TEST_F(ContentViewSettings, theToolbarsGearOpensThem) {
    open();
    EXPECT_FALSE(made->isPresentingSettings());
    ASSERT_TRUE(gear());
    EXPECT_EQ(gear()->toolTip(), QStringLiteral("Settings"));
    EXPECT_EQ(gear()->symbol(), QStringLiteral("gear"));
    QTest::mouseClick(gear(), Qt::LeftButton);
    EXPECT_TRUE(made->isPresentingSettings());
    ASSERT_TRUE(settings());
    press(Qt::Key_Escape);
    EXPECT_FALSE(made->isPresentingSettings());
    EXPECT_FALSE(settings());
}

TEST_F(ContentViewSettings, theGearStandsBeforeTheHelpAtTheEndOfTheListsHeader) {
    open();
    const QPoint place = gear()->mapTo(made.get(), QPoint(0, 0));
    EXPECT_EQ(place, QPoint(1280 - 20 - 32 - 8 - 32, 16));
    const Button* deleteButton = visibleButton(*made, QStringLiteral("Delete"));
    EXPECT_EQ(deleteButton->mapTo(made.get(), QPoint(deleteButton->width(), 0)).x(), place.x() - 14 - 1 - 14);
}

TEST_F(ContentViewSettings, controlAndCommaOpensThemAlsoFromTheSearchField) {
    open();
    made->findChild<TextField*>()->setFocus();
    press(Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_TRUE(settings());
    EXPECT_EQ(made->searchText(), QString());
}

TEST_F(ContentViewSettings, underAnotherSheetTheShortcutDoesNothing) {
    open().promptList().newPrompt();
    press(Qt::Key_Comma, Qt::ControlModifier);
    made->presentSettings();
    EXPECT_FALSE(made->isPresentingSettings());
    Sheet::top(made.get())->dismiss();
    press(Qt::Key_Comma, Qt::ControlModifier);
    press(Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_EQ(made->findChildren<SettingsView*>().size(), 1);
}

TEST_F(ContentViewSettings, openOnTheGeneralTabEachTime) {
    open().presentSettings();
    settings()->selectTab(SettingsTab::advanced);
    settings()->dismiss();
    EXPECT_FALSE(made->isPresentingSettings());
    made->presentSettings();
    ASSERT_TRUE(settings());
    EXPECT_EQ(settings()->selectedTab(), SettingsTab::general);
}

TEST_F(ContentViewSettings, switchingTheAppearanceRecoloursTheOpenWindowBehindTheSheet) {
    open().presentSettings();
    const QPoint behind(1200, 600);
    const QPoint sheet(210, 40);
    QTest::mouseClick(named<QAbstractButton>(*settings(), QStringLiteral("Light")), Qt::LeftButton);
    EXPECT_GT(lightnessAt(*made, behind), 120);
    EXPECT_GT(lightnessAt(*made, sheet), 200);
    QTest::mouseClick(named<QAbstractButton>(*settings(), QStringLiteral("Dark")), Qt::LeftButton);
    EXPECT_LT(lightnessAt(*made, behind), 80);
    EXPECT_LT(lightnessAt(*made, sheet), 80);
}

TEST_F(ContentViewSettings, switchingTheAppearanceRecoloursThePanelToo) {
    addPrompt(QStringLiteral("a"));
    open();
    QuickAccessPanel panel;
    auto* view = new QuickAccessView(library.context(), [] {});
    panel.setRootView(view);
    panel.resize(712, 552);
    panel.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel));
    made->presentSettings();
    const QPoint inPanel(356, 400);
    QTest::mouseClick(named<QAbstractButton>(*settings(), QStringLiteral("Light")), Qt::LeftButton);
    EXPECT_GT(lightnessAt(panel, inPanel), 200);
    QTest::mouseClick(named<QAbstractButton>(*settings(), QStringLiteral("Dark")), Qt::LeftButton);
    EXPECT_LT(lightnessAt(panel, inPanel), 80);
}

TEST_F(ContentViewSettings, systemFollowsTheDesktopInEveryWindow) {
    FakeDesktop::shared().setColorScheme(ColorScheme::dark);
    open().presentSettings();
    QTest::mouseClick(named<QAbstractButton>(*settings(), QStringLiteral("System")), Qt::LeftButton);
    EXPECT_LT(lightnessAt(*made, {1200, 600}), 80);
    FakeDesktop::shared().setColorScheme(ColorScheme::light);
    EXPECT_GT(lightnessAt(*made, {1200, 600}), 120);
}

} // namespace
} // namespace Quillstacks
