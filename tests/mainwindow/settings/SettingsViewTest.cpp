#include "mainwindow/settings/SettingsView.h"

#include "interface/Card.h"
#include "interface/ScrollArea.h"
#include "interface/TextArea.h"
#include "SettingsFixture.h"

#include <QLayout>
#include <QScrollBar>

namespace Quillstacks {
namespace {

class SettingsWindow : public SettingsFixture {
protected:
    [[nodiscard]] ScrollArea* area() const { return settings->findChild<ScrollArea*>(); }
    /// Where a widget lies in the settings.
    [[nodiscard]] QRect place(const QWidget* widget) const {
        return {widget->mapTo(settings, QPoint(0, 0)), widget->size()};
    }
};

TEST_F(SettingsWindow, opensOnTheGeneralTab) {
    open();
    EXPECT_EQ(settings->selectedTab(), SettingsTab::general);
    EXPECT_FALSE(settings->showLogExportHelp());
    EXPECT_TRUE(named(QStringLiteral("General"))->isChecked());
    EXPECT_EQ(texts(*settings).constFirst(), QStringLiteral("Settings"));
}

TEST_F(SettingsWindow, theTabsAreGeneralAndAdvanced) {
    QStringList labels;
    for (const SettingsTab tab : allSettingsTabs)
        labels += label(tab);
    EXPECT_EQ(labels, QStringList({QStringLiteral("General"), QStringLiteral("Advanced")}));
}

TEST_F(SettingsWindow, theViewOfTheOtherTabIsNotBuilt) {
    open();
    EXPECT_TRUE(part("GeneralSettingsTab"));
    EXPECT_FALSE(part("AdvancedSettingsTab"));
    click(named(QStringLiteral("Advanced")));
    EXPECT_EQ(settings->selectedTab(), SettingsTab::advanced);
    EXPECT_FALSE(part("GeneralSettingsTab"));
    ASSERT_TRUE(part("AdvancedSettingsTab"));
    EXPECT_TRUE(part("AdvancedSettingsTab")->isVisible());
    click(named(QStringLiteral("General")));
    EXPECT_TRUE(part("GeneralSettingsTab"));
    EXPECT_FALSE(part("AdvancedSettingsTab"));
}

TEST_F(SettingsWindow, arrowsChangeTheTab) {
    open();
    named(QStringLiteral("General"))->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Right);
    EXPECT_EQ(settings->selectedTab(), SettingsTab::advanced);
    press(Qt::Key_Left);
    EXPECT_EQ(settings->selectedTab(), SettingsTab::general);
}

TEST_F(SettingsWindow, theTabKeyGoesFromTheTabsOverTheCardsToDone) {
    open();
    for (const SettingsTab tab : {SettingsTab::advanced, SettingsTab::general}) {
        settings->selectTab(tab);
        named(label(tab))->setFocus(Qt::TabFocusReason);
        press(Qt::Key_Tab);
        EXPECT_TRUE(area()->widget()->isAncestorOf(QApplication::focusWidget()));
        named(QStringLiteral("Done"))->setFocus(Qt::TabFocusReason);
        press(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), named(label(tab)));
    }
}

TEST_F(SettingsWindow, eachTabShowsItsCardsInOrder) {
    open();
    EXPECT_TRUE(texts(*settings).contains(QStringLiteral("Appearance")));
    settings->selectTab(SettingsTab::advanced);
    QCoreApplication::processEvents();
    const QStringList advanced = texts(*settings);
    EXPECT_LT(advanced.indexOf(QStringLiteral("Version History")), advanced.indexOf(QStringLiteral("Debug Logs")));
    EXPECT_GE(advanced.indexOf(QStringLiteral("Version History")), 0);
}

TEST_F(SettingsWindow, hasOneSizeAlsoWhereTheWindowIsLargeOrHardlyLarger) {
    open({1280, 720});
    EXPECT_EQ(sheet->cardGeometry().size(), QSize(900, 700));
    window.resize(1800, 1100);
    EXPECT_EQ(sheet->cardGeometry().size(), QSize(900, 700));
    settings->selectTab(SettingsTab::advanced);
    QCoreApplication::processEvents();
    EXPECT_EQ(sheet->cardGeometry().size(), QSize(900, 700));
    EXPECT_EQ(settings->size(), QSize(900, 700));
}

TEST_F(SettingsWindow, takesWhatASmallWindowHasAndScrolls) {
    open({700, 300});
    settings->selectTab(SettingsTab::advanced);
    QCoreApplication::processEvents();
    EXPECT_EQ(sheet->cardGeometry(), QRect(0, 0, 700, 300));
    EXPECT_EQ(settings->size(), QSize(700, 300));
    EXPECT_GT(area()->verticalScrollBar()->maximum(), 0);
    EXPECT_LE(place(named(QStringLiteral("Done"))).bottom(), 300);
    press(Qt::Key_End);
    EXPECT_EQ(area()->verticalScrollBar()->value(), area()->verticalScrollBar()->maximum());
}

