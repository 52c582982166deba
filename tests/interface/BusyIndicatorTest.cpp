#include "interface/BusyIndicator.h"

#include "interface/Theme.h"
#include "platform/FakeDesktop.h"
#include "support/TestPreferences.h"

#include <QAccessible>
#include <QImage>

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

class Busy : public testing::Test {
protected:
    void SetUp() override { Theme::shared().refresh(); }
    FakeDesktop& desktop = FakeDesktop::fresh();
    TestPreferences preferences;
    BusyIndicator indicator{QStringLiteral("Reading")};
};

TEST_F(Busy, itTurnsWhileItShows) {
    EXPECT_FALSE(indicator.isTurning());
    indicator.show();
    EXPECT_TRUE(indicator.isTurning());
    indicator.hide();
    EXPECT_FALSE(indicator.isTurning());
}

TEST_F(Busy, withReducedMotionItStandsStillAndIsThere) {
    desktop.setReducedMotion(true);
    indicator.show();
    EXPECT_FALSE(indicator.isTurning());
    QImage image(indicator.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    indicator.render(&image, {}, {}, QWidget::RenderFlags());
    int painted = 0;
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            painted += image.pixelColor(x, y).alpha() > 200 ? 1 : 0;
    EXPECT_GT(painted, 50);
    desktop.setReducedMotion(false);
    EXPECT_TRUE(indicator.isTurning()) << "it follows the desktop";
}

TEST_F(Busy, assistiveToolsHearWhatGoesOn) {
    auto* interface = QAccessible::queryAccessibleInterface(&indicator);
    ASSERT_TRUE(interface);
    EXPECT_EQ(interface->role(), QAccessible::ProgressBar);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("Reading"));
}

} // namespace
} // namespace Quillstacks
