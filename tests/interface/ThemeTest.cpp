#include "interface/Theme.h"

#include "ColorTable.h"
#include "Fixture.h"
#include "interface/TextStyle.h"

#include <QApplication>
#include <QSignalSpy>

namespace Quillstacks {
namespace {

class ThemeOf : public InterfaceTest {};

TEST_F(ThemeOf, darkIsTheDefaultWhateverTheDesktopSays) {
    FakeDesktop::shared().setColorScheme(ColorScheme::light);
    EXPECT_EQ(Theme::shared().scheme(), ColorScheme::dark);
    EXPECT_EQ(Theme::shared().color(ColorRole::window), QColor(0x1E1F24));
}

TEST_F(ThemeOf, thePreferenceChangesTheSchemeAtOnce) {
    QSignalSpy changes(&Theme::shared(), &Theme::changed);
    appearanceModePreference().set(AppearanceMode::light);
    EXPECT_EQ(Theme::shared().scheme(), ColorScheme::light);
    EXPECT_EQ(Theme::shared().color(ColorRole::text), QColor(0x1D1E24));
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(Qt::white));
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(ThemeOf, systemFollowsTheDesktopLive) {
    appearanceModePreference().set(AppearanceMode::system);
    FakeDesktop::shared().setColorScheme(ColorScheme::light);
    EXPECT_EQ(Theme::shared().scheme(), ColorScheme::light);
    FakeDesktop::shared().setColorScheme(ColorScheme::dark);
    EXPECT_EQ(Theme::shared().scheme(), ColorScheme::dark);
}

TEST_F(ThemeOf, anUnknownStoredModeIsDark) {
    preferences->set(QStringLiteral("appearanceMode"), QStringLiteral("sepia"));
    EXPECT_EQ(appearanceModePreference().value(), AppearanceMode::dark);
}

TEST_F(ThemeOf, reducedMotionAndCompositingAreFollowed) {
    FakeDesktop::shared().setReducedMotion(true);
    EXPECT_TRUE(Theme::shared().reducedMotion());
    EXPECT_LT(Theme::shared().material(Material::regular).alpha(), 255);
    FakeDesktop::shared().setComposited(false);
    Theme::shared().refresh();
    EXPECT_EQ(Theme::shared().material(Material::regular), QColor(0x25262C));
    EXPECT_EQ(Theme::shared().material(Material::raised).alpha(), 255);
    FakeDesktop::shared().setReducedMotion(false);
}

TEST_F(ThemeOf, theDesktopsAccentReplacesOurs) {
    FakeDesktop::shared().setAccentColor(QColor(0x2A6FDB));
    EXPECT_EQ(Theme::shared().color(ColorRole::accentFill), QColor(0x2A6FDB));
    FakeDesktop::shared().setAccentColor(std::nullopt);
    EXPECT_EQ(Theme::shared().color(ColorRole::accentFill), QColor(0x5A61E6));
}

TEST(ColorTableOf, everyAccentReadsOnItsGrounds) {
    for (int hue = 0; hue < 360; hue += 15) {
        for (const int lightness : {20, 90, 128, 200, 250}) {
            const QColor accent = QColor::fromHsl(hue, 220, lightness);
            for (const bool dark : {true, false}) {
                const ColorTable table = makeColorTable(dark, accent);
                const auto at = [&table](ColorRole role) { return table[static_cast<std::size_t>(role)]; };
                EXPECT_GE(contrast(at(ColorRole::accentFill), Qt::white), 4.5) << hue << ' ' << lightness;
                EXPECT_GE(contrast(at(ColorRole::accent), at(ColorRole::sheet)), 4.5) << hue << ' ' << lightness;
            }
        }
    }
}

TEST(ColorTableOf, everyRoleHasAColorInBothSchemes) {
    for (const bool dark : {true, false})
        for (const QColor& color : makeColorTable(dark, std::nullopt))
            EXPECT_TRUE(color.isValid());
}

TEST(ColorTableOf, textReadsOnEveryGround) {
    for (const bool dark : {true, false}) {
        const ColorTable table = makeColorTable(dark, std::nullopt);
        const auto at = [&table](ColorRole role) { return table[static_cast<std::size_t>(role)]; };
        for (const auto ground : {ColorRole::window, ColorRole::sidebar, ColorRole::sheet, ColorRole::card,
                                  ColorRole::field, ColorRole::popover})
            for (const auto text : {ColorRole::text, ColorRole::text2, ColorRole::text3, ColorRole::accent,
                                    ColorRole::red, ColorRole::orange, ColorRole::green, ColorRole::blue})
                EXPECT_GE(contrast(at(ground), at(text)), 4.5);
    }
}

TEST_F(ThemeOf, textStylesFollowTheDesktopsFontLive) {
    const QFont before = QApplication::font();
    QSignalSpy changes(&Theme::shared(), &Theme::changed);
    QFont larger = before;
    larger.setPixelSize(28);
    QApplication::setFont(larger);
    EXPECT_GE(changes.count(), 1);
    EXPECT_NEAR(pixelSize(textFont(TextStyle::body)), 28, 0.3);
    EXPECT_NEAR(pixelSize(textFont(TextStyle::caption)), 24, 0.3);
    EXPECT_EQ(textLineHeight(TextStyle::body), 40);
    EXPECT_NEAR(pixelSize(absoluteFont(14)), 14, 0.1);
    QApplication::setFont(before);
}

} // namespace
} // namespace Quillstacks
