#include "interface/Button.h"

#include "Fixture.h"
#include "interface/FocusRing.h"
#include "interface/IconButton.h"
#include "interface/Label.h"
#include "support/ShownSymbol.h"

#include <QAccessible>
#include <QSignalSpy>

namespace Quillstacks {
namespace {

class ButtonOf : public InterfaceTest {};

TEST_F(ButtonOf, spaceAndReturnPressTheOneWithTheKeyboard) {
    Button button(QStringLiteral("Save"), Button::Kind::prominent, &window);
    showWindow();
    button.setFocus(Qt::TabFocusReason);
    QSignalSpy clicks(&button, &QAbstractButton::clicked);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicks.count(), 2);
}

TEST_F(ButtonOf, aClickDoesNotTakeTheKeyboard) {
    QWidget other(&window);
    other.setFocusPolicy(Qt::StrongFocus);
    Button button(QStringLiteral("Clear"), Button::Kind::borderless, &window);
    button.move(0, 50);
    showWindow();
    other.setFocus();
    QSignalSpy clicks(&button, &QAbstractButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_TRUE(other.hasFocus());
}

TEST_F(ButtonOf, theRingShowsForTheKeyboardOnly) {
    Button button(QStringLiteral("Save"), Button::Kind::bordered, &window);
    showWindow();
    button.setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(FocusRing::isShownFor(&button));
    button.clearFocus();
    button.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(FocusRing::isShownFor(&button));
    button.clearFocus();
    EXPECT_FALSE(FocusRing::isShownFor(&button));
}

TEST_F(ButtonOf, anAmpersandIsShownAndMakesNoShortcut) {
    Button button(QStringLiteral("R&D"));
    EXPECT_TRUE(button.shortcut().isEmpty());
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&button);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("R&D"));
    EXPECT_EQ(accessible->role(), QAccessible::Button);
}

TEST_F(ButtonOf, pressDefaultPressesTheOneThatAnswersReturn) {
    Button cancel(QStringLiteral("Cancel"), Button::Kind::bordered, &window);
    Button save(QStringLiteral("Save"), Button::Kind::prominent, &window);
    EXPECT_FALSE(Button::pressDefault(&window));
    save.setDefault(true);
    showWindow();
    QSignalSpy clicks(&save, &QAbstractButton::clicked);
    EXPECT_TRUE(Button::pressDefault(&window));
    save.setEnabled(false);
    EXPECT_FALSE(Button::pressDefault(&window));
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(ButtonOf, heightsAreThoseOfItsSizes) {
    Button button(QStringLiteral("Save"));
    EXPECT_EQ(button.sizeHint().height(), 30);
    button.setSize(Button::Size::small);
    EXPECT_EQ(button.sizeHint().height(), 26);
    button.setSize(Button::Size::tall);
    EXPECT_EQ(button.sizeHint().height(), 44);
}

TEST_F(ButtonOf, aLargeFontOfTheDesktopMakesItTaller) {
    const QFont before = QApplication::font();
    QFont larger = before;
    larger.setPixelSize(40);
    QApplication::setFont(larger);
    EXPECT_GT(Button(QStringLiteral("Save")).sizeHint().height(), 38);
    QApplication::setFont(before);
}

TEST_F(ButtonOf, itRepaintsInTheOtherScheme) {
    Button button(QString(), Button::Kind::prominent);
    button.resize(80, 30);
    const auto middle = [&button] { return button.grab().toImage().pixelColor(40, 15); };
    EXPECT_EQ(middle(), QColor(0x5A61E6));
    appearanceModePreference().set(AppearanceMode::light);
    EXPECT_EQ(middle(), QColor(0x5057DD));
}

TEST_F(ButtonOf, anIconButtonsNewSymbolTakesThePlaceOfTheOldOne) {
    IconButton button(QStringLiteral("doc.on.doc"), QStringLiteral("Copy"), IconButton::Size::row);
    const auto shows = [&button](const QString& name) {
        return showsSymbol(button, name, 16, Theme::shared().color(ColorRole::text2));
    };
    EXPECT_TRUE(shows(QStringLiteral("doc.on.doc")));
    button.changeSymbol(QStringLiteral("checkmark"));
    EXPECT_EQ(button.symbol(), QStringLiteral("checkmark"));
    EXPECT_TRUE(shows(QStringLiteral("checkmark"))) << "at once while nobody sees it";
    EXPECT_FALSE(shows(QStringLiteral("doc.on.doc")));
}

TEST_F(ButtonOf, anIconButtonsHelpIsItsToolTipAndName) {
    IconButton button(QStringLiteral("gear"), QStringLiteral("Settings"));
    EXPECT_EQ(button.toolTip(), QStringLiteral("Settings"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&button)->text(QAccessible::Name), QStringLiteral("Settings"));
    EXPECT_EQ(button.sizeHint(), QSize(32, 32));
}

} // namespace
} // namespace Quillstacks
