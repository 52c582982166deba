#include "AppearanceSettingsView.h"

#include "interface/AppearanceMode.h"
#include "SettingsFixture.h"
#include "support/ShownSymbol.h"

namespace Quillstacks {
namespace {

class AppearanceSettings : public SettingsFixture {
protected:
    [[nodiscard]] QStringList modes() const {
        QStringList result;
        for (const QAbstractButton* button : part("AppearanceSettingsView")->findChildren<QAbstractButton*>())
            result += button->accessibleName();
        return result;
    }
    [[nodiscard]] bool isChosen(const char* mode) const { return named(QString::fromLatin1(mode))->isChecked(); }
    [[nodiscard]] QString stored() const { return preferences_text().value_or(QStringLiteral("nothing")); }

private:
    [[nodiscard]] static std::optional<QString> preferences_text() {
        return Preferences::standard().text(QStringLiteral("appearanceMode"));
    }
};

TEST_F(AppearanceSettings, offersSystemLightAndDarkInThisOrder) {
    open();
    EXPECT_EQ(modes(), QStringList({QStringLiteral("System"), QStringLiteral("Light"), QStringLiteral("Dark")}));
    EXPECT_EQ(texts(*part("AppearanceSettingsView")),
              QStringList({QStringLiteral("Appearance"), QStringLiteral("Choose how Quillstacks looks.")}));
}

TEST_F(AppearanceSettings, eachModeHasItsSymbol) {
    open();
    const auto expectSymbol = [this](const char* mode, const char* symbol) {
        EXPECT_TRUE(showsSymbol(*named(QString::fromLatin1(mode)), QString::fromLatin1(symbol), 15,
                                Theme::shared().color(ColorRole::text2)))
            << mode;
    };
    expectSymbol("System", "circle.lefthalf.filled");
    expectSymbol("Light", "sun.max.fill");
    // The chosen one has a ground, on which the colours are others.
    appearanceModePreference().set(AppearanceMode::system);
    expectSymbol("Dark", "moon.fill");
}

TEST_F(AppearanceSettings, darkIsChosenWhileNothingIsStoredAndNothingIsWritten) {
    open();
    EXPECT_TRUE(isChosen("Dark"));
    EXPECT_EQ(stored(), QStringLiteral("nothing"));
}

TEST_F(AppearanceSettings, anUnknownStoredModeShowsAsDark) {
    preferences->set(QStringLiteral("appearanceMode"), QStringLiteral("sepia"));
    open();
    EXPECT_TRUE(isChosen("Dark"));
}

TEST_F(AppearanceSettings, aStoredModeOfAnotherTypeShowsAsDark) {
    preferences->set(QStringLiteral("appearanceMode"), qint64{1});
    open();
    EXPECT_TRUE(isChosen("Dark"));
}

TEST_F(AppearanceSettings, aChoiceIsWrittenTheMomentItIsMade) {
    open();
    const std::pair<const char*, const char*> choices[] = {{"Light", "light"}, {"System", "system"}, {"Dark", "dark"}};
    for (const auto& [mode, raw] : choices) {
        click(named(QString::fromLatin1(mode)));
        EXPECT_EQ(stored(), QString::fromLatin1(raw));
    }
}

TEST_F(AppearanceSettings, aChoiceRecoloursTheSheetAndTheWindowBehindItAtOnce) {
    open();
    // The sheet's ground, and the window's beside it under the scrim.
    const auto grounds = [this] {
        const QImage picture = window.grab().toImage();
        return std::pair(picture.pixelColor(sheet->cardGeometry().topLeft() + QPoint(20, 20)).lightness(),
                         picture.pixelColor(5, 5).lightness());
    };
    click(named(QStringLiteral("Light")));
    EXPECT_EQ(Theme::shared().scheme(), ColorScheme::light);
    EXPECT_GT(grounds().first, 200);
    EXPECT_GT(grounds().second, 120);
    click(named(QStringLiteral("Dark")));
    EXPECT_LT(grounds().first, 80);
    EXPECT_LT(grounds().second, 80);
}

TEST_F(AppearanceSettings, systemFollowsTheDesktopWhileTheSheetIsOpen) {
    FakeDesktop::shared().setColorScheme(ColorScheme::light);
    open();
    click(named(QStringLiteral("System")));
    EXPECT_EQ(Theme::shared().scheme(), ColorScheme::light);
    FakeDesktop::shared().setColorScheme(ColorScheme::dark);
    EXPECT_EQ(Theme::shared().scheme(), ColorScheme::dark);
    EXPECT_TRUE(isChosen("System"));
}

TEST_F(AppearanceSettings, thePickerStandsInLineWithTheRecorderBeside) {
    open();
    const auto top = [this](const QWidget* widget) { return widget->mapTo(&window, QPoint(0, 0)).y(); };
    const QWidget* recorder = part("HotkeyRecorderView");
    const QWidget* picker = part("AppearanceSettingsView")->findChild<SegmentedPicker*>();
    EXPECT_EQ(top(picker), top(recorder));
}

TEST_F(AppearanceSettings, thePickerStaysThereInAHigherCard) {
    AppearanceSettingsView view;
    const auto* picker = view.findChild<SegmentedPicker*>();
    view.resize(350, 300);
    view.show();
    QCoreApplication::processEvents();
    const int place = picker->y();
    EXPECT_LT(place, 150);
    view.resize(350, 500);
    QCoreApplication::processEvents();
    EXPECT_EQ(picker->y(), place);
}

TEST_F(AppearanceSettings, arrowsChooseToo) {
    open();
    named(QStringLiteral("Dark"))->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Left);
    EXPECT_EQ(stored(), QStringLiteral("light"));
    EXPECT_TRUE(isChosen("Light"));
}

TEST_F(AppearanceSettings, aChangeFromElsewhereIsShown) {
    open();
    appearanceModePreference().set(AppearanceMode::light);
    EXPECT_TRUE(isChosen("Light"));
    preferences->remove(QStringLiteral("appearanceMode"));
    EXPECT_TRUE(isChosen("Dark"));
}

} // namespace
} // namespace Quillstacks
