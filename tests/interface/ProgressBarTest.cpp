#include "interface/ProgressBar.h"

#include "Fixture.h"
#include "foundation/ManualClock.h"
#include "interface/BusyIndicator.h"
#include "interface/Button.h"
#include "interface/Sheet.h"
#include "support/ShownSymbol.h"

#include <QAccessible>
#include <QSignalSpy>

namespace Quillstacks {
namespace {

class Progress : public InterfaceTest {};

TEST_F(Progress, theBarIsAsLongAsItsFraction) {
    ProgressBar bar(QStringLiteral("Reading"));
    bar.resize(200, bar.sizeHint().height());
    const auto isFilledAt = [&bar](int x) {
        return bar.grab().toImage().pixelColor(x, bar.height() / 2) == Theme::shared().color(ColorRole::accentFill);
    };
    EXPECT_FALSE(isFilledAt(2));
    bar.setFraction(0.5);
    EXPECT_TRUE(isFilledAt(50));
    EXPECT_FALSE(isFilledAt(150));
    bar.setFraction(2);
    EXPECT_TRUE(isFilledAt(190));
    bar.setFraction(-1);
    EXPECT_FALSE(isFilledAt(2));
}

TEST_F(Progress, assistiveToolsHearNameAndValue) {
    ProgressBar bar(QStringLiteral("Reading"));
    bar.setFraction(0.25);
    auto* interface = QAccessible::queryAccessibleInterface(&bar);
    ASSERT_TRUE(interface && interface->valueInterface());
    EXPECT_EQ(interface->role(), QAccessible::ProgressBar);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("Reading"));
    EXPECT_EQ(interface->valueInterface()->currentValue().toInt() * 4,
              interface->valueInterface()->maximumValue().toInt());
}

TEST_F(Progress, aBusyButtonShowsAnArcInItsSymbolsPlaceAndTakesNoPresses) {
    Button button(QStringLiteral("Export"), Button::Kind::bordered, &window);
    button.setSymbol(QStringLiteral("star"));
    button.resize(button.sizeHint());
    showWindow();
    const auto showsStar = [&button] {
        return showsSymbol(button, QStringLiteral("star"), 15, Theme::shared().color(ColorRole::text));
    };
    EXPECT_TRUE(showsStar());
    button.setBusy(true);
    button.setBusy(true);
    ASSERT_EQ(button.findChildren<BusyIndicator*>().size(), 1);
    const auto* arc = button.findChild<BusyIndicator*>();
    EXPECT_TRUE(arc->isTurning());
    EXPECT_TRUE(button.rect().contains(arc->geometry()));
    EXPECT_EQ(arc->accessibleName(), QStringLiteral("Export"));
    EXPECT_FALSE(showsStar());
    QSignalSpy clicks(&button, &QAbstractButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks.count(), 0);
    button.setTitle(QStringLiteral("Exporting..."));
    button.resize(button.sizeHint());
    EXPECT_TRUE(button.rect().contains(arc->geometry()));
    button.setBusy(false);
    EXPECT_TRUE(button.isEnabled());
    EXPECT_TRUE(button.findChildren<BusyIndicator*>().isEmpty());
    EXPECT_TRUE(showsStar());
}

TEST_F(Progress, aSheetThatAppearsLaterHasTheKeyboardAtOnceAndIsSeenThen) {
    ManualClock clock;
    FakeDesktop::shared().setReducedMotion(true);
    Button beneath(QStringLiteral("Beneath"), Button::Kind::bordered, &window);
    showWindow();
    beneath.setFocus(Qt::TabFocusReason);
    const auto corner = [this] { return window.grab().toImage().pixelColor(790, 590); };
    const QColor bare = corner();
    Sheet::Options options;
    options.appearsAfter = 0.5;
    Sheet* sheet = Sheet::present(&window, std::make_unique<QWidget>(), options);
    EXPECT_TRUE(Sheet::covers(&beneath));
    EXPECT_FALSE(beneath.hasFocus());
    QCoreApplication::processEvents();
    EXPECT_EQ(corner(), bare);
    clock.advance(std::chrono::milliseconds(499));
    EXPECT_EQ(corner(), bare);
    clock.advance(std::chrono::milliseconds(1));
    ASSERT_TRUE(QTest::qWaitFor([&] { return corner() != bare; }));
    sheet->dismiss();
    EXPECT_TRUE(beneath.hasFocus());
    ASSERT_TRUE(QTest::qWaitFor([&] { return corner() == bare; }));
}

TEST_F(Progress, aSheetThatIsGoneBeforeItAppearsIsNeverSeen) {
    ManualClock clock;
    showWindow();
    const auto corner = [this] { return window.grab().toImage().pixelColor(790, 590); };
    const QColor bare = corner();
    Sheet::Options options;
    options.appearsAfter = 0.5;
    Sheet::present(&window, std::make_unique<QWidget>(), options)->dismiss();
    clock.advance(std::chrono::seconds(1));
    EXPECT_EQ(corner(), bare);
    ASSERT_TRUE(QTest::qWaitFor([this] { return window.findChildren<Sheet*>().isEmpty(); }));
}

} // namespace
} // namespace Quillstacks