TEST_F(SettingsWindow, aControlThatGetsTheKeyboardIsScrolledIntoView) {
    open({700, 300});
    settings->selectTab(SettingsTab::advanced);
    QCoreApplication::processEvents();
    const QWidget* button = named(QStringLiteral("How to Export Logs"));
    for (int i = 0; i < 20 && QApplication::focusWidget() != button; ++i)
        press(Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), button);
    EXPECT_TRUE(place(area()).contains(place(button)));
}

TEST_F(SettingsWindow, keepsItsDistances) {
    open();
    const auto* title = settings->findChild<Label*>();
    const auto* picker = settings->findChild<SegmentedPicker*>();
    EXPECT_EQ(place(title).topLeft(), QPoint(32, 32));
    EXPECT_EQ(place(picker), QRect(32, 32 + title->height() + 24, 900 - 64, 30));
    EXPECT_EQ(place(area()).top(), place(picker).bottom() + 1 + 16);
    const Button* done = named<Button>(QStringLiteral("Done"));
    EXPECT_EQ(place(done).right() + 1, 900 - 32);
    EXPECT_EQ(place(done).bottom() + 1, 700 - 20);
    EXPECT_EQ(place(area()).bottom() + 1 + 1 + 20, place(done).top());
    const auto* card = settings->findChild<Card*>();
    EXPECT_EQ(place(card).left(), 32);
    EXPECT_EQ(place(card).width(), (900 - 64 - 20) / 2);
    EXPECT_EQ(card->height(), card->heightForWidth(card->width())) << "as high as its content, wherever there is room";
    EXPECT_EQ(place(card->findChild<Label*>()).topLeft(), place(card).topLeft() + QPoint(20, 20));
}

TEST_F(SettingsWindow, cardsStandTwentyFourApart) {
    open();
    settings->selectTab(SettingsTab::advanced);
    QCoreApplication::processEvents();
    const auto cards = part("AdvancedSettingsTab")->findChildren<Card*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_EQ(cards.size(), 3);
    for (qsizetype i = 1; i < cards.size(); ++i)
        EXPECT_EQ(place(cards[i]).top() - place(cards[i - 1]).bottom() - 1, 24);
    EXPECT_EQ(part("AdvancedSettingsTab")->layout()->contentsMargins().bottom(), 40);
}

TEST_F(SettingsWindow, returnClosesTheSheet) {
    open();
    press(Qt::Key_Return);
    EXPECT_TRUE(sheet->isDismissed());
}

TEST_F(SettingsWindow, returnClosesTheSheetFromItsControlsToo) {
    open();
    named(QStringLiteral("Dark"))->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Return);
    EXPECT_TRUE(sheet->isDismissed());
}

TEST_F(SettingsWindow, returnClosesTheSheetFromASwitchWhichItDoesNotTurn) {
    open();
    named(QStringLiteral("Enable Lexiwell"))->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Return);
    EXPECT_TRUE(sheet->isDismissed());
    EXPECT_FALSE(preferences->contains(QStringLiteral("lexiwellEnabled")));
}

TEST_F(SettingsWindow, returnStaysWithATextFieldThatTakesIt) {
    open();
    auto* field = new TextArea(QStringLiteral("Notes"));
    field->setParent(settings);
    field->resize(200, 80);
    field->show();
    field->setFocus();
    press(Qt::Key_Return);
    EXPECT_FALSE(sheet->isDismissed());
}

TEST_F(SettingsWindow, doneClosesTheSheetAndSoDoesEscape) {
    open();
    click(named(QStringLiteral("Done")));
    EXPECT_TRUE(sheet->isDismissed());
    open();
    press(Qt::Key_Escape);
    EXPECT_TRUE(sheet->isDismissed());
}

TEST_F(SettingsWindow, theHelpForTheLogOpensOverIt) {
    open();
    settings->selectTab(SettingsTab::advanced);
    QCoreApplication::processEvents();
    click(named(QStringLiteral("How to Export Logs")));
    EXPECT_TRUE(settings->showLogExportHelp());
    ASSERT_TRUE(part("LogExportHelpView"));
    EXPECT_TRUE(Sheet::covers(settings));
    // Return and Escape are the upper sheet's now.
    press(Qt::Key_Return);
    EXPECT_FALSE(settings->showLogExportHelp());
    EXPECT_FALSE(sheet->isDismissed());
    EXPECT_EQ(Sheet::top(&window), sheet);
    settings->presentLogExportHelp();
    press(Qt::Key_Escape);
    EXPECT_FALSE(settings->showLogExportHelp());
    EXPECT_FALSE(sheet->isDismissed());
}

TEST_F(SettingsWindow, theHelpForTheLogGoesWithIt) {
    open();
    settings->presentLogExportHelp();
    settings->presentLogExportHelp();
    EXPECT_EQ(window.findChildren<QWidget*>(QStringLiteral("LogExportHelpView")).size(), 1);
    settings->dismiss();
    EXPECT_FALSE(Sheet::top(&window));
}

} // namespace
} // namespace Quillstacks
